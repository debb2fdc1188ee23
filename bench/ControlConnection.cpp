// SPDX-License-Identifier: Apache-2.0
#include "bench/ControlConnection.h"

#include <QJsonDocument>

#include <algorithm>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace skipnest::bench {

ControlConnection::ControlConnection(const QString& path)
    : socket_(socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray name = path.toLocal8Bit().left(sizeof address.sun_path - 1);
    std::ranges::copy(name, address.sun_path);
    connected_ = connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

ControlConnection::~ControlConnection() {
    close(socket_);
}

bool ControlConnection::send(const QJsonObject& request) {
    const QByteArray line = QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n';
    return connected_ && ::send(socket_, line.constData(), static_cast<std::size_t>(line.size()),
                                MSG_NOSIGNAL) == line.size();
}

QJsonObject ControlConnection::receive() {
    QByteArray answer;
    char buffer[4096];
    while (!answer.endsWith('\n')) {
        const ssize_t count = read(socket_, buffer, sizeof buffer);
        if (count <= 0)
            return {};
        answer.append(buffer, count);
    }
    return QJsonDocument::fromJson(answer).object();
}

QJsonObject ControlConnection::ask(const QJsonObject& request) {
    return send(request) ? receive() : QJsonObject();
}

bool ControlConnection::jump(const QString& name) {
    const QJsonObject reply =
        ask({{QStringLiteral("verb"), QStringLiteral("jump")}, {QStringLiteral("name"), name}});
    const QJsonObject result = reply.value(QStringLiteral("result")).toObject();
    return reply.value(QStringLiteral("ok")).toBool() &&
           result.value(QStringLiteral("arrived")).toBool();
}

} // namespace skipnest::bench
