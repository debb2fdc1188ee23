// SPDX-License-Identifier: Apache-2.0
#include "tests/service/ServiceConnection.h"

#include <utility>

namespace skipnest::tests {

using namespace std::chrono_literals;

ServiceConnection::ServiceConnection(QTcpSocket* socket, platform::Scheduler& scheduler,
                                     Answerer answerer, QObject* parent)
    : QObject(parent), socket_(socket), scheduler_(scheduler), answerer_(std::move(answerer)) {
    socket_->setParent(this);
    connect(socket_, &QTcpSocket::readyRead, this, [this] { read(); });
    connect(socket_, &QTcpSocket::disconnected, this, [this] { deleteLater(); });
}

void ServiceConnection::read() {
    received_ += socket_->readAll();
    if (isAnswered_)
        return;
    const auto request = readRequest(received_);
    if (request && !*request)
        return;
    isAnswered_ = true;
    if (!request)
        give(answerer_(request.failure()));
    else
        give(answerer_(**request));
}

void ServiceConnection::give(const ScriptedAnswer& answer) {
    switch (answer.manner) {
    case ScriptedAnswer::Manner::whole:
        socket_->write(answer.bytes);
        socket_->disconnectFromHost();
        return;
    case ScriptedAnswer::Manner::trickling:
        trickling_ = answer.bytes;
        timer_ = scheduler_.every(20ms, "trickle", [this] { trickle(); });
        return;
    case ScriptedAnswer::Manner::flooding:
        connect(socket_, &QTcpSocket::bytesWritten, this, [this] { flood(); });
        socket_->write(answer.bytes);
        return;
    case ScriptedAnswer::Manner::silent:
        return;
    }
}

void ServiceConnection::trickle() {
    socket_->write(trickling_.isEmpty() ? QByteArray("0") : trickling_.left(1));
    trickling_.remove(0, 1);
}

void ServiceConnection::flood() {
    constexpr qint64 most = 64 * 1024 * 1024;
    constexpr qint64 piece = 64 * 1024;
    if (flooded_ >= most)
        return socket_->disconnectFromHost();
    if (socket_->bytesToWrite() >= piece)
        return;
    flooded_ += socket_->write(QByteArray(piece, '0'));
}

} // namespace skipnest::tests
