// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/KeyRecorderViewModel.h"

#include "hotkeys/HotkeyManager.h"
#include "model/StorageService.h"
#include "platform/sim/SimDesktop.h"
#include "tests/hotkeys/Combos.h"

#include <gmock/gmock.h>

#include <memory>

namespace skipnest::hotkeys {
namespace {

using model::ShortcutListViewModel;
using platform::DesktopShortcut;
using platform::EventFlags;
using test::combo;
using test::pressed;
using testing::IsEmpty;
using Conflict = KeyRecorderViewModel::Conflict;
using Warning = KeyRecorderViewModel::Warning;

DesktopShortcut claim(const char* text, const char* owner, const char* action,
                      DesktopShortcut::Effect effect = DesktopShortcut::Effect::takesKey) {
    const sim::HotkeyCombo key = pressed(text);
    return {key.keyCode, key.carbonModifiers, QString::fromUtf8(owner), QString::fromUtf8(action),
            effect};
}

class KeyRecorderTest : public testing::Test {
protected:
    KeyRecorderTest() {
        storage = std::make_unique<model::StorageService>(
            desk.ports().files, desk.ports().diagnostics, desk.ports().wallClock,
            desk.ports().defaults, desk.ports().app);
        list = std::make_unique<ShortcutListViewModel>(
            *storage, desk.ports().workspace, desk.ports().bookmarks, desk.ports().files,
            desk.ports().wallClock, desk.ports().defaults, desk.ports().app,
            [this](const model::AppConfiguration& configuration) {
                EXPECT_FALSE(desk.keyboardCapture().isCaptured());
                manager.registerAll(configuration.shortcuts, configuration, actions());
            },
            [](const model::AppConfiguration&) {});
        list->changeSettings(
            [](model::AppConfiguration& settings) { settings.windowCycling = true; });
        notes = list->addShortcut(QStringLiteral("/Applications/Notes.app"), combo("ctrl+opt+n"),
                                  combo("ctrl+opt+h"));
        list->addShortcut(QStringLiteral("/Applications/Mail.app"), combo("ctrl+opt+m"), {});
        // A system combo that a document holds all the same is refused as the system's.
        list->addShortcut(QStringLiteral("/Applications/Old.app"), combo("ctrl+space"), {});
        open();
    }
    static HotkeyActions actions() {
        return {[](const auto&) {}, [](const auto&) {}, [] {}, [] {}, [] {}};
    }
    void open() {
        recorder = std::make_unique<KeyRecorderViewModel>(desk.ports(), manager, *list);
        QObject::connect(recorder.get(), &KeyRecorderViewModel::recorded, [this] { ++recorded; });
    }
    void press(const char* text) {
        const sim::HotkeyCombo key = pressed(text);
        desk.keyboardCapture().press(key.keyCode, sim::eventFlags(key.carbonModifiers));
    }
    void setReading(const std::vector<DesktopShortcut>& shortcuts) {
        desk.desktopShortcuts().set({shortcuts, false, {}, {}});
    }
    [[nodiscard]] std::size_t hotkeys() { return desk.hotkeys().registered().size(); }

    sim::SimDesktop desk;
    HotkeyManager manager{desk.ports().hotkeys, desk.ports().keyboardLayout,
                          desk.ports().diagnostics, desk.ports().scheduler};
    std::unique_ptr<model::StorageService> storage;
    std::unique_ptr<ShortcutListViewModel> list;
    std::unique_ptr<KeyRecorderViewModel> recorder;
    model::ShortcutItem notes;
    int recorded = 0;
};

struct RefusedRow {
    const char* pressed;
    Conflict::Kind kind;
    const char* name;
    const char* message;
};

TEST_F(KeyRecorderTest, RefusesAndGoesOnRecording) {
    using Kind = Conflict::Kind;
    setReading({claim("ctrl+opt+t", "GNOME", "Launch terminal")});
    desk.hotkeys().refuse(pressed("ctrl+opt+t"), 10);
    desk.hotkeys().refuse(pressed("ctrl+opt+u"), 10);
    // A shortcut is named before the desktop, which the person cannot change here.
    desk.hotkeys().refuse(pressed("ctrl+opt+m"), 10);
    constexpr auto rows = std::to_array<RefusedRow>({
        {"j", Kind::noModifier, "",
         "Please include at least one modifier key (Cmd, Opt, Ctrl, Shift)"},
        {"cmd+q", Kind::systemShortcut, "", "Cmd + Q is a system shortcut and cannot be used."},
        {"ctrl+space", Kind::systemShortcut, "",
         "Ctrl + Space is a system shortcut and cannot be used."},
        {"ctrl+opt+n", Kind::otherShortcut, "Notes",
         "Ctrl + Opt + N is already assigned to \"Notes\""},
        {"ctrl+opt+h", Kind::otherShortcut, "Notes",
         "Ctrl + Opt + H is already assigned to \"Notes\""},
        {"ctrl+opt+m", Kind::otherShortcut, "Mail",
         "Ctrl + Opt + M is already assigned to \"Mail\""},
        {"ctrl+opt+t", Kind::desktop, "GNOME",
         "Ctrl + Opt + T is already used by GNOME (Launch terminal)."},
        {"ctrl+opt+u", Kind::desktop, "", "Ctrl + Opt + U is already used by another program."},
    });
    recorder->setCurrentCombo(combo("ctrl+opt+j"));
    recorder->startRecording();
    desk.runPosted();
    for (const RefusedRow& row : rows) {
        SCOPED_TRACE(row.pressed);
        press(row.pressed);
        ASSERT_TRUE(recorder->conflict());
        EXPECT_EQ(recorder->conflict()->kind, row.kind);
        EXPECT_EQ(recorder->conflict()->combo, combo(row.pressed));
        EXPECT_EQ(recorder->conflict()->name, QString::fromUtf8(row.name));
        EXPECT_EQ(recorder->conflictMessage(), QString::fromUtf8(row.message));
        EXPECT_TRUE(recorder->isRecording());
        EXPECT_EQ(recorder->currentCombo(), combo("ctrl+opt+j"));
        EXPECT_EQ(hotkeys(), 0u) << "a trial registration stayed";
    }
    press("ctrl+opt+k");
    EXPECT_EQ(recorder->currentCombo(), combo("ctrl+opt+k"));
    EXPECT_FALSE(recorder->conflict());
    EXPECT_EQ(recorder->conflictMessage(), QString());
    EXPECT_EQ(recorded, 1);
}

struct WarnedRow {
    const char* pressed;
    std::optional<Warning::Kind> kind;
    const char* owner;
    const char* action;
    const char* text; // the beginning
};

TEST_F(KeyRecorderTest, AcceptsAndWarnsOfTheGravest) {
    using Kind = Warning::Kind;
    setReading({claim("ctrl+opt+f3", "the virtual terminals", "terminal 3",
                      DesktopShortcut::Effect::neverFires),
                claim("cmd+c", "i3", "exec xterm")});
    const std::vector<WarnedRow> rows{
        {"cmd+s", Kind::commonCommand, "", "", "⌘S is “Save” in most apps. A global shortcut"},
        {"cmd+shift+s", Kind::commonCommand, "", "", "⌘⇧S is “Save”"},
        {"ctrl+cmd+s", {}, "", "", ""},
        {"cmd+e", {}, "", "", ""},
        {"ctrl+opt+f3", Kind::neverFires, "the virtual terminals", "terminal 3",
         "Ctrl + Opt + F3 belongs to the virtual terminals (terminal 3)"},
        {"cmd+c", Kind::desktopUses, "i3", "exec xterm",
         "Cmd + C is in the settings of i3 too (exec xterm)"},
        {"ctrl+opt+shift+m", Kind::hiddenByOther, "Mail", "hide",
         "Ctrl + Opt + Shift + M hides \"Mail\" now and will no longer"},
        {"ctrl+opt+right", Kind::hiddenByOther, "", "nextWindow",
         "Ctrl + Opt + → goes to the next window now"},
        {"ctrl+opt+v", Kind::hiddenByOther, "", "voice", "Ctrl + Opt + V starts the voice search"},
    };
    for (const WarnedRow& row : rows) {
        SCOPED_TRACE(row.pressed);
        recorder->startRecording();
        desk.runPosted();
        press(row.pressed);
        EXPECT_EQ(recorder->currentCombo(), combo(row.pressed));
        EXPECT_FALSE(recorder->isRecording());
        const auto warning = recorder->warning();
        ASSERT_EQ(warning.has_value(), row.kind.has_value());
        if (!warning)
            continue;
        EXPECT_EQ(warning->kind, *row.kind);
        EXPECT_EQ(warning->owner, QString::fromUtf8(row.owner));
        EXPECT_EQ(warning->action, QString::fromUtf8(row.action));
        EXPECT_TRUE(warning->text.startsWith(QString::fromUtf8(row.text)))
            << warning->text.toStdString();
    }
    recorder->setCurrentCombo({});
    EXPECT_FALSE(recorder->warning());
}

TEST_F(KeyRecorderTest, OwnCombosAreNoConflictWhileEditing) {
    recorder->setEditingItemId(notes.id);
    for (const char* own : {"ctrl+opt+n", "ctrl+opt+h", "ctrl+opt+shift+n"}) {
        recorder->startRecording();
        press(own);
        EXPECT_EQ(recorder->currentCombo(), combo(own));
        EXPECT_FALSE(recorder->warning());
    }
    recorder->startRecording();
    press("ctrl+opt+m");
    EXPECT_EQ(recorder->conflict()->name, QStringLiteral("Mail"));
}

TEST_F(KeyRecorderTest, NoHotkeyIsRegisteredDuringARecordingAndAllAreAfterEveryEnd) {
    const std::size_t before = hotkeys();
    ASSERT_GT(before, 4u);
    const std::vector<std::pair<const char*, std::function<void()>>> ends{
        {"accept", [&] { press("ctrl+opt+k"); }},
        {"escape", [&] { press("esc"); }},
        {"escape with modifiers", [&] { press("cmd+shift+esc"); }},
        {"stop", [&] { recorder->stopRecording(); }},
        {"lost", [&] { desk.keyboardCapture().takeAway(); }},
        {"screen closes on the signal",
         [&] {
             QObject::connect(recorder.get(), &KeyRecorderViewModel::currentComboChanged,
                              [this] { recorder.reset(); });
             press("ctrl+opt+u");
         }},
        {"destruction", [&] { recorder.reset(); }},
    };
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        open();
        recorder->startRecording();
        EXPECT_TRUE(recorder->isRecording());
        EXPECT_TRUE(desk.keyboardCapture().isCaptured());
        EXPECT_TRUE(list->hotkeysSuspended());
        EXPECT_EQ(hotkeys(), 0u);
        // A change of the list during it registers nothing.
        list->commit();
        EXPECT_EQ(hotkeys(), 0u);
        end();
        EXPECT_FALSE(desk.keyboardCapture().isCaptured());
        EXPECT_FALSE(list->hotkeysSuspended());
        EXPECT_EQ(hotkeys(), before);
        if (recorder) {
            EXPECT_FALSE(recorder->isRecording());
        }
        desk.runPosted(); // a reading that nobody waits for any more
    }
    EXPECT_EQ(recorded, 1);
}

TEST_F(KeyRecorderTest, ATakenKeyboardIsSaidAndLeavesTheHotkeysAsTheyWere) {
    const std::size_t before = hotkeys();
    desk.keyboardCapture().refuse(true);
    recorder->startRecording();
    EXPECT_FALSE(recorder->isRecording());
    ASSERT_TRUE(recorder->conflict());
    EXPECT_EQ(recorder->conflict()->kind, Conflict::Kind::keyboardTaken);
    EXPECT_TRUE(recorder->conflictMessage().startsWith(u"Another program holds the keyboard"));
    EXPECT_EQ(hotkeys(), before);
    desk.keyboardCapture().refuse(false);
    recorder->startRecording();
    EXPECT_FALSE(recorder->conflict());
}

TEST_F(KeyRecorderTest, TheSuspensionOfAnotherOwnerIsLeftToIt) {
    list->setHotkeysSuspended(true);
    manager.unregisterAll();
    recorder->startRecording();
    press("ctrl+opt+k");
    EXPECT_TRUE(list->hotkeysSuspended());
    EXPECT_EQ(hotkeys(), 0u);
}

TEST_F(KeyRecorderTest, WhatTheSettingsSayMayComeLate) {
    setReading(
        {claim("ctrl+opt+t", "openbox", "Execute: xterm"),
         claim("ctrl+opt+f3", "the virtual terminals", "", DesktopShortcut::Effect::neverFires)});
    desk.hotkeys().refuse(pressed("ctrl+opt+t"), 10);
    recorder->startRecording();
    press("ctrl+opt+t");
    EXPECT_EQ(recorder->conflict()->name, QString());
    desk.runPosted();
    EXPECT_EQ(recorder->conflictMessage(),
              QStringLiteral("Ctrl + Opt + T is already used by openbox (Execute: xterm)."));
    press("esc");

    open();
    recorder->startRecording();
    press("ctrl+opt+f3");
    EXPECT_FALSE(recorder->warning());
    desk.runPosted();
    ASSERT_TRUE(recorder->warning());
    EXPECT_EQ(recorder->warning()->kind, Warning::Kind::neverFires);
}

TEST_F(KeyRecorderTest, ShowsWhatIsHeldAndIgnoresRepeats) {
    std::vector<std::pair<std::uint32_t, int>> shown;
    QObject::connect(recorder.get(), &KeyRecorderViewModel::heldChanged, [&] {
        shown.emplace_back(recorder->heldModifiers().rawValue,
                           recorder->heldKey() ? *recorder->heldKey() : -1);
    });
    recorder->startRecording();
    auto& keys = desk.keyboardCapture();
    keys.changeModifiers(59, {EventFlags::control | EventFlags::capsLock | EventFlags::function});
    keys.changeModifiers(58, {EventFlags::control | EventFlags::alternate});
    press("ctrl+opt+n"); // refused: down and up again
    keys.changeModifiers(58, {EventFlags::control});
    press("ctrl+k");
    EXPECT_THAT(shown,
                testing::ElementsAre(std::pair{4u, -1}, std::pair{6u, -1}, std::pair{6u, 45},
                                     std::pair{6u, -1}, std::pair{4u, -1}, std::pair{0u, -1}));
}

TEST_F(KeyRecorderTest, WorksOnWithoutTheList) {
    recorder->startRecording();
    list.reset();
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_FALSE(desk.keyboardCapture().isCaptured());
    recorder->startRecording();
    press("ctrl+opt+m");
    EXPECT_EQ(recorder->currentCombo(), combo("ctrl+opt+m"));
}

} // namespace
} // namespace skipnest::hotkeys
