// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Executor.h"
#include "platform/Scheduler.h"

#include <QThreadPool>

#include <memory>

namespace skipnest::platform {

// The real Executor: Qt thread pools whose threads end after ten idle seconds, so that an idle
// agent has none. Destroying it waits for work that has begun and drops what has not.
class QtExecutor final : public Executor {
public:
    explicit QtExecutor(Scheduler& scheduler);
    ~QtExecutor() override;

    void background(Work work, Work done) override;
    void serial(Work work, Work done) override;

private:
    void start(QThreadPool& pool, Work work, Work done);

    Scheduler& scheduler_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    QThreadPool background_;
    QThreadPool serial_;
};

} // namespace skipnest::platform
