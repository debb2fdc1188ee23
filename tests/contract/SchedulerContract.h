// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace skipnest::test {

// What every Scheduler promises. `Desk` gives a scheduler and lets time pass on it:
//     platform::Scheduler& scheduler();
//     void pass(platform::Duration); // at least so long
template <typename Desk> class SchedulerContract : public testing::Test {
protected:
    using Names = std::vector<std::string>;

    platform::Scheduler& scheduler() { return desk_.scheduler(); }
    platform::Scheduler::Task note(const char* name) {
        return [this, name] { ran_.emplace_back(name); };
    }

    Desk desk_;
    Names ran_;
};

TYPED_TEST_SUITE_P(SchedulerContract);

TYPED_TEST_P(SchedulerContract, runsByDeadlineWhateverTheOrderOfAsking) {
    using namespace std::chrono_literals;
    const auto late = this->scheduler().after(30ms, "late", this->note("late"));
    const auto early = this->scheduler().after(10ms, "early", this->note("early"));
    this->scheduler().post(this->note("posted"));
    EXPECT_TRUE(this->ran_.empty());
    this->desk_.pass(60ms);
    EXPECT_EQ(this->ran_, (std::vector<std::string>{"posted", "early", "late"}));
}

TYPED_TEST_P(SchedulerContract, neverRunsATaskBeforeItsTime) {
    using namespace std::chrono_literals;
    const platform::Instant asked = this->scheduler().now();
    platform::Instant ran{};
    const auto timer =
        this->scheduler().after(5500us, "task", [&] { ran = this->scheduler().now(); });
    this->desk_.pass(40ms);
    EXPECT_GE(ran - asked, 5500us);
}

TYPED_TEST_P(SchedulerContract, postedWorkKeepsItsOrderAndNeverRunsInsideTheCaller) {
    using namespace std::chrono_literals;
    this->scheduler().post([this] {
        this->ran_.emplace_back("first");
        this->scheduler().post(this->note("third"));
        this->ran_.emplace_back("still first");
    });
    this->scheduler().post(this->note("second"));
    this->desk_.pass(10ms);
    EXPECT_EQ(this->ran_, (std::vector<std::string>{"first", "still first", "second", "third"}));
}

TYPED_TEST_P(SchedulerContract, aDroppedTimerDoesNotRun) {
    using namespace std::chrono_literals;
    auto dropped = this->scheduler().after(10ms, "dropped", this->note("dropped"));
    auto byOther = this->scheduler().after(20ms, "by other", this->note("by other"));
    const auto dropper = this->scheduler().after(10ms, "dropper", [&] { byOther.reset(); });
    dropped.reset();
    this->desk_.pass(50ms);
    EXPECT_TRUE(this->ran_.empty());
}

TYPED_TEST_P(SchedulerContract, aRepeatingTaskMayDropItself) {
    using namespace std::chrono_literals;
    platform::Timer timer;
    timer = this->scheduler().every(10ms, "tick", [&] {
        this->ran_.emplace_back("tick");
        if (this->ran_.size() == 3)
            timer.reset();
    });
    this->desk_.pass(100ms);
    EXPECT_EQ(this->ran_.size(), 3U);
}

TYPED_TEST_P(SchedulerContract, aTaskMayArmTheNext) {
    using namespace std::chrono_literals;
    platform::Timer next;
    const auto first = this->scheduler().after(10ms, "first", [&] {
        this->ran_.emplace_back("first");
        next = this->scheduler().after(10ms, "next", this->note("next"));
    });
    this->desk_.pass(60ms);
    EXPECT_EQ(this->ran_, (std::vector<std::string>{"first", "next"}));
}

REGISTER_TYPED_TEST_SUITE_P(SchedulerContract, runsByDeadlineWhateverTheOrderOfAsking,
                            neverRunsATaskBeforeItsTime,
                            postedWorkKeepsItsOrderAndNeverRunsInsideTheCaller,
                            aDroppedTimerDoesNotRun, aRepeatingTaskMayDropItself,
                            aTaskMayArmTheNext);

} // namespace skipnest::test
