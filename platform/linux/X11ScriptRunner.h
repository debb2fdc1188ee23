// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ScriptRunner.h"
#include "platform/linux/X11Applications.h"
#include "platform/linux/X11WindowCommands.h"
#include "platform/linux/X11Windows.h"

namespace skipnest::linuxdesktop {

// Carries out what scripts mean by way of the window manager. Answers at once.
class X11ScriptRunner final : public platform::ScriptRunner {
public:
    X11ScriptRunner(X11Windows& windows, X11Applications& applications,
                    X11WindowCommands& commands);

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::ScriptAnswer run(const platform::ScriptRequest& request,
                                             platform::Duration budget) override;

private:
    platform::ScriptAnswer cycle(const platform::CycleWindows& request);
    platform::ScriptAnswer minimiseFirst(const X11Application& application);
    platform::ScriptAnswer restoreLast(const X11Application& application);

    X11Windows& windows_;
    X11Applications& applications_;
    X11WindowCommands& commands_;
};

} // namespace skipnest::linuxdesktop
