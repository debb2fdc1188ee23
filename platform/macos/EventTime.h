// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"

namespace skipnest::macos {

// When an event of this age happened, on the program's own time line. Ages, not times, cross from
// the system: its event clock stands still while the machine sleeps, ours need not. An age below
// zero or above ten seconds is a clock fault, and such an event counts as new.
[[nodiscard]] inline platform::Instant eventTime(const platform::Scheduler& scheduler,
                                                 double ageSeconds) {
    constexpr double believable = 10.0;
    const platform::Instant now = scheduler.now();
    if (!(ageSeconds > 0.0 && ageSeconds <= believable))
        return now;
    return now - std::chrono::duration_cast<platform::Duration>(
                     std::chrono::duration<double>(ageSeconds));
}

} // namespace skipnest::macos
