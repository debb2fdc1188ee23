// SPDX-License-Identifier: Apache-2.0
#include "cli/AgentClient.h"

#include "app/ControlSocket.h"

#include <QJsonDocument>
#include <QLocalSocket>

namespace skipnest::cli {
namespace {

constexpr int connectMilliseconds = 1'000;
// A jump answers within a second; the rest is for a machine under load.
constexpr int answerMilliseconds = 5'000;

} // namespace

std::optional<QJsonObject> askAgent(const QString& runtimeFolder, const QJsonObject& request) {
    QLocalSocket socket;
    socket.connectToServer(app::controlSocketPath(runtimeFolder));
    if (!socket.waitForConnected(connectMilliseconds))
        return std::nullopt;
    socket.write(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n');
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(answerMilliseconds))
            return QJsonObject{
                {QStringLiteral("ok"), false},
                {QStringLiteral("error"), QStringLiteral("the agent does not answer")}};
    }
    return QJsonDocument::fromJson(socket.readLine()).object();
}

} // namespace skipnest::cli
