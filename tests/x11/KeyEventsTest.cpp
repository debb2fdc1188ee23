// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/InputDesk.h"
#include "tests/x11/XServer.h"

namespace skipnest::tests {
namespace {

using platform::EventFlags;
using platform::KeyTap;
using testing::ElementsAre;

// Writes what a tap tells: "59 control", "key".
struct Journal : platform::KeyEventListener {
    void modifiersChanged(const platform::ModifierEvent& event) override {
        std::string line = std::to_string(event.keyCode);
        for (const auto& [flag, name] :
             {std::pair{EventFlags::capsLock, " caps"}, std::pair{EventFlags::shift, " shift"},
              std::pair{EventFlags::control, " control"},
              std::pair{EventFlags::alternate, " option"},
              std::pair{EventFlags::command, " command"}}) {
            if (event.flags.contains(flag))
                line += name;
        }
        add(line, event.time);
    }
    void otherKeyPressed(platform::Instant time) override { add("key", time); }
    void add(const std::string& line, platform::Instant time) {
        lines.push_back(line);
        times.push_back(time);
    }
    std::vector<std::string> lines;
    std::vector<platform::Instant> times;
};

class KeyEventsTest : public InputDesk {
protected:
    void SetUp() override {
        InputDesk::SetUp();
        events = std::make_unique<linuxdesktop::X11KeyEvents>(*display, *keymap, scheduler);
        ASSERT_EQ(events->availability(), platform::Availability{});
    }
    [[nodiscard]] KeyTap tap() {
        auto result = events->listen(journal);
        EXPECT_TRUE(result.ok());
        return std::move(result).value();
    }
    [[nodiscard]] bool lines(std::size_t count) {
        return waitFor([this, count] { return journal.lines.size() >= count; });
    }
    std::unique_ptr<linuxdesktop::X11KeyEvents> events;
    Journal journal;
};

TEST_F(KeyEventsTest, TapTellsModifiersWithWhatIsHeldAfterwardsAndOnlyThatAKeyWasPressed) {
    const KeyTap listening = tap();
    fingers.press(key::control);
    fingers.press(key::super);
    fingers.tap(key::a);
    fingers.release(key::control);
    fingers.release(key::super);
    fingers.tap(key::caps);
    ASSERT_TRUE(lines(7)); // whether Caps Lock is on is asked when its event is looked at
    fingers.tap(key::caps);
    ASSERT_TRUE(lines(9));
    EXPECT_THAT(journal.lines, ElementsAre("59 control", "55 control command", "key", "59 command",
                                           "55", "57 caps", "57 caps", "57", "57"));
    EXPECT_TRUE(std::ranges::is_sorted(journal.times));
}

TEST_F(KeyEventsTest, StrayReleasesAndKeysHeldFromBeforeDoNotConfuseTheFlags) {
    fingers.press(key::shift);
    const KeyTap listening = tap();
    fingers.press(key::control);
    fingers.release(key::alt);
    fingers.release(key::control);
    fingers.release(key::control);
    fingers.tap(key::a);
    fingers.release(key::shift);
    ASSERT_TRUE(waitFor([this] { return !journal.lines.empty() && journal.lines.back() == "56"; }));
    // Whether the server passes on a release without a press is its affair.
    std::erase_if(journal.lines, [](const std::string& line) {
        return line == "58 shift control" || line == "59 shift";
    });
    EXPECT_THAT(journal.lines, ElementsAre("59 shift control", "key", "56"));
}

TEST_F(KeyEventsTest, TapHearsKeysWhoeverHasTheKeyboardAndNoAutoRepeat) {
    const KeyTap listening = tap();
    ASSERT_EQ(hotkeys->installHandler(this), 0);
    const auto grab = grabbed(1, kVKJ, platform::CarbonModifiers::control);
    ASSERT_TRUE(runTool("xset r rate 20 200"));
    int seen = 0;
    const auto counting = display->observeEvents([&seen](const xcb_generic_event_t& event) {
        if (event.response_type == XCB_KEY_PRESS)
            ++seen;
    });
    fingers.press(key::control);
    fingers.press(key::j);
    ASSERT_TRUE(waitFor([&seen] { return seen >= 5; }));
    fingers.release(key::j);
    fingers.release(key::control);
    XKeyboard locker(qgetenv("DISPLAY"));
    ASSERT_TRUE(waitFor([&locker] { return locker.grabKeyboard(); }));
    fingers.tap(key::shift);
    ASSERT_TRUE(lines(5));
    EXPECT_THAT(journal.lines, ElementsAre("59 control", "key", "59", "56 shift", "56"));
}

TEST_F(KeyEventsTest, OneConnectionServesAllTapsAndSilenceFollowsTheLast) {
    Journal other;
    auto first = tap();
    auto second = events->listen(other);
    ASSERT_TRUE(second.ok());
    fingers.press(key::control);
    ASSERT_TRUE(lines(1));
    first.reset();
    fingers.release(key::control);
    ASSERT_TRUE(waitFor([&other] { return other.lines.size() == 2; }));
    EXPECT_EQ(journal.lines.size(), 1U);
}

TEST_F(KeyEventsTest, ModifiersDownAreThoseOfTheKeyboardNow) {
    EXPECT_EQ(events->modifiersDown(), EventFlags{});
    fingers.press(key::super);
    fingers.press(key::alt);
    EXPECT_EQ(events->modifiersDown().bits, EventFlags::command | EventFlags::alternate);
    fingers.release(key::super);
    EXPECT_EQ(events->modifiersDown().bits, EventFlags::alternate);
}

TEST_F(KeyEventsTest, PostTypesExactlyItsModifiersAndGivesHeldOnesBack) {
    XKeyboard editor(qgetenv("DISPLAY"));
    editor.openFocusedWindow();
    ASSERT_TRUE(events->post({kVKW, {EventFlags::command}}).ok());
    ASSERT_TRUE(waitFor([&] { return editor.typed().size() >= 2; }));
    EXPECT_THAT(editor.typed(), ElementsAre("133", "super+25"));
    EXPECT_FALSE(fingers.isDown(key::super));

    // From a hotkey whose keys are still down: its grab would swallow the stroke.
    const auto grab =
        grabbed(1, kVKJ, platform::CarbonModifiers::control | platform::CarbonModifiers::option);
    fingers.press(key::control);
    fingers.press(key::alt);
    fingers.press(key::j);
    ASSERT_TRUE(pressesBecome({1}));
    ASSERT_TRUE(events->post({kVKLeft, {EventFlags::control}}).ok());
    ASSERT_TRUE(waitFor([&] {
        const auto typed = editor.typed();
        return std::ranges::find(typed, "control+113") != typed.end();
    }));
    EXPECT_TRUE(waitFor([&] { return fingers.isDown(key::alt); }));
    EXPECT_TRUE(fingers.isDown(key::control));
    EXPECT_FALSE(fingers.isDown(key::left));

    constexpr std::uint16_t noSuchKey = 127;
    EXPECT_EQ(events->post({noSuchKey, {}}).failure().kind, platform::Failure::Kind::notFound);
}

TEST_F(KeyEventsTest, AServerThatGoesAwaySilencesTheTapAndNothingElse) {
    auto elsewhere = XServer::start();
    ASSERT_TRUE(elsewhere);
    linuxdesktop::X11KeyEvents far(*display, *keymap, scheduler, elsewhere->display());
    auto listening = far.listen(journal);
    ASSERT_TRUE(listening.ok());
    elsewhere->stop();
    ASSERT_TRUE(waitFor(
        [&far] { return far.availability().state == platform::Availability::State::unavailable; }));
    EXPECT_FALSE(far.listen(journal).ok());
    const KeyTap here = tap();
    fingers.tap(key::control);
    EXPECT_TRUE(lines(2));
}

} // namespace
} // namespace skipnest::tests
