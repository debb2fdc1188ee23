// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/VirtualExecutor.h"

#include <utility>

namespace skipnest::sim {

VirtualExecutor::~VirtualExecutor() {
    *alive_ = false;
}

void VirtualExecutor::background(Work work, Work done) {
    serial(std::move(work), std::move(done));
}

void VirtualExecutor::serial(Work work, Work done) {
    scheduler_.post(
        [&scheduler = scheduler_, alive = alive_, work = std::move(work), done = std::move(done)] {
            if (!*alive)
                return;
            work();
            scheduler.post([alive, done] {
                if (*alive)
                    done();
            });
        });
}

} // namespace skipnest::sim
