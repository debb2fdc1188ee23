// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DelayedTasks.h"
#include "platform/Workspace.h"
#include "platform/linux/X11Applications.h"
#include "platform/linux/X11WindowCommands.h"
#include "platform/linux/X11Windows.h"

namespace skipnest::linuxdesktop {

// Commands to running applications through the window manager. Signals go only to processes of this
// machine that show no other application's windows; a polite end signals only those that have no
// window left.
class X11ApplicationControl final : public platform::ApplicationControl {
public:
    X11ApplicationControl(platform::Scheduler& scheduler, X11Windows& windows,
                          X11Applications& applications, X11WindowCommands& commands);

    [[nodiscard]] platform::ApplicationState state(platform::ProcessIdentifier pid) const override;
    platform::Outcome activate(platform::ProcessIdentifier pid,
                               platform::ActivationOption option) override;
    platform::Outcome hide(platform::ProcessIdentifier pid) override;
    platform::Outcome terminate(platform::ProcessIdentifier pid,
                                platform::Termination termination) override;

private:
    [[nodiscard]] const X11Application* find(platform::ProcessIdentifier pid) const;
    [[nodiscard]] bool hasEnded(const X11Application& application) const;
    [[nodiscard]] std::vector<std::int64_t> ownProcesses(const X11Application& application) const;
    [[nodiscard]] bool showsWindows(std::int64_t process) const;
    void terminatePolitely(const X11Application& application);
    [[nodiscard]] platform::Outcome kill(const X11Application& application);

    X11Windows& windows_;
    X11Applications& applications_;
    X11WindowCommands& commands_;
    platform::DelayedTasks delayed_;
};

} // namespace skipnest::linuxdesktop
