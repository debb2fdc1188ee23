// SPDX-License-Identifier: Apache-2.0
#include "platform/QtExecutor.h"

#include <utility>

namespace skipnest::platform {

QtExecutor::QtExecutor(Scheduler& scheduler, std::function<void()> beforeWork)
    : scheduler_(scheduler), beforeWork_(std::move(beforeWork)) {
    constexpr int idleMilliseconds = 10'000;
    background_.setExpiryTimeout(idleMilliseconds);
    serial_.setExpiryTimeout(idleMilliseconds);
    serial_.setMaxThreadCount(1);
}

QtExecutor::~QtExecutor() {
    *alive_ = false;
    background_.clear();
    serial_.clear();
    background_.waitForDone();
    serial_.waitForDone();
}

void QtExecutor::background(Work work, Work done) {
    start(background_, std::move(work), std::move(done));
}

void QtExecutor::serial(Work work, Work done) {
    start(serial_, std::move(work), std::move(done));
}

void QtExecutor::start(QThreadPool& pool, Work work, Work done) {
    pool.start([this, &scheduler = scheduler_, alive = alive_, work = std::move(work),
                done = std::move(done)]() noexcept {
        // The destructor waits for work that runs, so this is still there.
        if (beforeWork_)
            beforeWork_();
        work();
        // `alive` is read on the main thread only, where it is also written.
        scheduler.post([alive, done] {
            if (*alive)
                done();
        });
    });
}

} // namespace skipnest::platform
