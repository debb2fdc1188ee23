// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/InstanceLock.h"
#include "platform/Scheduler.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QLocalServer>

#include <functional>
#include <map>
#include <memory>

class QLocalSocket;

namespace skipnest::app {

// One answer to a request: a value, or why there is none. `details` are merged beside the error.
struct ControlReply {
    bool done = false;
    QJsonValue result;
    QString error;
    QJsonObject details;

    [[nodiscard]] static ControlReply success(QJsonValue result) {
        return {true, std::move(result), {}, {}};
    }
    [[nodiscard]] static ControlReply failure(QString error, QJsonObject details = {}) {
        return {false, {}, std::move(error), std::move(details)};
    }
    [[nodiscard]] QJsonObject toJson() const;
};

// The local socket through which the command line and scripts talk to the running agent.
//
// A request is one JSON object on a line, {"verb": "jump", …}; the answer is one JSON object on a
// line: {"ok": true, "result": …} or {"ok": false, "error": "…"}. Requests of a connection are
// answered in order, one at a time. Only the same user is served. A request of more than 64 KiB, a
// seventeenth connection, and one that is silent for 2 s while we owe it nothing are turned away.
class ControlSocket final : public QObject {
    Q_OBJECT
public:
    using Reply = std::function<void(const ControlReply&)>;
    // Calls `reply` once, now or later. Anything may have come over the line.
    using Handler = std::function<void(const QJsonObject& request, Reply reply)>;

    ControlSocket(platform::PeerCredentials& peers, platform::Scheduler& scheduler,
                  Handler handler);
    ~ControlSocket() override;

    // Takes the place of any socket file left there: whoever calls this holds the instance lock.
    platform::Outcome listen(const QString& path);
    // No new connections; those that wait for an answer still get it.
    void close();

private:
    struct Connection;

    void accept();
    void received(Connection& connection);
    void handleNext(Connection& connection);
    void answer(quint64 id, const ControlReply& reply);
    void armIdleTimer(Connection& connection);
    void drop(quint64 id);

    platform::PeerCredentials& peers_;
    platform::Scheduler& scheduler_;
    Handler handler_;
    QLocalServer server_;
    quint64 lastId_ = 0;
    std::map<quint64, std::unique_ptr<Connection>> connections_;
};

// Where the agent of this user listens.
[[nodiscard]] QString controlSocketPath(const QString& runtimeFolder);

} // namespace skipnest::app
