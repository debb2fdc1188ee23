// SPDX-License-Identifier: Apache-2.0
#include "platform/Observers.h"
#include "platform/DelayedTasks.h"
#include "platform/sim/VirtualScheduler.h"

#include <gmock/gmock.h>

#include <optional>
#include <string>

namespace skipnest::platform {
namespace {

using namespace std::chrono_literals;

TEST(ObserversTest, survivesWhatObserversDoWhileTheyAreTold) {
    Observers<int> observers;
    std::string told;
    Observation second;
    Observation late;
    Observation first = observers.add([&](int value) {
        told += 'a';
        if (value == 1)
            second.reset(); // not told any more, though it was there when the notice began
        if (value == 2)
            late = observers.add([&](int) { told += 'c'; }); // told from the next notice on
        if (value == 3)
            first.reset(); // itself, while it runs
    });
    second = observers.add([&](int) { told += 'b'; });
    observers.notify(0);
    EXPECT_EQ(std::exchange(told, {}), "ab");
    observers.notify(1);
    EXPECT_EQ(std::exchange(told, {}), "a");
    observers.notify(2);
    EXPECT_EQ(std::exchange(told, {}), "a");
    observers.notify(3);
    EXPECT_EQ(std::exchange(told, {}), "ac");
    observers.notify(4);
    EXPECT_EQ(std::exchange(told, {}), "c");
    late.reset();
    EXPECT_TRUE(observers.empty());
}

TEST(ObserversTest, ownerMayGoBeforeItsObserversOrWhileItTells) {
    auto observers = std::make_unique<Observers<>>();
    int told = 0;
    Observation first = observers->add([&] {
        ++told;
        observers.reset();
    });
    Observation second = observers->add([&] { ++told; });
    observers->notify();
    EXPECT_EQ(told, 2);
    second.reset(); // nothing left to remove it from
}

TEST(ObserversTest, notifiesFromWithinANotice) {
    Observers<int> observers;
    std::string told;
    Observation nested = observers.add([&](int depth) {
        told += std::to_string(depth);
        if (depth < 2)
            observers.notify(depth + 1);
        else
            nested.reset();
    });
    observers.notify(0);
    EXPECT_EQ(told, "012");
    observers.notify(0);
    EXPECT_EQ(told, "012");
}

TEST(DelayedTasksTest, overlapAndGoWithTheirOwnerEvenFromInside) {
    sim::VirtualScheduler scheduler;
    std::optional<DelayedTasks> tasks(std::in_place, scheduler);
    std::string done;
    tasks->after(20ms, "b", [&] { done += 'b'; });
    tasks->after(10ms, "a", [&] { done += 'a'; });
    tasks->after(30ms, "end", [&] {
        done += 'e';
        tasks.reset();
    });
    tasks->after(40ms, "never", [&] { done += '!'; });
    scheduler.advanceTo(scheduler.now() + 1s);
    EXPECT_EQ(done, "abe");
    EXPECT_TRUE(scheduler.runningTimers().isEmpty());
}

} // namespace
} // namespace skipnest::platform
