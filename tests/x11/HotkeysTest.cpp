// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/InputDesk.h"

#include <QDir>
#include <QKeyEvent>
#include <QWindow>

namespace skipnest::tests {
namespace {

using platform::CarbonModifiers;
using testing::ElementsAre;

using HotkeysTest = InputDesk;

constexpr std::uint32_t controlOption = CarbonModifiers::control | CarbonModifiers::option;

// A hotkey that is pressed after the events in question: what they cause has come by then.
constexpr std::uint32_t fence = 99;

TEST_F(HotkeysTest, FireUnderEveryModifierAndLockState) {
    const auto modifiers = controlOption | CarbonModifiers::shift | CarbonModifiers::command;
    const auto grab = grabbed(1, kVKJ, modifiers);
    std::vector<std::uint32_t> expected;
    for (const auto& locks : std::vector<std::vector<xcb_keycode_t>>{
             {}, {key::caps}, {key::num}, {key::caps, key::num}}) {
        for (const xcb_keycode_t lock : locks)
            fingers.tap(lock);
        fingers.chord({key::control, key::alt, key::shift, key::super}, key::j);
        expected.push_back(1);
        EXPECT_TRUE(pressesBecome(expected)) << locks.size() << " locks";
        for (const xcb_keycode_t lock : locks)
            fingers.tap(lock);
    }
}

// Requests carry the server's time: one ahead of it would be thrown away, and one that is as old as
// the last key press would look like a program that steals the focus.
TEST_F(HotkeysTest, RequestsCarryTheServersTimeNow) {
    const auto serverNow = [this] {
        xcb_timestamp_t told = XCB_CURRENT_TIME;
        const auto listening = display->observeEvents([&told](const xcb_generic_event_t& event) {
            if (event.response_type == XCB_PROPERTY_NOTIFY)
                told = reinterpret_cast<const xcb_property_notify_event_t&>(event).time;
        });
        xcb_change_property(display->connection(), XCB_PROP_MODE_APPEND, display->root(),
                            XCB_ATOM_CUT_BUFFER0, XCB_ATOM_STRING, 8, 0, nullptr);
        xcb_flush(display->connection());
        EXPECT_TRUE(waitFor([&told] { return told != XCB_CURRENT_TIME; }));
        return told;
    };
    display->addEventMask(display->root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    ASSERT_TRUE(waitFor([this] { return display->requestTime() != XCB_CURRENT_TIME; }))
        << "no time without a key press";
    const xcb_timestamp_t first = display->requestTime();
    bool passed = false;
    const auto timer =
        scheduler.after(std::chrono::milliseconds(300), "test", [&] { passed = true; });
    ASSERT_TRUE(waitFor([&] { return passed; }));
    const xcb_timestamp_t later = display->requestTime();
    EXPECT_GE(later - first, 299U);
    EXPECT_LE(later, serverNow());
}

TEST_F(HotkeysTest, NeedExactlyTheirModifiers) {
    const auto grab = grabbed(1, kVKJ, CarbonModifiers::control);
    const auto last = grabbed(fence, kVKK, CarbonModifiers::control);
    fingers.chord({key::control, key::shift}, key::j);
    fingers.chord({key::super}, key::j);
    fingers.tap(key::j);
    fingers.chord({key::control}, key::k);
    EXPECT_TRUE(pressesBecome({fence}));
}

TEST_F(HotkeysTest, OneRefusedLeavesTheOthersAndIsFreedWithItsOwner) {
    auto owner = std::make_unique<XKeyboard>(qgetenv("DISPLAY"));
    owner->openFocusedWindow();
    // Num Lock's variant alone is enough to be refused, and then none of the others may stay.
    ASSERT_EQ(owner->grabKey(key::k, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_2), 0);
    constexpr std::uint16_t noSuchKey = 127;
    const std::vector<platform::HotkeyRequest> requests{{{1}, kVKJ, CarbonModifiers::control},
                                                        {{2}, kVKK, CarbonModifiers::control},
                                                        {{3}, noSuchKey, CarbonModifiers::control},
                                                        {{4}, kVKZ, CarbonModifiers::control}};
    const auto registrations = hotkeys->registerHotkeys(requests);
    std::vector<std::int32_t> statuses;
    for (const auto& registration : registrations) {
        statuses.push_back(registration.status);
        EXPECT_EQ(static_cast<bool>(registration.grab), registration.status == 0);
    }
    EXPECT_THAT(statuses, ElementsAre(0, XCB_ACCESS, XCB_VALUE, 0));
    EXPECT_TRUE(waitFor([this] { return fingers.grabKey(key::k, XCB_MOD_MASK_CONTROL) == 0; }))
        << "a part of the refused is kept";
    fingers.ungrabKeys();
    fingers.chord({key::control}, key::j);
    fingers.chord({key::control}, key::z);
    EXPECT_TRUE(pressesBecome({1, 4}));

    EXPECT_EQ(mayBeFree, 0);
    owner.reset();
    fingers.tap(key::shift);
    ASSERT_TRUE(waitFor([this] { return mayBeFree == 1; }));
    const auto again = grabbed(2, kVKK, CarbonModifiers::control);
    fingers.chord({key::control}, key::k);
    EXPECT_TRUE(pressesBecome({1, 4, 2}));
}

// Hotkey daemons have no window whose end would show. The server tells of them with the next key.
TEST_F(HotkeysTest, ClientsWithoutAWindowAreWatchedWhileOneMayHoldARefusedCombo) {
    const auto openFiles = [] {
        return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoFilter).size();
    };
    auto owner = std::make_unique<XKeyboard>(qgetenv("DISPLAY"));
    auto bystander = std::make_unique<XKeyboard>(qgetenv("DISPLAY"));
    auto lateBystander = std::make_unique<XKeyboard>(qgetenv("DISPLAY"));
    ASSERT_TRUE(owner->grabUnderAllLocks(key::k, XCB_MOD_MASK_CONTROL));
    const auto unwatched = openFiles();
    platform::HotkeyRegistration registration;
    onMayBeFree = [&] {
        registration =
            std::move(hotkeys->registerHotkeys({{{1}, kVKK, CarbonModifiers::control}}).front());
    };
    onMayBeFree();
    ASSERT_EQ(registration.status, XCB_ACCESS);
    EXPECT_EQ(openFiles(), unwatched + 1);

    bystander.reset();
    fingers.tap(key::shift);
    ASSERT_TRUE(waitFor([this] { return mayBeFree == 1; }));
    EXPECT_EQ(registration.status, XCB_ACCESS);
    EXPECT_EQ(openFiles(), unwatched) << "one listener, one bystander less";

    owner.reset();
    fingers.tap(key::shift);
    ASSERT_TRUE(waitFor([this] { return mayBeFree == 2; }));
    EXPECT_EQ(registration.status, 0);
    EXPECT_EQ(openFiles(), unwatched - 2) << "nothing is refused, nothing listens";

    lateBystander.reset();
    fingers.chord({key::control}, key::k);
    EXPECT_TRUE(pressesBecome({1}));
    EXPECT_EQ(mayBeFree, 2);
}

TEST_F(HotkeysTest, DroppingAGrabFreesItForOthersOnceNoRegistrationNeedsIt) {
    auto first = grabbed(1, kVKJ, CarbonModifiers::control);
    auto second = grabbed(2, kVKJ, CarbonModifiers::control);
    XKeyboard other(qgetenv("DISPLAY"));
    for (auto* grab : {&first, &second}) {
        EXPECT_EQ(other.grabKey(key::j, XCB_MOD_MASK_CONTROL), XCB_ACCESS);
        grab->reset();
    }
    EXPECT_TRUE(
        waitFor([&other] { return other.grabUnderAllLocks(key::j, XCB_MOD_MASK_CONTROL); }));
}

TEST_F(HotkeysTest, AutoRepeatIsOnePressAndTheNextPressIsAnother) {
    int seen = 0;
    const auto counting = display->observeEvents([&seen](const xcb_generic_event_t& event) {
        if (event.response_type == XCB_KEY_PRESS)
            ++seen;
    });
    const auto grab = grabbed(1, kVKJ, CarbonModifiers::control);
    ASSERT_TRUE(runTool("xset r rate 20 200"));
    fingers.press(key::control);
    fingers.press(key::j);
    ASSERT_TRUE(waitFor([&seen] { return seen >= 5; })) << "the server does not repeat";
    EXPECT_THAT(presses, ElementsAre(1));
    fingers.release(key::j);
    ASSERT_TRUE(runTool("xset r rate 660 25"));
    fingers.press(key::j);
    fingers.release(key::j);
    fingers.release(key::control);
    EXPECT_TRUE(pressesBecome({1, 1}));
    ASSERT_EQ(pressTimes.size(), 2U);
    EXPECT_GT(pressTimes[1], pressTimes[0]);
}

TEST_F(HotkeysTest, FireWhileAWindowOfOursHasTheKeyboardAndDoNotTypeIntoIt) {
    struct Panel : QWindow {
        void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
        std::vector<int> keys;
    } panel;
    const auto grab = grabbed(1, kVKJ, CarbonModifiers::control);
    panel.setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    panel.show();
    ASSERT_TRUE(waitFor([&panel] { return panel.isExposed(); }));
    ASSERT_TRUE(panel.setKeyboardGrabEnabled(true));
    fingers.tap(key::a);
    fingers.chord({key::control}, key::j);
    fingers.tap(key::b);
    EXPECT_TRUE(waitFor([&panel] { return panel.keys.size() >= 3; }));
    EXPECT_THAT(panel.keys, ElementsAre(Qt::Key_A, Qt::Key_Control, Qt::Key_B));
    EXPECT_THAT(presses, ElementsAre(1));
    panel.setKeyboardGrabEnabled(false);
}

TEST_F(HotkeysTest, StayWithTheirKeyWhenLayoutKeycodesOrModifiersChange) {
    const auto letter = grabbed(1, kVKZ, CarbonModifiers::control);
    const auto arrow = grabbed(2, kVKLeft, CarbonModifiers::command);
    int changes = 0;
    const auto observing = keymap->observeChanges([&changes] { ++changes; });

    ASSERT_TRUE(runTool("setxkbmap de"));
    ASSERT_TRUE(waitFor([&changes] { return changes == 1; }));
    fingers.chord({key::control}, key::z);
    EXPECT_TRUE(pressesBecome({1}));

    // The keycodes of the old rules: Left is 100 and Super is 115.
    ASSERT_TRUE(runTool("setxkbmap -rules base -model pc105 -layout us"));
    ASSERT_TRUE(waitFor([&changes] { return changes == 2; }));
    constexpr xcb_keycode_t oldLeft = 100, oldSuper = 115;
    fingers.chord({oldSuper}, oldLeft);
    EXPECT_TRUE(pressesBecome({1, 2}));
    EXPECT_EQ(fingers.grabKey(key::left, XCB_MOD_MASK_4), 0) << "the old place is kept";
    fingers.ungrabKeys();

    ASSERT_TRUE(runTool("setxkbmap -rules evdev -model pc105 -layout us"));
    ASSERT_TRUE(waitFor([&changes] { return changes == 3; }));
    ASSERT_TRUE(runTool(R"(xmodmap -e "clear mod4" -e "add mod3 = Super_L")"));
    ASSERT_TRUE(waitFor([&changes] { return changes == 4; }));
    fingers.chord({key::super}, key::left);
    EXPECT_TRUE(pressesBecome({1, 2, 2}));
}

TEST_F(HotkeysTest, KeysTypedWhileDeliveryIsHeldReachTheNewGrabAndTheFocus) {
    XKeyboard editor(qgetenv("DISPLAY"));
    editor.openFocusedWindow();
    XKeyboard oldInstance(qgetenv("DISPLAY"));
    ASSERT_TRUE(oldInstance.grabUnderAllLocks(key::j, XCB_MOD_MASK_CONTROL));

    platform::KeyDeliveryHold hold = hotkeys->holdKeyDelivery();
    ASSERT_TRUE(hold);
    fingers.tap(key::a);
    fingers.chord({key::control}, key::j);
    fingers.chord({key::shift}, key::b);
    EXPECT_THAT(editor.typed(), ElementsAre());
    oldInstance.disconnect();
    std::vector<platform::HotkeyRegistration> registrations;
    ASSERT_TRUE(waitFor([&] {
        registrations = hotkeys->registerHotkeys({{{1}, kVKJ, CarbonModifiers::control}});
        return registrations[0].status == 0;
    }));
    EXPECT_THAT(presses, ElementsAre());
    hold.reset();
    EXPECT_TRUE(pressesBecome({1}));
    const auto all = ElementsAre("38", "37", "50", "shift+56");
    EXPECT_TRUE(waitFor([&] { return editor.typed().size() >= 4; }));
    EXPECT_THAT(editor.typed(), all);
}

TEST_F(HotkeysTest, AHoldThatIsForgottenEndsAndOneThatIsRefusedIsEmpty) {
    XKeyboard editor(qgetenv("DISPLAY"));
    editor.openFocusedWindow();
    const platform::KeyDeliveryHold forgotten = hotkeys->holdKeyDelivery();
    ASSERT_TRUE(forgotten);
    fingers.tap(key::a);
    EXPECT_TRUE(waitFor([&] { return editor.typed().size() == 1; }));

    XKeyboard locker(qgetenv("DISPLAY"));
    ASSERT_TRUE(locker.grabKeyboard());
    EXPECT_FALSE(hotkeys->holdKeyDelivery());
}

} // namespace
} // namespace skipnest::tests
