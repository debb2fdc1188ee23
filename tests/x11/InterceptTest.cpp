// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/InputDesk.h"

#include <QProcess>

#include <chrono>

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
    EXPECT_TRUE(tapAndSee({}, key::j));
    EXPECT_THAT(seen, ElementsAre("13w", "38j"));
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
    fingers.tap(key::a);
    ASSERT_TRUE(waitFor([this] { return !seen.empty(); }));
    onKey = [] {};
    EXPECT_EQ(disabled, 0);
    desktop.ungrabKeyboard();
    ASSERT_TRUE(waitFor([this] { return disabled == 1; }));
    fingers.tap(key::j);
    EXPECT_TRUE(waitFor([this] { return seen.size() == 2; }));
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

TEST_F(InterceptTest, AProgramThatIsKilledLeavesTheKeyboardToTheDesktop) {
    QProcess holder;
    holder.start(QStringLiteral(INTERCEPT_HOLDER), QStringList());
    ASSERT_TRUE(holder.waitForReadyRead());
    ASSERT_EQ(holder.readLine(), "intercepting\n");
    ASSERT_FALSE(fingers.grabKeyboard());
    holder.kill();
    ASSERT_TRUE(holder.waitForFinished());
    ASSERT_TRUE(waitFor([this] { return fingers.grabKeyboard(); }));
    fingers.ungrabKeyboard();
    fingers.tap(key::a);
    EXPECT_TRUE(typedBelow({"38"}));
}

} // namespace
} // namespace skipnest::tests
