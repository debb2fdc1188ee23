// SPDX-License-Identifier: Apache-2.0
#include "app/ControlSocket.h"

#include <QJsonDocument>
#include <QLocalSocket>
#include <QPointer>

#include <utility>

namespace skipnest::app {

using platform::Failure;
using platform::Outcome;

namespace {

using namespace std::chrono_literals;

constexpr qsizetype longestRequest = 65'536;
constexpr std::size_t mostConnections = 16;
constexpr platform::Duration longestSilence = 2s;

QByteArray line(const ControlReply& reply) {
    return QJsonDocument(reply.toJson()).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

struct ControlSocket::Connection {
    quint64 id = 0;
    std::unique_ptr<QLocalSocket> socket;
    QByteArray received;
    bool isBusy = false; // a request is being carried out
    platform::Timer idleTimer;
};

QJsonObject ControlReply::toJson() const {
    QJsonObject object = details;
    object.insert(QStringLiteral("ok"), done);
    if (done)
        object.insert(QStringLiteral("result"), result);
    else
        object.insert(QStringLiteral("error"), error);
    return object;
}

QString controlSocketPath(const QString& runtimeFolder) {
    return runtimeFolder + QStringLiteral("/control.sock");
}

ControlSocket::ControlSocket(platform::PeerCredentials& peers, platform::Scheduler& scheduler,
                             Handler handler)
    : peers_(peers), scheduler_(scheduler), handler_(std::move(handler)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server_, &QLocalServer::newConnection, this, &ControlSocket::accept);
}

ControlSocket::~ControlSocket() = default;

Outcome ControlSocket::listen(const QString& path) {
    QLocalServer::removeServer(path);
    if (!server_.listen(path))
        return Failure{Failure::Kind::system, path + QStringLiteral(": ") + server_.errorString()};
    return platform::Done{};
}

void ControlSocket::close() {
    server_.close();
}

void ControlSocket::accept() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        std::unique_ptr<QLocalSocket> owned(socket);
        // Connections end with this object, not with the server, which a hand-over closes first.
        owned->setParent(nullptr);
        owned->setReadBufferSize(longestRequest);
        if (!peers_.isSameUser(owned->socketDescriptor()))
            continue;
        if (connections_.size() >= mostConnections) {
            owned->write(line(ControlReply::failure(QStringLiteral("too many connections"))));
            owned->flush();
            continue;
        }
        const quint64 id = ++lastId_;
        Connection& connection = *(connections_[id] = std::make_unique<Connection>());
        connection.id = id;
        connection.socket = std::move(owned);
        connect(socket, &QLocalSocket::readyRead, this,
                [this, &connection] { received(connection); });
        connect(socket, &QLocalSocket::disconnected, this, [this, id] {
            // Not from inside the socket's own signal.
            scheduler_.post([self = QPointer<ControlSocket>(this), id] {
                if (self)
                    self->drop(id);
            });
        });
        armIdleTimer(connection);
        received(connection);
    }
}

void ControlSocket::received(Connection& connection) {
    connection.received += connection.socket->read(2 * longestRequest - connection.received.size());
    if (!connection.isBusy)
        handleNext(connection);
}

void ControlSocket::handleNext(Connection& connection) {
    const qsizetype end = connection.received.indexOf('\n');
    if ((end < 0 ? connection.received.size() : end) > longestRequest) {
        connection.received.clear();
        connection.socket->write(
            line(ControlReply::failure(QStringLiteral("request longer than 64 KiB"))));
        connection.socket->disconnectFromServer();
        return;
    }
    if (end < 0)
        return armIdleTimer(connection);
    const QByteArray request = connection.received.left(end);
    connection.received.remove(0, end + 1);
    connection.isBusy = true;
    connection.idleTimer.reset();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(request, &error);
    if (!document.isObject())
        return answer(connection.id, ControlReply::failure(QStringLiteral("no JSON object: ") +
                                                           error.errorString()));
    handler_(document.object(),
             [self = QPointer<ControlSocket>(this), id = connection.id](const ControlReply& reply) {
                 if (self)
                     self->answer(id, reply);
             });
}

void ControlSocket::answer(quint64 id, const ControlReply& reply) {
    const auto found = connections_.find(id);
    if (found == connections_.end())
        return;
    Connection& connection = *found->second;
    connection.socket->write(line(reply));
    connection.socket->flush();
    connection.isBusy = false;
    armIdleTimer(connection);
    // What arrived meanwhile is looked at from the event loop, so that a client with a thousand
    // requests in its pipe costs no stack.
    scheduler_.post([self = QPointer<ControlSocket>(this), id] {
        if (!self)
            return;
        const auto next = self->connections_.find(id);
        if (next != self->connections_.end() && !next->second->isBusy)
            self->received(*next->second);
    });
}

void ControlSocket::armIdleTimer(Connection& connection) {
    connection.idleTimer = scheduler_.after(longestSilence, "idle control connection",
                                            [this, id = connection.id] { drop(id); });
}

void ControlSocket::drop(quint64 id) {
    connections_.erase(id);
}

} // namespace skipnest::app
