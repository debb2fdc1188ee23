// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Executor.h"
#include "platform/Scheduler.h"

#include <memory>

namespace skipnest::sim {

// An Executor without threads: work runs with the scheduler's posted work and `done` is posted
// after it, so that nothing ever happens inside the call that asked for it. Background work keeps
// its order too; a script that needs another order is asking for something the port does not
// promise.
class VirtualExecutor final : public platform::Executor {
public:
    explicit VirtualExecutor(platform::Scheduler& scheduler) : scheduler_(scheduler) {}
    ~VirtualExecutor() override;
    VirtualExecutor(const VirtualExecutor&) = delete;
    VirtualExecutor& operator=(const VirtualExecutor&) = delete;

    void background(Work work, Work done) override;
    void serial(Work work, Work done) override;

private:
    platform::Scheduler& scheduler_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::sim
