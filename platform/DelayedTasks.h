// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"

#include <cstdint>
#include <map>

namespace skipnest::platform {

// Delayed tasks of one owner that may overlap, such as the hand-back checks after two hides in a
// row. Those that have not run are dropped with this object.
class DelayedTasks {
public:
    explicit DelayedTasks(Scheduler& scheduler) : scheduler_(scheduler) {}

    void after(Duration delay, const char* name, Scheduler::Task task);

private:
    Scheduler& scheduler_;
    std::uint64_t lastId_ = 0;
    std::map<std::uint64_t, Timer> pending_;
};

} // namespace skipnest::platform
