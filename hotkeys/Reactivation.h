// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DelayedTasks.h"
#include "platform/Ports.h"
#include "platform/RunningApplication.h"

namespace skipnest::hotkeys {

// Brings every window of the application in front forward: macOS does so only when the application
// is activated anew, so this program comes in between for a tenth of a second.
class Reactivation {
public:
    explicit Reactivation(const platform::Ports& ports);

    void bringAllWindowsForward(platform::ProcessIdentifier pid);

private:
    platform::Ports ports_;
    platform::DelayedTasks delayed_;
};

} // namespace skipnest::hotkeys
