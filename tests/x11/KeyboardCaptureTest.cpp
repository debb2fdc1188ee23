// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/X11KeyboardCapture.h"

#include "platform/QtExecutor.h"
#include "platform/linux/keys/LinuxDesktopShortcuts.h"
#include "tests/x11/InputDesk.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QWindow>

#include <chrono>
#include <optional>

namespace skipnest::tests {
namespace {

using namespace std::chrono_literals;
using platform::CapturedKey;
using platform::CarbonModifiers;
using platform::EventFlags;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class KeyboardCaptureTest : public InputDesk, public platform::KeyboardCaptureEvents {
protected:
    void SetUp() override {
        InputDesk::SetUp();
        capture = std::make_unique<linuxdesktop::X11KeyboardCapture>(*display, *keymap, scheduler);
    }
    void TearDown() override {
        grab.reset();
        EXPECT_TRUE(runTool("xset r rate 660 25"));
        InputDesk::TearDown();
    }
    [[nodiscard]] bool start() {
        auto result = capture->capture(*this);
        if (!result)
            return false;
        grab = std::move(result).value();
        return true;
    }
    void keyCaptured(const CapturedKey& key) override {
        std::string text = key.kind == CapturedKey::Kind::down ? "down "
                           : key.kind == CapturedKey::Kind::up ? "up "
                                                               : "now ";
        for (const auto& [flag, letter] :
             {std::pair{EventFlags::control, 'C'}, std::pair{EventFlags::alternate, 'A'},
              std::pair{EventFlags::shift, 'S'}, std::pair{EventFlags::command, 'W'},
              std::pair{EventFlags::capsLock, 'L'}}) {
            if (key.flags.contains(flag))
                text += letter;
        }
        if (key.kind != CapturedKey::Kind::modifiersChanged)
            text += std::to_string(key.keyCode);
        if (key.isRepeat) {
            ++repeats;
            return;
        }
        seen.push_back(text);
        if (key.kind == CapturedKey::Kind::down)
            onDown();
    }
    void captureLost() override { seen.emplace_back("lost"); }
    // What arrived, once its last event has.
    [[nodiscard]] const std::vector<std::string>& seenUntil(const std::string& last) {
        EXPECT_TRUE(waitFor([&] { return !seen.empty() && seen.back() == last; })) << last;
        return seen;
    }

    std::unique_ptr<linuxdesktop::X11KeyboardCapture> capture;
    platform::KeyboardGrab grab;
    std::vector<std::string> seen;
    int repeats = 0;
    std::function<void()> onDown = [] {};
};

TEST_F(KeyboardCaptureTest, EveryKeyIsOursAloneUntilTheGrabIsDropped) {
    XKeyboard other(qgetenv("DISPLAY"));
    other.openFocusedWindow();
    ASSERT_TRUE(other.grabUnderAllLocks(key::j, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1));
    ASSERT_TRUE(start());
    fingers.chord({key::control, key::alt}, key::j);
    fingers.tap(key::a);
    EXPECT_THAT(seenUntil("up 0"), ElementsAre("now C", "now CA", "down CA38", "up CA38", "now C",
                                               "now ", "down 0", "up 0"));
    EXPECT_THAT(other.typed(), IsEmpty());
    EXPECT_FALSE(other.grabKeyboard());

    grab.reset();
    ASSERT_TRUE(waitFor([&other] { return other.grabKeyboard(); }));
    other.ungrabKeyboard();
    seen.clear();
    fingers.tap(key::b);
    EXPECT_TRUE(waitFor([&other] { return !other.typed().empty(); }));
    EXPECT_THAT(other.typed(), ElementsAre("56"));
    EXPECT_THAT(seen, IsEmpty());
}

TEST_F(KeyboardCaptureTest, TellsThePhysicalKeyWhateverTheLayoutAndTheLocks) {
    int changes = 0;
    const auto observing = keymap->observeChanges([&changes] { ++changes; });
    ASSERT_TRUE(runTool("setxkbmap de"));
    ASSERT_TRUE(waitFor([&changes] { return changes > 0; }));
    fingers.tap(key::num);
    fingers.tap(key::caps);
    ASSERT_TRUE(start());
    constexpr xcb_keycode_t altGr = 108;
    fingers.chord({key::super}, key::z);
    // It chooses a character and is no Option.
    fingers.chord({key::shift, altGr}, key::y);
    fingers.tap(key::caps);
    fingers.tap(key::num);
    EXPECT_THAT(seenUntil("up 71"), ElementsAre("now WL", "down WL6", "up WL6", "now L", "now SL",
                                                "now SL", "down SL16", "up SL16", "now SL", "now L",
                                                "now L", "now L", "down 71", "up 71"));
}

TEST_F(KeyboardCaptureTest, RepeatsAreMarkedAndAKeyHeldFromBeforeIsNoPress) {
    ASSERT_TRUE(runTool("xset r rate 20 200"));
    fingers.press(key::k);
    ASSERT_TRUE(start());
    ASSERT_TRUE(waitFor([this] { return repeats >= 3; })) << "the server does not repeat";
    EXPECT_THAT(seen, IsEmpty());
    fingers.release(key::k);
    repeats = 0;
    fingers.press(key::j);
    ASSERT_TRUE(waitFor([this] { return repeats >= 3; }));
    fingers.release(key::j);
    EXPECT_THAT(seenUntil("up 38"), ElementsAre("up 40", "down 38", "up 38"));
}

// The recorder's end: the combo that was pressed is registered while its keys are still down.
TEST_F(KeyboardCaptureTest, AHotkeyRegisteredInAnswerDoesNotFireForThatPress) {
    ASSERT_TRUE(runTool("xset r rate 20 200"));
    // The window in front is ours, as the popover is.
    QWindow popover;
    popover.show();
    ASSERT_TRUE(waitFor([&popover] { return popover.isExposed(); }));
    xcb_set_input_focus(display->connection(), XCB_INPUT_FOCUS_PARENT,
                        static_cast<xcb_window_t>(popover.winId()), XCB_CURRENT_TIME);
    ASSERT_TRUE(waitFor([&popover] { return popover.isActive(); }));
    int repeated = 0;
    const auto counting = display->observeEvents([&repeated](const xcb_generic_event_t& event) {
        repeated += event.response_type == XCB_KEY_PRESS ? 1 : 0;
    });
    platform::HotkeyGrab hotkey;
    onDown = [&] {
        grab.reset();
        hotkey = grabbed(1, kVKJ, CarbonModifiers::control);
    };
    ASSERT_TRUE(start());
    fingers.press(key::control);
    fingers.press(key::j);
    ASSERT_TRUE(waitFor([&repeated] { return repeated >= 6; })) << "the server does not repeat";
    EXPECT_THAT(presses, IsEmpty());
    fingers.release(key::j);
    ASSERT_TRUE(runTool("xset r rate 660 25"));
    fingers.tap(key::j);
    fingers.release(key::control);
    EXPECT_TRUE(pressesBecome({1}));
}

TEST_F(KeyboardCaptureTest, IsRefusedWhileAnotherProgramHasTheKeyboard) {
    XKeyboard other(qgetenv("DISPLAY"));
    ASSERT_TRUE(other.grabKeyboard());
    const auto refused = capture->capture(*this);
    ASSERT_FALSE(refused.ok());
    EXPECT_EQ(refused.failure().kind, platform::Failure::Kind::refused);
    other.ungrabKeyboard();
    EXPECT_TRUE(start());
    EXPECT_FALSE(capture->capture(*this).ok()) << "one at a time";
}

TEST_F(KeyboardCaptureTest, ALostKeyboardIsToldAndAnOldHandleEndsNoOtherGrab) {
    ASSERT_TRUE(start());
    QWindow panel;
    panel.show();
    ASSERT_TRUE(waitFor([&panel] { return panel.isExposed(); }));
    ASSERT_TRUE(panel.setKeyboardGrabEnabled(true));
    EXPECT_THAT(seenUntil("lost"), ElementsAre("lost"));
    grab.reset();
    XKeyboard other(qgetenv("DISPLAY"));
    EXPECT_FALSE(other.grabKeyboard()) << "the panel's grab is gone";
    panel.setKeyboardGrabEnabled(false);

    seen.clear();
    ASSERT_TRUE(start());
    xcb_ungrab_keyboard(display->connection(), XCB_CURRENT_TIME);
    xcb_flush(display->connection());
    EXPECT_THAT(seenUntil("lost"), ElementsAre("lost"));
    ASSERT_TRUE(start()) << "and can be had again";
}

// A grab looks to Qt like the focus leaving: a popover that closes when it is left would close.
TEST_F(KeyboardCaptureTest, AWindowOfOursStaysTheActiveOne) {
    struct Popover : QWindow {
        void focusOutEvent(QFocusEvent*) override { ++left; }
        int left = 0;
    } popover;
    popover.show();
    ASSERT_TRUE(waitFor([&popover] { return popover.isExposed(); }));
    const auto focus = [this](xcb_window_t window) {
        xcb_set_input_focus(display->connection(), XCB_INPUT_FOCUS_PARENT, window,
                            XCB_CURRENT_TIME);
        xcb_flush(display->connection());
    };
    const auto window = static_cast<xcb_window_t>(popover.winId());
    focus(window);
    ASSERT_TRUE(waitFor([&popover] { return popover.isActive(); }));
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(start());
        fingers.tap(key::a);
        (void)seenUntil("up 0");
        grab.reset();
        seen.clear();
        // Comes after all that the grab and its end caused.
        fingers.tap(key::b);
        hotkeys->waitUntilReleased();
        QCoreApplication::processEvents();
        EXPECT_TRUE(popover.isActive());
    }
    EXPECT_EQ(popover.left, 0);
    // Other programs' grabs and real changes are told as ever.
    XKeyboard other(qgetenv("DISPLAY"));
    ASSERT_TRUE(other.grabKeyboard());
    ASSERT_TRUE(waitFor([&popover] { return popover.left == 1; }));
    other.ungrabKeyboard();
    EXPECT_TRUE(waitFor([&popover] { return popover.isActive(); }));
    ASSERT_TRUE(start());
    focus(display->root());
    grab.reset();
    EXPECT_TRUE(waitFor([&popover] { return popover.left == 2 && !popover.isActive(); }));
}

TEST_F(KeyboardCaptureTest, TheWindowManagersCombosAreCapturedAndNamed) {
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("keys.xml")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const QString mark = folder.filePath(QStringLiteral("mark"));
    file.write(
        "<openbox_config><keyboard><keybind key='W-e'><action name='Execute'><command>touch " +
        mark.toUtf8() +
        "</command></action></keybind><keybind key='A-Tab'><action name='NextWindow'/>"
        "</keybind></keyboard></openbox_config>");
    file.close();
    QProcess openbox;
    openbox.start(QStringLiteral("openbox"), {QStringLiteral("--config-file"), file.fileName()});
    ASSERT_TRUE(openbox.waitForStarted()) << "openbox is not installed";
    constexpr xcb_keycode_t tab = 23, e = 26;
    // It says that it runs before it has its keys; pressing one is the only way to see.
    platform::Instant pressed{};
    ASSERT_TRUE(waitFor([&] {
        if (scheduler.now() - pressed > 100ms) {
            pressed = scheduler.now();
            fingers.chord({key::super}, e);
        }
        return QFile::exists(mark);
    }));

    ASSERT_TRUE(start());
    fingers.chord({key::super}, e);
    fingers.chord({key::alt}, tab);
    EXPECT_THAT(seenUntil("now "), ElementsAre("now W", "down W14", "up W14", "now ", "now A",
                                               "down A48", "up A48", "now "));
    // What the recorder asks while it has the keyboard: openbox's own are still refused.
    const auto trial = hotkeys->registerHotkeys({{{0}, 14, CarbonModifiers::command}});
    EXPECT_EQ(trial.front().status, XCB_ACCESS);
    grab.reset();

    platform::QtExecutor executor(scheduler);
    linuxdesktop::LinuxDesktopShortcuts shortcuts(executor, display.get(), keymap.get());
    EXPECT_EQ(shortcuts.availability().state, platform::Availability::State::available);
    std::optional<platform::DesktopShortcutReading> reading;
    shortcuts.read([&reading](auto found) { reading = std::move(found); });
    EXPECT_FALSE(reading) << "answered from inside the call";
    ASSERT_TRUE(waitFor([&reading] { return reading.has_value(); }));
    EXPECT_THAT(reading->sources, ElementsAre(file.fileName()));
    using platform::DesktopShortcut;
    const QString name = QStringLiteral("openbox");
    EXPECT_THAT(reading->shortcuts,
                Contains(DesktopShortcut{14, CarbonModifiers::command, name,
                                         QStringLiteral("Execute: touch ") + mark}));
    EXPECT_THAT(reading->shortcuts, Contains(DesktopShortcut{48, CarbonModifiers::option, name,
                                                             QStringLiteral("NextWindow")}));
    constexpr std::uint16_t f1 = 122, f12 = 111;
    for (const auto& [keyCode, terminal] : {std::pair{f1, QStringLiteral("terminal 1")},
                                            std::pair{f12, QStringLiteral("terminal 12")}})
        EXPECT_THAT(
            reading->shortcuts,
            Contains(DesktopShortcut{keyCode, CarbonModifiers::control | CarbonModifiers::option,
                                     QStringLiteral("the virtual terminals"), terminal,
                                     DesktopShortcut::Effect::neverFires}));
    openbox.terminate();
    EXPECT_TRUE(openbox.waitForFinished());
    EXPECT_EQ(shortcuts.availability().state, platform::Availability::State::limited);
}

} // namespace
} // namespace skipnest::tests
