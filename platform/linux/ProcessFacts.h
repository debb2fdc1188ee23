// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace skipnest::linuxdesktop {

// What /proc tells of a process. Empty where it has ended or belongs to somebody else.
struct ProcessFacts {
    QString executable;
    QStringList commandLine;
    QString launchedFrom; // GIO_LAUNCHED_DESKTOP_FILE, if it was meant for this process
};

[[nodiscard]] ProcessFacts processFacts(std::int64_t pid);
[[nodiscard]] bool processExists(std::int64_t pid);

// A process held by a descriptor: a signal through it can never hit another process that was given
// the same number later.
class ProcessHandle {
public:
    // Empty for numbers up to 1 and for processes that have ended.
    explicit ProcessHandle(std::int64_t pid);
    ~ProcessHandle();
    ProcessHandle(const ProcessHandle&) = delete;
    ProcessHandle& operator=(const ProcessHandle&) = delete;

    explicit operator bool() const { return descriptor_ >= 0; }
    // False with errno set.
    [[nodiscard]] bool signal(int number) const;
    [[nodiscard]] bool running() const;

private:
    int descriptor_ = -1;
};

} // namespace skipnest::linuxdesktop
