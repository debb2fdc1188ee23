// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Executor.h"
#include "platform/Scheduler.h"

#include <QThreadPool>

#include <functional>
#include <memory>

namespace skipnest::platform {

// The real Executor: Qt thread pools whose threads end after ten idle seconds, so that an idle
// agent has none. Destroying it waits for work that has begun and drops what has not. An exception
// that leaves a piece of work ends the program there and then, while its stack still tells where
// from.
class QtExecutor final : public Executor {
public:
    // `beforeWork` runs on the worker's thread before each piece of work: what the system has to
    // know of the thread. Empty for nothing.
    explicit QtExecutor(Scheduler& scheduler, std::function<void()> beforeWork = {});
    ~QtExecutor() override;

    void background(Work work, Work done) override;
    void serial(Work work, Work done) override;

private:
    void start(QThreadPool& pool, Work work, Work done);

    Scheduler& scheduler_;
    const std::function<void()> beforeWork_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    QThreadPool background_;
    QThreadPool serial_;
};

} // namespace skipnest::platform
