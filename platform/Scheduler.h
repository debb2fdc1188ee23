// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Owned.h"

#include <chrono>
#include <functional>

namespace skipnest::platform {

using Duration = std::chrono::nanoseconds;

// The tag of the one monotonic time line that events, timers and deadlines share.
struct MonotonicClock {
    using duration = Duration;
    using rep = duration::rep;
    using period = duration::period;
    using time_point = std::chrono::time_point<MonotonicClock>;
    static constexpr bool is_steady = true; // NOLINT(readability-identifier-naming): a clock's
};
using Instant = MonotonicClock::time_point;

using Timer = Owned<struct TimerTag>;

// The main thread's clock and task queue: the only source of time in the program besides WallClock.
// Real runs have QtScheduler, tests and replay sim::VirtualScheduler.
class Scheduler {
public:
    using Task = std::function<void()>;

    virtual ~Scheduler() = default;

    [[nodiscard]] virtual Instant now() const = 0;

    // Runs `task` once on the main thread when `delay` has passed, unless the timer is dropped
    // before. `name` is a literal that says who waits: `skipnest status` lists the running timers
    // by name. A delay of 20 s or more may be late by 5 % so that the system can gather wake-ups.
    [[nodiscard]] virtual Timer after(Duration delay, const char* name, Task task) = 0;

    // The same again and again, the first time after one period. `period` is at least 1 ms.
    [[nodiscard]] virtual Timer every(Duration period, const char* name, Task task) = 0;

    // Runs `task` on the main thread soon, in the order posted, never from inside the caller.
    // May be called from any thread.
    virtual void post(Task task) = 0;
};

} // namespace skipnest::platform
