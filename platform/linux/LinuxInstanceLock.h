// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/InstanceLock.h"

#include <QString>

#include <chrono>

namespace skipnest::linuxdesktop {

class FileDescriptor;

// Two files in the runtime folder, "start.lock" and "agent.lock", locked by open file description
// (F_OFD_SETLK): the kernel frees them with the process, and asking who has one (F_OFD_GETLK) takes
// nothing, so that a question can never make a starting agent fail. The files are never removed: a
// lock on a file that has lost its name protects nothing.
//
// The agent writes its pid and start time into its file. A pid counts only while the file is
// locked, the process began at that time and runs a program of our name: numbers come round again.
class LinuxInstanceLock final : public platform::InstanceLock {
public:
    explicit LinuxInstanceLock(QString runtimeFolder,
                               std::chrono::milliseconds startWait = std::chrono::seconds(10));

    [[nodiscard]] platform::Result<platform::InstanceToken> enterStart() override;
    [[nodiscard]] platform::Result<platform::InstanceToken> acquire() override;
    [[nodiscard]] std::optional<platform::ProcessIdentifier> holder() const override;
    platform::Outcome endHolder(platform::Termination termination) override;

private:
    [[nodiscard]] platform::Result<FileDescriptor> openLockFile(const QString& name) const;

    QString folder_;
    std::chrono::milliseconds startWait_;
};

} // namespace skipnest::linuxdesktop
