// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <sys/types.h>

#include <chrono>
#include <optional>

namespace skipnest::e2e {

struct Launch {
    QStringList command;
    QStringList environment; // "NAME=value", all of it: nothing is inherited
    QString outputPath;      // standard output
    QString errorPath;       // standard error; empty: with standard output
    int keptDescriptor = -1; // stays open in the child under the same number
    QString folder = {};     // to start in; empty: this process's own
};

// A program that this process started and ends: the object ends it when dropped, the kernel when
// this process dies without dropping it.
class ChildProcess {
public:
    ChildProcess() = default;
    [[nodiscard]] static ChildProcess start(const Launch& launch);
    ~ChildProcess();
    ChildProcess(ChildProcess&& other) noexcept;
    ChildProcess& operator=(ChildProcess&& other) noexcept;

    [[nodiscard]] pid_t pid() const { return pid_; }
    [[nodiscard]] bool running();
    // As waitpid() reports it; absent while it runs or where it could not be started.
    [[nodiscard]] std::optional<int> waitStatus();
    [[nodiscard]] bool ends(std::chrono::milliseconds limit);
    void send(int signal);
    // Asks with SIGTERM, insists with SIGKILL after a second.
    void end();

private:
    pid_t pid_ = -1;
    std::optional<int> status_;
};

struct Finished {
    int exitCode = -1; // -1: did not end by itself in time
    QByteArray output;
    QByteArray errors;
};

// Runs a program to its end.
[[nodiscard]] Finished run(const QStringList& command, const QStringList& environment,
                           std::chrono::milliseconds limit = std::chrono::seconds(20));

// What our programs start (applications that a shortcut opened, services of the bus) becomes a
// child of this process when its parent ends, so that endStrays() finds all of it.
void adoptOrphans();
void endStrays();

} // namespace skipnest::e2e
