// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FramedMessages.h"
#include "platform/Result.h"
#include "platform/Scheduler.h"
#include "platform/linux/FileDescriptor.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace skipnest::linuxdesktop {

// The agent's end of the hosts of browsers: a socket in the runtime folder that only this user can
// open, and a thread that does all reading and writing on it, so that the main thread can wait for
// an answer and no longer than it wants to.
//
// A host begins with {"hello":1} and is greeted with {"welcome":1}; from then on it is a connection
// of the browser that started it. Each request has a number, "id", that its answer repeats. An
// answer to a number that nobody waits for any more is dropped. {"who":1} in place of a hello is
// answered with {"connected":[identifiers]}.
class TabsServer {
public:
    using ConnectionId = std::uint64_t;
    // The browser behind a process; empty turns it away. Called on the thread.
    using Identify = std::function<QString(std::int64_t pid)>;
    // A connection came or went. Called on the thread.
    using Changed = std::function<void()>;

    struct Question {
        ConnectionId connection = 0;
        QJsonObject request;
    };
    struct Answer {
        enum class State { late, gone, given };
        State state = State::late;
        QJsonObject message;
    };

    TabsServer(const platform::Scheduler& clock, Identify identify, Changed changed);
    ~TabsServer();
    TabsServer(const TabsServer&) = delete;
    TabsServer& operator=(const TabsServer&) = delete;

    // Takes the place of any socket left there. Once.
    platform::Outcome listen(const QString& path);

    [[nodiscard]] bool isListening() const { return thread_.joinable(); }
    // Identifiers of the browsers with a connection.
    [[nodiscard]] QStringList connectedBrowsers() const;
    // The connections of a browser, one a profile, the newest first.
    [[nodiscard]] std::vector<ConnectionId> connections(const QString& browser) const;
    // Asks all at once and waits until each has answered or gone, at most `budget` in all. One
    // answer a question, in their order.
    [[nodiscard]] std::vector<Answer> ask(const std::vector<Question>& questions,
                                          platform::Duration budget);

private:
    struct Connection {
        ConnectionId id = 0;
        FileDescriptor socket;
        QString browser;
        bool greeted = false;
        platform::MessageReader reader;
        QByteArray outgoing;
        bool broken = false;
    };
    struct Greeted {
        ConnectionId id = 0;
        QString browser;
    };
    struct Pending {
        ConnectionId connection = 0;
        Answer answer;
    };
    struct Outgoing {
        ConnectionId connection = 0;
        QByteArray bytes;
    };

    void serve();
    void accept();
    void send();
    void read(Connection& connection);
    void handle(Connection& connection, const QByteArray& message);
    void greet(Connection& connection, const QJsonObject& message);
    void forget(const Connection& connection);

    const platform::Scheduler& clock_;
    const Identify identify_;
    const Changed changed_;
    FileDescriptor listener_;
    FileDescriptor wakeThread_;
    FileDescriptor wakeMain_;

    // The thread's own.
    std::vector<std::unique_ptr<Connection>> connections_;
    ConnectionId lastConnection_ = 0;
    bool isOutOfDescriptors_ = false; // nobody can be accepted for a while

    mutable std::mutex mutex_; // for what follows
    std::vector<Greeted> greeted_;
    std::map<std::int64_t, Pending> pending_; // by request number
    std::vector<Outgoing> outgoing_;
    std::int64_t lastRequest_ = 0;
    bool ends_ = false;

    std::thread thread_;
};

} // namespace skipnest::linuxdesktop
