// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/InputDesk.h"

#include <QProcess>

#include <chrono>
#include <csignal>

namespace skipnest::tests {
namespace {

using namespace std::chrono_literals;
using platform::CarbonModifiers;
using platform::EventFlags;
using platform::KeyPress;
using testing::ElementsAre;
using testing::IsEmpty;

// Consumes the letter J under whatever modifiers and passes everything else.
class InterceptTest : public InputDesk, public platform::KeyInterceptor {
protected:
    void SetUp() override {
        InputDesk::SetUp();
        events = std::make_unique<linuxdesktop::X11KeyEvents>(*display, *keymap, scheduler);
        below.openFocusedWindow();
    }
    void TearDown() override {
        tap.reset();
        EXPECT_TRUE(runTool("xset r rate 660 25"));
        InputDesk::TearDown();
    }
    [[nodiscard]] bool start() {
        auto result = events->intercept(*this);
        if (!result)
            return false;
        tap = std::move(result).value();
        return true;
    }
    Verdict keyPressed(const KeyPress& press) override {
        if (press.isRepeat)
            ++repeats;
        else
            seen.push_back(std::to_string(press.keyCode) + press.text.toStdString());
        last = press;
        onKey();
        return press.keyCode == kVKJ ? Verdict::consumed : Verdict::passed;
    }
    void tapWasDisabled(Disabled) override { ++disabled; }
    // One key after the other, as slowly as fingers are beside a program that is not busy.
    [[nodiscard]] bool tapAndSee(const std::vector<xcb_keycode_t>& modifiers,
                                 xcb_keycode_t keycode) {
        const std::size_t before = seen.size();
        fingers.chord(modifiers, keycode);
        return waitFor([&] { return seen.size() > before && !fingers.isDown(keycode); });
    }
    // Longer than the tap waits before it tries to have the keyboard again.
    void passRetries() {
        for (int i = 0; i < 3; ++i)
            takeIn();
    }
    [[nodiscard]] bool typedBelow(const std::vector<std::string>& expected) {
        (void)waitFor([&] { return below.typed().size() >= expected.size(); });
        EXPECT_EQ(below.typed(), expected);
        return below.typed() == expected;
    }

    XKeyboard below{qgetenv("DISPLAY")};
    std::unique_ptr<linuxdesktop::X11KeyEvents> events;
    platform::KeyTap tap;
    std::vector<std::string> seen;
    KeyPress last;
    int repeats = 0;
    int disabled = 0;
    std::function<void()> onKey = [] {};
};

TEST_F(InterceptTest, WhatIsPassedReachesTheApplicationInOrderAndWhatIsConsumedDoesNot) {
    ASSERT_TRUE(start());
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(tapAndSee({}, key::a));
        ASSERT_TRUE(tapAndSee({}, key::j));
        ASSERT_TRUE(tapAndSee({key::control, key::shift}, key::k));
    }
    std::vector<std::string> expected;
    for (int round = 0; round < 20; ++round)
        expected.insert(expected.end(), {"38", "shift+control+45"});
    EXPECT_TRUE(typedBelow(expected));
    ASSERT_EQ(seen.size(), 60U);
    seen.resize(3);
    EXPECT_THAT(seen, ElementsAre("0a", "38j", "40"));
    EXPECT_EQ(last.flags.bits, EventFlags::control | EventFlags::shift);
    EXPECT_FALSE(fingers.isDown(key::a));

    tap.reset();
    fingers.tap(key::j);
    expected.emplace_back("44");
    EXPECT_TRUE(typedBelow(expected));
}

TEST_F(InterceptTest, TextIsThatOfTheLayoutWithShiftAndLevelsButNoControlCharacter) {
    int changes = 0;
    const auto observing = keymap->observeChanges([&changes] { ++changes; });
    ASSERT_TRUE(runTool("setxkbmap de"));
    ASSERT_TRUE(waitFor([&changes] { return changes > 0; }));
    ASSERT_TRUE(start());
    constexpr xcb_keycode_t altGr = 108, enter = 36, deadAcute = 21;
    ASSERT_TRUE(tapAndSee({}, key::z));
    ASSERT_TRUE(tapAndSee({key::shift}, key::y));
    ASSERT_TRUE(tapAndSee({altGr}, key::q));
    for (const xcb_keycode_t silent : {enter, deadAcute})
        ASSERT_TRUE(tapAndSee({}, silent));
    EXPECT_THAT(seen, ElementsAre("6y", "16Z", "12@", "36", "24"));
}

TEST_F(InterceptTest, RepeatsAreMarkedAndRepeatBelow) {
    ASSERT_TRUE(runTool("xset r rate 20 200"));
    ASSERT_TRUE(start());
    fingers.press(key::a);
    ASSERT_TRUE(waitFor([this] { return repeats >= 5; })) << "the server does not repeat";
    fingers.release(key::a);
    ASSERT_TRUE(waitFor([this] { return below.typed().size() >= 6; }));
    EXPECT_THAT(seen, ElementsAre("0a"));
    takeIn();
    repeats = 0;
    fingers.press(key::j);
    ASSERT_TRUE(waitFor([this] { return repeats >= 5; }));
    fingers.release(key::j);
    EXPECT_THAT(below.typed(), testing::Each("38"));
}

TEST_F(InterceptTest, OurHotkeyFiresForAPassedKeyAndNotForAConsumedOne) {
    const auto passed = grabbed(1, kVKK, CarbonModifiers::control);
    const auto consumed = grabbed(2, kVKJ, CarbonModifiers::control);
    fingers.press(key::control);
    fingers.press(key::k);
    ASSERT_TRUE(pressesBecome({1}));
    // From the hotkey itself, whose key is still down.
    ASSERT_TRUE(start());
    fingers.release(key::k);
    fingers.tap(key::j);
    fingers.tap(key::k);
    EXPECT_TRUE(pressesBecome({1, 1}));
    EXPECT_EQ(events->modifiersDown().bits, EventFlags::control);
    fingers.release(key::control);
    EXPECT_TRUE(waitFor([this] { return events->modifiersDown() == EventFlags{}; }));
    EXPECT_THAT(below.typed(), ElementsAre("37")) << "Control, from before";
}

TEST_F(InterceptTest, ADesktopsHotkeyFiresForAPassedKeyAndTheTapIsBackAfterwards) {
    XKeyboard desktop(qgetenv("DISPLAY"));
    ASSERT_TRUE(desktop.grabUnderAllLocks(key::w, XCB_MOD_MASK_4));
    ASSERT_TRUE(start());
    fingers.press(key::super);
    fingers.press(key::w);
    ASSERT_TRUE(waitFor([&] { return !desktop.typed().empty(); }));
    EXPECT_THAT(desktop.typed(), ElementsAre("super+25"));
    fingers.release(key::w);
    fingers.release(key::super);
    ASSERT_TRUE(waitFor([this] { return below.focusChanges().back() == "out"; }));
    EXPECT_TRUE(tapAndSee({}, key::j));
    EXPECT_THAT(seen, ElementsAre("13w", "38j"));
    EXPECT_EQ(disabled, 0);
    EXPECT_THAT(below.typed(), IsEmpty());
}

TEST_F(InterceptTest, ADesktopsWindowListGetsTheKeyboardItAsksForInAnswerToItsHotkey) {
    XKeyboard desktop(qgetenv("DISPLAY"));
    ASSERT_TRUE(desktop.grabUnderAllLocks(key::w, XCB_MOD_MASK_4));
    ASSERT_TRUE(start());
    fingers.press(key::super);
    fingers.press(key::w);
    ASSERT_TRUE(waitFor([&] { return !desktop.typed().empty(); }));
    ASSERT_TRUE(desktop.grabKeyboard());
    fingers.release(key::w);
    // Its own until Super is up, seen by nobody else.
    fingers.tap(key::j);
    fingers.release(key::super);
    passRetries();
    EXPECT_THAT(seen, ElementsAre("13w"));
    EXPECT_EQ(disabled, 0);
    desktop.ungrabKeyboard();
    EXPECT_TRUE(waitFor([this] { return disabled == 1; }));
    EXPECT_THAT(below.typed(), IsEmpty());
}

TEST_F(InterceptTest, ADesktopThatKeepsTheKeyboardIsWaitedFor) {
    XKeyboard desktop(qgetenv("DISPLAY"));
    ASSERT_TRUE(start());
    // As a window list does that lasts as long as its modifier.
    onKey = [&] {
        xcb_ungrab_keyboard(display->connection(), XCB_CURRENT_TIME);
        xcb_flush(display->connection());
        ASSERT_TRUE(desktop.grabKeyboard());
    };
    fingers.press(key::a);
    ASSERT_TRUE(waitFor([this] { return !seen.empty(); }));
    onKey = [] {};
    EXPECT_EQ(disabled, 0);
    fingers.release(key::a);
    desktop.ungrabKeyboard();
    ASSERT_TRUE(waitFor([this] { return disabled == 1; }));
    ASSERT_TRUE(tapAndSee({}, key::j));
    EXPECT_TRUE(tapAndSee({}, key::a));
    EXPECT_FALSE(last.isRepeat) << "its release was the desktop's";
}

TEST_F(InterceptTest, ATapThatIsDroppedWhileADesktopHasTheKeyboardDoesNotTakeItBack) {
    XKeyboard desktop(qgetenv("DISPLAY"));
    ASSERT_TRUE(desktop.grabUnderAllLocks(key::w, XCB_MOD_MASK_4));
    ASSERT_TRUE(start());
    fingers.chord({key::super}, key::w);
    ASSERT_TRUE(waitFor([&] { return !desktop.typed().empty(); }));
    ASSERT_TRUE(desktop.grabKeyboard());
    passRetries();
    tap.reset();
    desktop.ungrabKeyboard();
    passRetries();
    EXPECT_EQ(disabled, 0);
    EXPECT_TRUE(fingers.grabKeyboard());
    fingers.ungrabKeyboard();
}

TEST_F(InterceptTest, ABurstOfConsumedKeysIsSeenWholeAndOneOfPassedKeysArrivesInOrder) {
    ASSERT_TRUE(start());
    constexpr int many = 300;
    for (int i = 0; i < many; ++i)
        fingers.tap(key::j);
    // At this pace one may look like the repeat of the one before.
    ASSERT_TRUE(waitFor([this] { return seen.size() + std::size_t(repeats) == many; }));
    EXPECT_THAT(below.typed(), IsEmpty());
    std::vector<std::string> expected;
    for (int i = 0; i < many / 2; ++i) {
        for (const xcb_keycode_t passed : {key::a, key::b}) {
            fingers.tap(passed);
            expected.push_back(std::to_string(passed));
        }
    }
    EXPECT_TRUE(typedBelow(expected));
}

TEST_F(InterceptTest, ModifiersThatWereDownBeforeAreUpForTheApplicationAfterwards) {
    for (const xcb_keycode_t modifier : {key::control, key::alt, key::super, key::shift})
        fingers.press(modifier);
    const std::size_t before = below.typed().size();
    ASSERT_EQ(before, 4U);
    ASSERT_TRUE(start());
    fingers.tap(key::j);
    for (const xcb_keycode_t modifier : {key::shift, key::super, key::alt, key::control})
        fingers.release(modifier);
    ASSERT_TRUE(waitFor([this] { return events->modifiersDown() == EventFlags{}; }));
    tap.reset();
    fingers.tap(key::a);
    ASSERT_TRUE(waitFor([&] { return below.typed().size() > before; }));
    EXPECT_EQ(below.typed().back(), "38");
    EXPECT_EQ(below.typed().size(), before + 1);
    // It has heard that the keyboard was away, which is what lets it forget the keys it saw go
    // down, and that it is back.
    EXPECT_THAT(below.focusChanges(), ElementsAre("out", "in"));
}

TEST_F(InterceptTest, APassedKeyGoesUpBelowOnceTooAlsoWhenTheTapEndsInBetween) {
    ASSERT_TRUE(start());
    fingers.press(key::a);
    ASSERT_TRUE(waitFor([this] { return seen.size() == 1; }));
    fingers.release(key::a);
    EXPECT_TRUE(waitFor([this] { return below.releases() == std::vector<std::string>{"38"}; }));
    fingers.press(key::b);
    ASSERT_TRUE(waitFor([this] { return seen.size() == 2; }));
    tap.reset();
    fingers.release(key::b);
    EXPECT_TRUE(waitFor([this] {
        return below.releases() == std::vector<std::string>{"38", "56"};
    }));
    ASSERT_TRUE(start());
    fingers.tap(key::j);
    takeIn();
    EXPECT_EQ(below.releases().size(), 2U) << "the release of a consumed key";
}

TEST_F(InterceptTest, TheKeyThatBeganItAllRepeatsAsARepeat) {
    ASSERT_TRUE(runTool("xset r rate 20 200"));
    const auto hotkey = grabbed(1, kVKK, CarbonModifiers::control);
    fingers.press(key::control);
    fingers.press(key::k);
    ASSERT_TRUE(pressesBecome({1}));
    ASSERT_TRUE(start());
    ASSERT_TRUE(waitFor([this] { return repeats >= 5; }));
    EXPECT_TRUE(pressesBecome({1}));
    EXPECT_THAT(seen, IsEmpty());
    fingers.release(key::k);
    fingers.tap(key::k);
    EXPECT_TRUE(pressesBecome({1, 1}));
}
TEST_F(InterceptTest, IsRefusedWhileAnotherProgramHasTheKeyboardAndIsOneAtATime) {
    XKeyboard other(qgetenv("DISPLAY"));
    ASSERT_TRUE(other.grabKeyboard());
    const auto refused = events->intercept(*this);
    ASSERT_FALSE(refused.ok());
    EXPECT_EQ(refused.failure().kind, platform::Failure::Kind::refused);
    other.ungrabKeyboard();
    EXPECT_TRUE(start());
    EXPECT_FALSE(events->intercept(*this).ok());
}

TEST_F(InterceptTest, ATapThatIsDroppedWhileItIsToldLosesNoPassedKey) {
    onKey = [this] { tap.reset(); };
    ASSERT_TRUE(start());
    fingers.tap(key::a);
    EXPECT_TRUE(typedBelow({"38"}));
    ASSERT_TRUE(start());
    fingers.tap(key::j);
    ASSERT_TRUE(waitFor([this] { return seen.size() == 2; }));
    fingers.tap(key::b);
    EXPECT_TRUE(typedBelow({"38", "56"}));
}

TEST_F(InterceptTest, TheKeyboardIsFreeHoweverItEnds) {
    ASSERT_TRUE(start());
    ASSERT_FALSE(fingers.grabKeyboard());
    events.reset();
    ASSERT_TRUE(waitFor([this] { return fingers.grabKeyboard(); }))
        << "the backend ends before the tap";
    fingers.ungrabKeyboard();
    tap.reset();

    QProcess holder;
    holder.start(QStringLiteral(INTERCEPT_HOLDER), QStringList());
    ASSERT_TRUE(holder.waitForReadyRead());
    ASSERT_EQ(holder.readLine(), "intercepting\n");
    ASSERT_FALSE(fingers.grabKeyboard());
    // It hangs: the first key is told to it, the second one waits in the server.
    ASSERT_EQ(::kill(static_cast<pid_t>(holder.processId()), SIGSTOP), 0);
    fingers.tap(key::a);
    fingers.tap(key::b);
    EXPECT_THAT(below.typed(), IsEmpty());
    holder.kill();
    ASSERT_TRUE(holder.waitForFinished());
    ASSERT_TRUE(waitFor([this] { return fingers.grabKeyboard(); }));
    fingers.ungrabKeyboard();
    fingers.tap(key::q);
    EXPECT_TRUE(typedBelow({"56", "24"}));
    EXPECT_FALSE(fingers.isDown(key::b));
}

} // namespace
} // namespace skipnest::tests
