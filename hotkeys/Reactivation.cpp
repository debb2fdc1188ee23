// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/Reactivation.h"

#include "platform/Workspace.h"

namespace skipnest::hotkeys {

using platform::ActivationOption;

namespace {

using namespace std::chrono_literals;
constexpr platform::Duration gap = 100ms;

} // namespace

Reactivation::Reactivation(const platform::Ports& ports)
    : ports_(ports), delayed_(ports.scheduler) {}

void Reactivation::bringAllWindowsForward(platform::ProcessIdentifier pid) {
    (void)ports_.applications.activate(ports_.app.pid, ActivationOption::ignoringOtherApps);
    delayed_.after(gap, "bring all windows forward", [this, pid] {
        (void)ports_.applications.activate(pid, ActivationOption::allWindows);
    });
}

} // namespace skipnest::hotkeys
