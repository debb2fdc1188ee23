// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/FramedMessages.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

namespace skipnest::browser {

inline constexpr int patience = 5'000; // ms

// What arrives on a device, message by message; nothing where none comes in time.
class Incoming {
public:
    explicit Incoming(QIODevice& device) : device_(device) {}
    [[nodiscard]] std::optional<QByteArray> next(int milliseconds = patience);

private:
    QIODevice& device_;
    platform::MessageReader reader_{64 << 20};
};

// The host as a browser starts it, with a runtime folder of its own.
class HostProcess {
public:
    explicit HostProcess(const QString& runtimeFolder, const QStringList& arguments = origin());
    ~HostProcess();

    // What a Chromium browser says on behalf of the extension.
    [[nodiscard]] static QStringList origin();

    void send(const QByteArray& bytes);
    [[nodiscard]] Incoming& answers() { return answers_; }
    void closeInput() { process_.closeWriteChannel(); }
    // Its exit status; nothing where it still runs.
    [[nodiscard]] std::optional<int> ended(int milliseconds = patience);
    [[nodiscard]] qint64 pid() const { return process_.processId(); }

private:
    QProcess process_;
    Incoming answers_{process_};
};

// The agent's end of the socket, played by the test.
class AgentEnd {
public:
    explicit AgentEnd(const QString& runtimeFolder);

    // The next host that connects, once it has introduced itself.
    [[nodiscard]] bool accept(int milliseconds = patience);
    void send(const QByteArray& bytes);
    [[nodiscard]] std::optional<QByteArray> receive(int milliseconds = patience) {
        return incoming_->next(milliseconds);
    }
    void hangUp();

private:
    QLocalServer server_;
    std::unique_ptr<QLocalSocket> socket_;
    std::unique_ptr<Incoming> incoming_;
};

} // namespace skipnest::browser
