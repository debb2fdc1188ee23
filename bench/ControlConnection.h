// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QJsonObject>
#include <QString>

namespace skipnest::bench {

// One connection to the agent's control socket.
class ControlConnection {
public:
    explicit ControlConnection(const QString& path);
    ~ControlConnection();
    ControlConnection(const ControlConnection&) = delete;
    ControlConnection& operator=(const ControlConnection&) = delete;

    // The agent's reply, waited for; empty where it does not come.
    [[nodiscard]] QJsonObject ask(const QJsonObject& request);
    // Without waiting for the reply, which the next ask() would then get.
    bool send(const QJsonObject& request);
    [[nodiscard]] QJsonObject receive();
    // True when the agent says that the target is in front.
    bool jump(const QString& name);

private:
    int socket_;
    bool connected_ = false;
};

} // namespace skipnest::bench
