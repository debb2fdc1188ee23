// SPDX-License-Identifier: Apache-2.0
#include "platform/DelayedTasks.h"

#include <utility>

namespace skipnest::platform {

void DelayedTasks::after(Duration delay, const char* name, Scheduler::Task task) {
    const std::uint64_t id = ++lastId_;
    pending_[id] = scheduler_.after(delay, name, [this, id, task = std::move(task)] {
        // The entry goes first: the task may destroy this object.
        const Scheduler::Task running = task;
        pending_.erase(id);
        running();
    });
}

} // namespace skipnest::platform
