// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/VirtualExecutor.h"
#include "platform/sim/VirtualScheduler.h"
#include "platform/sim/VirtualWallClock.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace skipnest::sim {
namespace {

using namespace std::chrono_literals;
using platform::Instant;
using platform::Timer;
using testing::ElementsAre;
using testing::IsEmpty;

class VirtualSchedulerTest : public testing::Test {
protected:
    platform::Scheduler::Task note(const std::string& name) {
        return [this, name] { ran_.push_back(name); };
    }

    VirtualScheduler scheduler_;
    std::vector<std::string> ran_;
};

TEST_F(VirtualSchedulerTest, theLimitIsIncludedAndOneNanosecondLaterIsNot) {
    const Timer on = scheduler_.after(100ms, "on", note("on"));
    const Timer beyond = scheduler_.after(100ms + 1ns, "beyond", note("beyond"));
    scheduler_.advanceTo(Instant(100ms));
    EXPECT_THAT(ran_, ElementsAre("on"));
    EXPECT_EQ(scheduler_.now(), Instant(100ms));
}

TEST_F(VirtualSchedulerTest, equalDeadlinesRunInTheOrderTheyWereSetWithPostedWorkBetween) {
    Timer late;
    const Timer setter = scheduler_.after(
        0ms, "setter", [&] { late = scheduler_.after(10ms, "set later", note("set later")); });
    scheduler_.advanceTo(Instant(0ms));
    const Timer first = scheduler_.after(10ms, "b", [&] {
        ran_.emplace_back("b");
        scheduler_.post(note("posted by b"));
    });
    const Timer second = scheduler_.after(10ms, "c", note("c"));
    scheduler_.advanceTo(Instant(10ms));
    EXPECT_THAT(ran_, ElementsAre("set later", "b", "posted by b", "c"));
}

TEST_F(VirtualSchedulerTest, aTickIsArmedAgainBeforeItRuns) {
    Timer once;
    const Timer tick = scheduler_.every(10ms, "tick", [&] {
        ran_.emplace_back("tick");
        if (!once)
            once = scheduler_.after(10ms, "once", note("once"));
    });
    scheduler_.advanceTo(Instant(20ms));
    EXPECT_THAT(ran_, ElementsAre("tick", "tick", "once"));
}

TEST_F(VirtualSchedulerTest, whatFallsDueInABlockingWaitRunsLateButInItsPlace) {
    const Timer blocking = scheduler_.after(10ms, "blocking", [&] { scheduler_.block(1s); });
    std::vector<Instant> times;
    const Timer meanwhile =
        scheduler_.after(500ms, "meanwhile", [&] { times.push_back(scheduler_.now()); });
    const Timer tick = scheduler_.every(200ms, "tick", note("tick"));
    scheduler_.advanceTo(Instant(100ms));
    EXPECT_EQ(scheduler_.now(), Instant(1010ms));
    EXPECT_THAT(times, IsEmpty()) << "an event at 0.1 s comes before a task due at 0.5 s";
    scheduler_.advanceTo(Instant(500ms));
    EXPECT_THAT(times, ElementsAre(Instant(1010ms)));
    EXPECT_THAT(ran_, ElementsAre("tick")) << "swallowed ticks are not made up for";
    scheduler_.advanceTo(Instant(1200ms));
    EXPECT_THAT(ran_, ElementsAre("tick", "tick"));
}

TEST_F(VirtualSchedulerTest, tasksThatNeverComeToRestAreAFaultInsteadOfAHang) {
    Timer again;
    std::function<void()> rearm = [&] { again = scheduler_.after(0ms, "rearm", rearm); };
    rearm();
    scheduler_.advanceTo(Instant(1s));
    EXPECT_EQ(scheduler_.fault(), QStringLiteral("\"rearm\" does not come to rest at 0 s"));

    VirtualScheduler other;
    std::function<void()> repost = [&] { other.post(repost); };
    repost();
    other.runPosted();
    EXPECT_TRUE(other.fault().has_value());
}

TEST_F(VirtualSchedulerTest, aDelayBeyondTheClockWaitsForEver) {
    const Timer endless = scheduler_.after(platform::Duration::max(), "endless", note("endless"));
    scheduler_.advanceTo(Instant(24h));
    const Timer again = scheduler_.after(platform::Duration::max(), "again", note("again"));
    scheduler_.advanceTo(Instant(48h));
    EXPECT_THAT(ran_, IsEmpty());
}

TEST_F(VirtualSchedulerTest, timersMayOutliveTheScheduler) {
    Timer timer;
    {
        VirtualScheduler shortLived;
        timer = shortLived.after(1s, "left over", note("left over"));
    }
    timer.reset();
    EXPECT_THAT(ran_, IsEmpty());
}

TEST_F(VirtualSchedulerTest, theCalendarGoesWithTheClockFromWhereItWasSet) {
    VirtualWallClock clock(scheduler_);
    scheduler_.advanceTo(Instant(1500ms));
    EXPECT_EQ(clock.nowUtc().toString(Qt::ISODateWithMs),
              QStringLiteral("2026-01-01T00:00:01.500Z"));
    clock.setUtc(QDateTime(QDate(2026, 7, 24), QTime(21, 59, 50), Qt::UTC));
    clock.setZone(QTimeZone("Europe/Berlin"));
    EXPECT_EQ(clock.today(), QDate(2026, 7, 24));
    scheduler_.advanceTo(Instant(11500ms));
    EXPECT_EQ(clock.today(), QDate(2026, 7, 25));
}

TEST_F(VirtualSchedulerTest, workRunsAfterTheCallAndItsEndAfterTheWork) {
    auto executor = std::make_unique<VirtualExecutor>(scheduler_);
    executor->serial(note("a"), note("a done"));
    executor->background(note("b"), note("b done"));
    EXPECT_THAT(ran_, IsEmpty());
    scheduler_.runPosted();
    EXPECT_THAT(ran_, ElementsAre("a", "b", "a done", "b done"));

    executor->serial([&] { executor.reset(); }, note("dropped with the executor"));
    scheduler_.runPosted();
    EXPECT_EQ(ran_.size(), 4U);
}

} // namespace
} // namespace skipnest::sim
