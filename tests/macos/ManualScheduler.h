// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"

#include <memory>
#include <utility>
#include <vector>

namespace skipnest::macos {

// A clock that stands at one hour, a queue that runs when told to, and at most one periodic timer,
// which ticks when told to.
class ManualScheduler final : public platform::Scheduler {
public:
    static constexpr platform::Instant start{std::chrono::hours(1)};

    platform::Instant now() const override { return start; }
    platform::Timer after(platform::Duration, const char*, Task) override { return {}; }
    platform::Timer every(platform::Duration period, const char*, Task task) override {
        period_ = period;
        tick_ = std::move(task);
        return platform::Timer([this] { tick_ = nullptr; });
    }
    void post(Task task) override { posted_.push_back(std::move(task)); }

    void runPosted() {
        for (const Task& task : std::exchange(posted_, {}))
            task();
    }
    [[nodiscard]] std::size_t waiting() const { return posted_.size(); }
    [[nodiscard]] bool ticking() const { return static_cast<bool>(tick_); }
    void tick() {
        const Task task = tick_;
        task();
    }
    [[nodiscard]] platform::Duration period() const { return period_; }

private:
    std::vector<Task> posted_;
    Task tick_;
    platform::Duration period_{};
};

} // namespace skipnest::macos
