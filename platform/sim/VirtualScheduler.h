// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace skipnest::sim {

// A Scheduler whose clock moves only when told to, starting at 0. Due tasks run in deadline then
// insertion order, and what they post runs after each, before the next. Everything runs inside
// advanceTo() and runPosted(); only post() may be called from another thread.
//
// Tasks that keep making each other due at one instant would never let the clock move. After
// `tasksPerInstant` of them the scheduler gives up: it says so by fault() and runs nothing any
// more.
class VirtualScheduler final : public platform::Scheduler {
public:
    // Far above what a start with hundreds of shortcuts posts, and reached within milliseconds.
    static constexpr int tasksPerInstant = 100'000;

    VirtualScheduler();
    ~VirtualScheduler() override;

    [[nodiscard]] platform::Instant now() const override;
    [[nodiscard]] platform::Timer after(platform::Duration delay, const char* name,
                                        Task task) override;
    [[nodiscard]] platform::Timer every(platform::Duration period, const char* name,
                                        Task task) override;
    void post(Task task) override;

    // Runs what is posted and every task due at or before `until`; the clock then stands at
    // `until`, or where it stood when that is later (a blocking wait went past it).
    void advanceTo(platform::Instant until);
    // Runs posted work, and what that posts, until none is left.
    void runPosted();
    // The clock moves while nothing can run, as in a wait for another process: what fell due
    // meanwhile runs late, at the next advanceTo().
    void block(platform::Duration duration);

    // Says which task did not come to rest, and when.
    [[nodiscard]] std::optional<QString> fault() const;
    // "name (delay or period in ms)" of every timer that waits, sorted.
    [[nodiscard]] QStringList runningTimers() const;

private:
    struct State;
    enum class Repetition { once, forever };
    platform::Timer start(platform::Duration interval, const char* name, Task task,
                          Repetition repetition);
    bool countTask(const char* name);

    std::shared_ptr<State> state_;
};

} // namespace skipnest::sim
