// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacKeyEvents.h"

#include "tests/macos/ManualScheduler.h"

#include <gmock/gmock.h>

namespace skipnest::macos {
namespace {

using namespace std::chrono_literals;
using platform::Availability;
using platform::EventFlags;
using platform::Failure;

class FakeQuartz final : public KeyboardEventBridge {
public:
    bool mayListen() const override { return listens; }
    bool mayPost() const override { return posts; }
    std::unique_ptr<KeyboardTap> tap(Tapped told) override {
        if (!listens)
            return nullptr;
        tapped = std::move(told);
        health = TapHealth::running;
        return std::make_unique<Tap>(*this);
    }
    std::uint64_t flagsDown() const override { return down; }
    bool post(std::uint16_t keyCode, std::uint64_t flags) override {
        lastPosted = {keyCode, flags};
        return makesEvents;
    }

    bool listens = true;
    bool posts = true;
    bool makesEvents = true;
    std::uint64_t down = 0;
    int taps = 0; // installed now
    TapHealth health = TapHealth::running;
    Tapped tapped;
    std::pair<std::uint16_t, std::uint64_t> lastPosted;

private:
    class Tap final : public KeyboardTap {
    public:
        explicit Tap(FakeQuartz& quartz) : quartz_(quartz) { ++quartz_.taps; }
        ~Tap() override { --quartz_.taps; }
        TapHealth health() const override { return quartz_.health; }
        void enable() override { quartz_.health = TapHealth::running; }

    private:
        FakeQuartz& quartz_;
    };
};

class Listener final : public platform::KeyEventListener {
public:
    void modifiersChanged(const platform::ModifierEvent& event) override {
        last = event;
        ++modifierEvents;
        if (onEvent)
            onEvent();
    }
    void otherKeyPressed(platform::Instant) override { ++otherKeys; }

    platform::ModifierEvent last;
    int modifierEvents = 0;
    int otherKeys = 0;
    std::function<void()> onEvent;
};

// Left Command as the system reports it: device bit, coalescing bit, keypad bit.
constexpr std::uint64_t leftCommand = EventFlags::command | 0x8 | 0x100 | (1ULL << 21);
const TappedKey commandDown{TappedKey::Kind::modifierChanged, 55, leftCommand, 0.04};

struct MacKeyEventsTest : testing::Test {
    platform::KeyTap listening(Listener& listener) {
        auto tap = keyEvents.listen(listener);
        EXPECT_TRUE(tap.ok());
        return std::move(tap).value();
    }

    FakeQuartz quartz;
    ManualScheduler scheduler;
    MacKeyEvents keyEvents{quartz, scheduler};
    Listener first;
    Listener second;
};

TEST_F(MacKeyEventsTest, ListenersShareOneTapThatGoesWithTheLast) {
    platform::KeyTap one = listening(first);
    platform::KeyTap two = listening(second);
    EXPECT_EQ(quartz.taps, 1);
    quartz.tapped(commandDown);
    quartz.tapped({.kind = TappedKey::Kind::otherKeyDown});
    one.reset();
    quartz.tapped(commandDown);
    EXPECT_EQ(first.modifierEvents, 1);
    EXPECT_EQ(first.otherKeys, 1);
    EXPECT_EQ(second.modifierEvents, 2);
    EXPECT_EQ(quartz.taps, 1);
    two.reset();
    EXPECT_EQ(quartz.taps, 0);
    EXPECT_FALSE(scheduler.ticking()) << "an idle backend must not wake";
}

TEST_F(MacKeyEventsTest, ModifiersCarryTheirTimeAndNoDeviceBits) {
    const platform::KeyTap tap = listening(first);
    quartz.tapped(commandDown);
    EXPECT_EQ(first.last.keyCode, 55);
    EXPECT_EQ(first.last.flags.bits, EventFlags::command);
    EXPECT_EQ(ManualScheduler::start - first.last.time, 40ms);
    quartz.down = leftCommand | EventFlags::function;
    EXPECT_EQ(keyEvents.modifiersDown().bits, EventFlags::command | EventFlags::function);
}

TEST_F(MacKeyEventsTest, AListenerMayStopListeningFromInsideAnEvent) {
    platform::KeyTap tap = listening(first);
    first.onEvent = [&tap] { tap.reset(); };
    const auto told = quartz.tapped; // the system's own reference
    told(commandDown);
    EXPECT_EQ(quartz.taps, 0);
    EXPECT_EQ(first.modifierEvents, 1);
}

TEST_F(MacKeyEventsTest, ATapTheSystemTookAwayIsRepaired) {
    const platform::KeyTap tap = listening(first);
    EXPECT_EQ(scheduler.period(), 20s);
    quartz.health = TapHealth::disabled;
    scheduler.tick();
    EXPECT_EQ(quartz.health, TapHealth::running);

    quartz.health = TapHealth::invalid;
    quartz.listens = false;
    scheduler.tick();
    EXPECT_EQ(quartz.taps, 0);
    quartz.listens = true;
    scheduler.tick();
    EXPECT_EQ(quartz.taps, 1);
    quartz.tapped(commandDown);
    EXPECT_EQ(first.modifierEvents, 1);
}

TEST_F(MacKeyEventsTest, WithoutPermissionListeningAndPostingAreRefused) {
    quartz.listens = false;
    quartz.posts = false;
    const auto tap = keyEvents.listen(first);
    ASSERT_FALSE(tap.ok());
    EXPECT_EQ(tap.failure().kind, Failure::Kind::refused);
    EXPECT_FALSE(scheduler.ticking());
    const auto posted = keyEvents.post({9, {EventFlags::command}});
    ASSERT_FALSE(posted.ok());
    EXPECT_EQ(posted.failure().kind, Failure::Kind::refused);
    EXPECT_EQ(quartz.lastPosted.first, 0) << "macOS would drop the events without a word";

    quartz.posts = true;
    EXPECT_TRUE(keyEvents.post({9, {EventFlags::command}}).ok());
    EXPECT_EQ(quartz.lastPosted, std::pair(std::uint16_t{9}, EventFlags::command));
    quartz.makesEvents = false;
    EXPECT_EQ(keyEvents.post({9, {}}).failure().kind, Failure::Kind::system);
}

TEST_F(MacKeyEventsTest, AvailabilityNamesThePermissionThatIsMissing) {
    struct Row {
        bool listens;
        bool posts;
        Availability::State state;
        const char* remedyHas;
        const char* remedyHasNot;
    };
    for (const Row& row :
         {Row{true, true, Availability::State::available, "", "Settings"},
          Row{true, false, Availability::State::limited, "Accessibility", "Input"},
          Row{false, true, Availability::State::limited, "Input", "Accessibility"},
          Row{false, false, Availability::State::unavailable, "Input", "limited"}}) {
        quartz.listens = row.listens;
        quartz.posts = row.posts;
        const Availability answer = keyEvents.availability();
        EXPECT_EQ(answer.state, row.state);
        EXPECT_EQ(answer.reason.isEmpty(), answer.remedy.isEmpty());
        EXPECT_TRUE(answer.remedy.contains(QString::fromUtf8(row.remedyHas)));
        EXPECT_FALSE(answer.remedy.contains(QString::fromUtf8(row.remedyHasNot)));
    }
}

} // namespace
} // namespace skipnest::macos
