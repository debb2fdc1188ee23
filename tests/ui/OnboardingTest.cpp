// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include "hotkeys/HotkeyManager.h"
#include "ui/onboarding/ComboSuggestion.h"
#include "ui/onboarding/DoubleTapTrial.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonValue>
#include <QQuickItem>
#include <QQuickView>

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using model::KeyCombo;
using model::ModifierFlags;
using platform::Availability;
using platform::CarbonModifiers;
using platform::EventFlags;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr ModifierFlags controlOption = ModifierFlags::control | ModifierFlags::option;
constexpr std::uint32_t carbonControlOption = CarbonModifiers::control | CarbonModifiers::option;
constexpr std::uint16_t keyN = 45;
constexpr std::uint16_t keyO = 31;
constexpr std::uint16_t keyJ = 38;
constexpr std::uint16_t leftCommand = 55;
constexpr std::uint16_t rightCommand = 54;
constexpr std::uint16_t leftShift = 56;

struct Onboarding : testing::Test {
    Onboarding() {
        stage.desk().installApp({.name = u"Notes"_s, .path = u"/Applications/Notes.app"_s});
    }

    void begin() { stage.launch(test::UiStage::Setup::check); }
    void press(Qt::Key key) { stage.press(stage.onboarding(), key); }
    [[nodiscard]] QQuickItem& item(const QString& name) {
        return stage.item(stage.onboarding(), name);
    }
    [[nodiscard]] bool isThere(const QString& name) {
        return stage.hasItem(stage.onboarding(), name);
    }
    [[nodiscard]] QString text(const QString& name) {
        return item(name).property("text").toString();
    }
    [[nodiscard]] const model::AppConfiguration& config() { return stage.list().config(); }
    // Chooses the first suggestion, Notes, and goes on with the combo proposed.
    void saveNotes() {
        press(Qt::Key_Return); // the welcome
        press(Qt::Key_Return); // takes the row
        press(Qt::Key_Return); // saves
    }
    void tap(std::uint16_t keyCode, std::uint64_t flag, platform::Duration hold = 100ms) {
        auto& desk = stage.desk();
        desk.changeModifiers(keyCode, {flag});
        desk.advance(hold);
        desk.changeModifiers(keyCode, {});
        stage.settle();
    }

    test::UiStage stage;
};

TEST_F(Onboarding, LeadsByReturnAloneToAWorkingShortcut) {
    begin();
    saveNotes();

    ASSERT_EQ(stage.list().shortcuts().size(), 1U);
    EXPECT_EQ(stage.list().shortcuts().front().targetPath, u"/Applications/Notes.app"_s);
    EXPECT_EQ(stage.list().shortcuts().front().keyCombo, (KeyCombo{keyN, controlOption}));

    stage.desk().journal().clear();
    EXPECT_TRUE(stage.desk().pressHotkey({keyN, carbonControlOption}));
    EXPECT_THAT(stage.desk().journal().calls(), Contains(testing::HasSubstr("Notes")));
    stage.settle();
    EXPECT_EQ(text(u"title"_s), u"It works"_s);

    press(Qt::Key_Return); // on from the trial
    press(Qt::Key_Return); // on from the gesture
    EXPECT_NE(config().didOnboard, true);
    press(Qt::Key_Return); // finish
    EXPECT_EQ(config().didOnboard, true);
    EXPECT_EQ(config().seenOnboardingVersion, 1);
    EXPECT_FALSE(stage.panels().isOnboardingShown());
    EXPECT_FALSE(stage.desk().keyEvents().isListenedTo());
}

// The target covers the window, and a beginner does not know how to find it again.
TEST_F(Onboarding, ComesBackAWhileAfterTheFirstPress) {
    begin();
    saveNotes();
    stage.desk().pressHotkey({keyN, carbonControlOption});
    stage.onboarding().hide();
    stage.desk().advance(1499ms);
    EXPECT_FALSE(stage.panels().isOnboardingShown());
    stage.desk().advance(1ms);
    EXPECT_TRUE(stage.panels().isOnboardingShown());
    // Coming back to the step does not ask for another proof.
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_EQ(text(u"title"_s), u"It works"_s);
}

TEST_F(Onboarding, ClosedDuringTheTrialItStaysAwayUntilTheNextStart) {
    begin();
    saveNotes();
    stage.desk().pressHotkey({keyN, carbonControlOption});
    stage.panels().closeOnboarding();
    stage.settle();
    stage.desk().advance(10s);
    EXPECT_FALSE(stage.panels().isOnboardingShown());
    EXPECT_EQ(stage.list().shortcuts().size(), 1U);
    EXPECT_TRUE(app::MenuBarShell::needsOnboarding(config()));
}

TEST_F(Onboarding, SkippingCountsAsSeen) {
    begin();
    stage.click(item(u"skip"_s));
    EXPECT_FALSE(stage.panels().isOnboardingShown());
    EXPECT_FALSE(app::MenuBarShell::needsOnboarding(config()));
}

// Without a shortcut there is nothing to try.
TEST_F(Onboarding, GoesOnWithoutAShortcutAndBackTheSameWay) {
    stage.desk().quitApp(u"Notes"_s);
    begin();
    press(Qt::Key_Return);
    stage.click(item(u"next"_s));
    EXPECT_TRUE(isThere(u"triggers"_s));
    press(Qt::Key_Escape);
    EXPECT_TRUE(isThere(u"search"_s));
}

TEST_F(Onboarding, ShowsTheChosenThemeAtOnceAndKeepsIt) {
    begin();
    stage.click(item(u"theme0"_s));
    EXPECT_EQ(config().themeRaw, u"light"_s);
    const QColor light = stage.onboarding().color();
    press(Qt::Key_Right);
    EXPECT_EQ(config().themeRaw, u"dark"_s);
    EXPECT_NE(stage.onboarding().color(), light);
}

TEST_F(Onboarding, FindsATargetByNameAndRecordsAnotherKey) {
    (void)stage.desk().addFile(u"/Users/person/Documents/Taxes.pdf"_s, "x");
    stage.desk().fileIndex().add({u"/Users/person/Documents/Taxes.pdf"_s, u"Taxes.pdf"_s,
                                  platform::IndexedFile::Kind::file});
    begin();
    press(Qt::Key_Return);
    stage.type(stage.onboarding(), u"tax"_s);
    press(Qt::Key_Return); // too early: nothing is found yet
    stage.desk().advance(180ms);
    (void)stage.picture(stage.onboarding()); // what was found shows with the next frame
    press(Qt::Key_Return);
    EXPECT_EQ(text(u"target"_s), u"Taxes.pdf"_s);

    stage.click(item(u"comboBox"_s));
    ASSERT_TRUE(stage.desk().keyboardCapture().isCaptured());
    stage.desk().keyboardCapture().press(keyJ, {EventFlags::control | EventFlags::alternate});
    stage.settle();
    EXPECT_FALSE(stage.desk().keyboardCapture().isCaptured());
    stage.click(item(u"next"_s));
    ASSERT_EQ(stage.list().shortcuts().size(), 1U);
    EXPECT_EQ(stage.list().shortcuts().front().keyCombo, (KeyCombo{keyJ, controlOption}));
}

TEST_F(Onboarding, ClosedWhileRecordingLetsGoOfTheKeyboard) {
    begin();
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    stage.click(item(u"comboBox"_s));
    ASSERT_TRUE(stage.desk().keyboardCapture().isCaptured());
    stage.panels().closeOnboarding();
    stage.settle();
    EXPECT_FALSE(stage.desk().keyboardCapture().isCaptured());
    EXPECT_FALSE(stage.list().hotkeysSuspended());
}

// The target can go away between the search and the choice.
TEST_F(Onboarding, SaysThatATargetVanished) {
    begin();
    press(Qt::Key_Return);
    (void)stage.desk().removePath(u"/Applications/Notes.app"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(text(u"target"_s), u"Nothing chosen yet"_s);
}

TEST_F(Onboarding, AKeyThatTheDesktopRefusesAfterAllIsSaid) {
    begin();
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    stage.desk().hotkeys().refuse({keyN, carbonControlOption}, 10);
    press(Qt::Key_Return);
    EXPECT_TRUE(isThere(u"otherKey"_s));
    stage.click(item(u"otherKey"_s));
    EXPECT_TRUE(isThere(u"search"_s));
}

TEST_F(Onboarding, WhereNoKeyCanBeBoundItOffersTheBindingsToCopy) {
    const Availability none{Availability::State::unavailable, u"This desktop binds keys itself."_s,
                            u"Bind them in its settings."_s};
    stage.desk().hotkeys().setAvailability(none);
    stage.desk().keyEvents().setAvailability(none);
    begin();
    saveNotes();
    ASSERT_EQ(stage.list().shortcuts().size(), 1U);
    stage.click(item(u"copy-sway"_s));
    EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(),
                testing::HasSubstr("jump 'Notes'"));

    stage.click(item(u"next"_s));
    EXPECT_FALSE(isThere(u"triggers"_s));
    EXPECT_THAT(text(u"unavailable"_s).toStdString(),
                testing::HasSubstr("This desktop binds keys itself."));
}

TEST_F(Onboarding, TheGestureIsTriedLiveAndStoredWhenChosen) {
    begin();
    stage.desk().quitApp(u"Notes"_s);
    press(Qt::Key_Return);
    stage.click(item(u"next"_s));
    tap(leftCommand, EventFlags::command);
    stage.desk().advance(100ms);
    tap(leftCommand, EventFlags::command);
    EXPECT_EQ(text(u"feedback"_s), u"That is it."_s);

    press(Qt::Key_Right);
    press(Qt::Key_Right);
    EXPECT_EQ(config().voiceTrigger, u"shift"_s);
    tap(leftShift, EventFlags::shift);
    stage.desk().pressKey();
    stage.settle();
    EXPECT_THAT(text(u"feedback"_s).toStdString(), testing::StartsWith("Another key"));
    press(Qt::Key_Return);
    EXPECT_FALSE(stage.desk().keyEvents().isListenedTo());
}

TEST_F(Onboarding, WhereATapOfSuperDoesSomethingShiftIsProposed) {
    platform::DesktopShortcutReading reading;
    reading.reactsToSuperTap = true;
    reading.superTapOwner = u"GNOME"_s;
    stage.desk().desktopShortcuts().set(reading);
    begin();
    stage.desk().quitApp(u"Notes"_s);
    press(Qt::Key_Return);
    stage.click(item(u"next"_s));
    EXPECT_EQ(item(u"triggers"_s).property("current"), 2);
    EXPECT_THAT(text(u"advice"_s).toStdString(), testing::StartsWith("GNOME opens its overview"));
    EXPECT_FALSE(config().voiceTrigger);
    press(Qt::Key_Return);
    EXPECT_EQ(config().voiceTrigger, u"shift"_s);
}

TEST_F(Onboarding, AsksForTheLoginItem) {
    begin();
    stage.desk().quitApp(u"Notes"_s);
    press(Qt::Key_Return);
    stage.click(item(u"next"_s));
    press(Qt::Key_Return);
    (void)stage.picture(stage.onboarding()); // everything is in its place
    stage.click(item(u"launchAtLogin"_s));
    EXPECT_TRUE(config().launchAtLogin);
    EXPECT_TRUE(stage.desk().loginItem().isRegistered());
}

// A proposal is free in our list, free by the desktop's settings, and granted when asked for.
TEST_F(Onboarding, AsksForUsageCountsOnceAndTakesNoAnswerForNo) {
    struct Case {
        bool hasService;
        bool switches;
        QJsonValue agreed;
    };
    for (const Case& row : {Case{false, false, QJsonValue::Undefined}, Case{true, false, false},
                            Case{true, true, true}}) {
        test::UiStage each;
        if (!row.hasService)
            each.desk().setServiceAddress({});
        each.launch(test::UiStage::Setup::check);
        while (!each.hasItem(each.onboarding(), u"launchAtLogin"_s))
            each.press(each.onboarding(), Qt::Key_Return);
        ASSERT_EQ(each.hasItem(each.onboarding(), u"pings"_s), row.hasService);
        (void)each.picture(each.onboarding());
        if (row.switches)
            each.click(each.item(each.onboarding(), u"pings"_s));
        EXPECT_TRUE(each.desk().defaults().value(u"sk.pings"_s).isUndefined());
        each.click(each.item(each.onboarding(), u"next"_s));
        EXPECT_EQ(each.desk().defaults().value(u"sk.pings"_s), row.agreed);
    }
}

TEST_F(Onboarding, ProposesOnlyWhatIsFree) {
    platform::DesktopShortcutReading reading;
    reading.shortcuts = {{keyO, carbonControlOption, u"openbox"_s, {}}};
    stage.desk().desktopShortcuts().set(reading);
    stage.launch();
    stage.agent().ledger().refresh();
    stage.settle();
    const auto proposed = [this] { return suggestedCombo(u"Notes"_s, stage.agent()); };
    EXPECT_EQ(proposed(), (KeyCombo{keyN, controlOption}));
    stage.list().addShortcut(u"/Applications/Notes.app"_s, KeyCombo{keyN, controlOption},
                             std::nullopt);
    constexpr std::uint16_t keyT = 17;
    EXPECT_EQ(proposed(), (KeyCombo{keyT, controlOption})); // O is the desktop's
    stage.desk().hotkeys().refuse({keyT, carbonControlOption}, 10);
    constexpr std::uint16_t keyE = 14;
    EXPECT_EQ(proposed(), (KeyCombo{keyE, controlOption}));
    // The trial left nothing behind: the shortcut's own two keys and the voice key.
    EXPECT_EQ(stage.desk().hotkeys().registered().size(), 3U);
}

TEST(ComboCandidates, TakeTheKeysThatTheLayoutHas) {
    const platform::UsKeyboardLayout layout;
    struct Row {
        QString name;
        std::vector<std::uint16_t> first; // key codes
    };
    const std::vector<Row> rows = {
        {u"Übersicht"_s, {32, 11, 14}},  // U for Ü, then B, E
        {u"7-Zip & 7up"_s, {26, 6, 34}}, // a digit once, no signs
        {u"תוכנית 🎉"_s, {0, 11, 8}},     // nothing in the name: A, B, C
        {QString(), {0, 11, 8}},
    };
    for (const Row& row : rows) {
        const auto candidates = comboCandidates(row.name, layout);
        ASSERT_GE(candidates.size(), 26U) << qPrintable(row.name);
        for (std::size_t i = 0; i < row.first.size(); ++i)
            EXPECT_EQ(candidates[i], (KeyCombo{row.first[i], controlOption}))
                << qPrintable(row.name) << " at " << i;
    }
}

// One event of a script: a modifier with what is held after it, or another key.
struct TapEvent {
    int atMs = 0;
    std::uint16_t keyCode = 0; // 0: another key
    std::uint64_t held = 0;
};
struct TapRow {
    const char* name;
    std::vector<TapEvent> events;
    DoubleTapTrial::Answer last;
};

struct DoubleTapTable : testing::TestWithParam<TapRow> {};

TEST_P(DoubleTapTable, AnswersTheLastEvent) {
    DoubleTapTrial trial(VoiceTrigger::command);
    auto answer = DoubleTapTrial::Answer::nothing;
    for (const TapEvent& event : GetParam().events) {
        const platform::Instant time{std::chrono::milliseconds(10'000 + event.atMs)};
        answer = event.keyCode == 0
                     ? trial.otherKeyPressed()
                     : trial.modifiersChanged({time, event.keyCode, EventFlags{event.held}});
    }
    EXPECT_EQ(answer, GetParam().last);
}

constexpr std::uint64_t cmd = EventFlags::command;
constexpr std::uint64_t shift = EventFlags::shift;
using Answer = DoubleTapTrial::Answer;

INSTANTIATE_TEST_SUITE_P(
    Rows, DoubleTapTable,
    testing::ValuesIn(std::vector<TapRow>{
        {"OneTap", {{0, 55, cmd}, {100, 55, 0}}, Answer::firstTap},
        {"HeldForTheLimit", {{0, 55, cmd}, {300, 55, 0}}, Answer::firstTap},
        {"HeldBeyondIt", {{0, 55, cmd}, {301, 55, 0}}, Answer::heldTooLong},
        {"SecondTapHeldBeyondIt",
         {{0, 55, cmd}, {10, 55, 0}, {20, 55, cmd}, {321, 55, 0}},
         Answer::heldTooLong},
        {"ReleasesAtTheLimit",
         {{0, 55, cmd}, {100, 55, 0}, {300, 55, cmd}, {450, 55, 0}},
         Answer::doubleTap},
        {"ReleasesBeyondIt",
         {{0, 55, cmd}, {100, 55, 0}, {300, 55, cmd}, {451, 55, 0}},
         Answer::tooFarApart},
        {"MuchLaterIsANewAttempt",
         {{0, 55, cmd}, {100, 55, 0}, {1050, 55, cmd}, {1101, 55, 0}},
         Answer::firstTap},
        {"ALateTapIsAFirstOne",
         {{0, 55, cmd}, {100, 55, 0}, {451, 55, cmd}, {500, 55, 0}, {600, 55, cmd}, {700, 55, 0}},
         Answer::doubleTap},
        {"ThirdTapStartsAnew",
         {{0, 55, cmd}, {50, 55, 0}, {100, 55, cmd}, {150, 55, 0}, {200, 55, cmd}, {250, 55, 0}},
         Answer::firstTap},
        {"LeftThenRight",
         {{0, leftCommand, cmd},
          {50, leftCommand, 0},
          {100, rightCommand, cmd},
          {150, rightCommand, 0}},
         Answer::otherSide},
        {"AKeyBetween",
         {{0, 55, cmd}, {50, 55, 0}, {70, 0, 0}, {100, 55, cmd}, {150, 55, 0}},
         Answer::firstTap},
        {"AKeyDuringATap", {{0, 55, cmd}, {50, 0, 0}, {100, 55, 0}}, Answer::nothing},
        {"AnotherModifierHeld",
         {{0, 56, shift}, {50, 55, shift | cmd}, {100, 55, shift}},
         Answer::nothing},
        {"AnotherModifierDuringATap",
         {{0, 55, cmd}, {50, 56, shift | cmd}, {80, 56, cmd}, {100, 55, 0}},
         Answer::nothing},
        {"AReleaseWithoutAPress", {{0, 55, 0}}, Answer::nothing},
        {"CapsLockDoesNotDisturb",
         {{0, 55, cmd | EventFlags::capsLock}, {50, 55, EventFlags::capsLock}},
         Answer::firstTap},
    }),
    [](const auto& row) { return std::string(row.param.name); });

TEST(VoiceTriggerNames, AreThoseOfTheConfiguration) {
    for (const VoiceTrigger trigger : voiceTriggers)
        EXPECT_EQ(triggerNamed(triggerName(trigger)), trigger);
    EXPECT_EQ(triggerNamed(std::nullopt), VoiceTrigger::command);
    EXPECT_EQ(triggerNamed(u"ctrl"_s), VoiceTrigger::command);
    EXPECT_EQ(triggerNamed(u"off"_s), VoiceTrigger::off);
}

} // namespace
} // namespace skipnest::ui
