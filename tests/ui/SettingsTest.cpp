// SPDX-License-Identifier: Apache-2.0
#include "tests/ui/UiStage.h"

#include "model/ConfigurationCoding.h"
#include "ui/Engine.h"
#include "ui/PopoverModel.h"
#include "ui/settings/KeyLedgerRows.h"
#include "ui/settings/SettingRows.h"
#include "ui/settings/SettingsModel.h"
#include "ui/settings/SettingsTable.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <gmock/gmock.h>

namespace skipnest::ui {
namespace {

using namespace Qt::StringLiterals;
using model::AppConfiguration;
using model::KeyCombo;
using model::ModifierFlags;
using platform::CarbonModifiers;
using platform::EventFlags;
using sim::HotkeyCombo;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr std::uint16_t keyJ = 38;
constexpr std::uint16_t keyRight = 124;
constexpr std::uint32_t controlOption = CarbonModifiers::control | CarbonModifiers::option;

class SettingsTest : public testing::Test {
protected:
    void start() {
        stage_.launch();
        stage_.show({platform::PopoverScreen::settings, {}});
    }
    SettingsModel& settings() { return *stage_.panels().popoverModel().settings(); }
    QJsonObject stored(const QString& file) {
        const auto bytes =
            stage_.desk().files().content(stage_.desk().appInfo().supportFolder + u'/' + file);
        return QJsonDocument::fromJson(bytes.value_or(QByteArray())).object();
    }
    QJsonValue inDocument(const QString& key) { return stored(u"config.json"_s).value(key); }
    std::vector<HotkeyCombo> bound() {
        std::vector<HotkeyCombo> combos;
        for (const auto& request : stage_.desk().hotkeys().registered())
            combos.push_back({request.keyCode, request.carbonModifiers});
        return combos;
    }
    // By its name in the screen, with the keyboard on it.
    void focus(const QString& objectName) {
        stage_.item(objectName).forceActiveFocus(Qt::TabFocusReason);
        stage_.settle();
    }
    // By keyboard, which also scrolls there.
    void pressButton(const QString& objectName) {
        focus(objectName);
        stage_.press(Qt::Key_Space);
    }
    QString shownText(const QString& objectName) {
        return stage_.item(objectName).property("text").toString();
    }

    test::UiStage stage_;
};

TEST_F(SettingsTest, ofEveryKeyOfTheDocumentThatAPersonChooses) {
    AppConfiguration full;
    full.shiftToHide = full.windowCycling = full.didOnboard = full.crashReports = true;
    full.preciseWindowSwitching = full.windowSwitcher = full.quickCapture = true;
    full.browserTabSwitching = full.voiceSearch = full.voiceCleanup = true;
    full.hideModifierRaw = 1;
    full.nextWindowCombo = full.prevWindowCombo = full.voiceCombo = KeyCombo{};
    full.themeRaw = full.voiceLanguage = full.voiceTrigger = u"x"_s;
    full.seenOnboardingVersion = 1;
    full.vocabularyTerms = QStringList{u"x"_s};
    full.vocabularyAliases = {{u"x"_s, u"y"_s, {}}};

    QStringList keys = model::toJson(full).keys();
    for (const auto& notASetting :
         {u"version"_s, u"shortcuts"_s, u"didOnboard"_s, u"seenOnboardingVersion"_s})
        keys.removeOne(notASetting);
    for (const QString& key : keys)
        EXPECT_NE(findSetting(key), nullptr) << qPrintable(key);
}

// A setting, what a person does to it, and what the document says then.
struct Change {
    QString key;
    std::variant<bool, int> act; // on or off, or an option
    QJsonValue written;
};
class Changed : public SettingsTest, public testing::WithParamInterface<Change> {};

TEST_P(Changed, settingIsWrittenAndLeavesTheDocumentAgain) {
    const Change& change = GetParam();
    const QString& key = change.key;
    start();
    stage_.list().commit(); // there is a document
    const QJsonValue before = inDocument(key);
    if (const bool* on = std::get_if<bool>(&change.act))
        settings().setOn(key, *on);
    else
        settings().choose(key, std::get<int>(change.act));
    EXPECT_EQ(inDocument(key), change.written);
    stage_.settle();
    EXPECT_TRUE(stage_.hasItem(key + u"Reset"_s));

    settings().reset(key);
    stage_.settle();
    EXPECT_EQ(inDocument(key), before);
    EXPECT_FALSE(stage_.hasItem(key + u"Reset"_s));
}

INSTANTIATE_TEST_SUITE_P(
    , Changed,
    testing::Values(Change{u"themeRaw"_s, 1, u"dark"_s}, Change{u"menuBarIconName"_s, 2, u"bolt"_s},
                    Change{u"launchAtLogin"_s, true, true}, Change{u"shiftToHide"_s, false, false},
                    Change{u"hideModifierRaw"_s, 3, 1}, Change{u"windowCycling"_s, true, true},
                    Change{u"windowSwitcher"_s, false, false},
                    Change{u"preciseWindowSwitching"_s, true, true},
                    Change{u"browserTabSwitching"_s, false, false},
                    Change{u"quickCapture"_s, false, false}, Change{u"voiceSearch"_s, false, false},
                    Change{u"voiceTrigger"_s, 3, u"off"_s},
                    Change{u"voiceLanguage"_s, 1, u"de-DE"_s},
                    Change{u"voiceCleanup"_s, true, true}, Change{u"crashReports"_s, true, true}));

TEST_F(SettingsTest, anOptionThatDoesNotExistChangesNothing) {
    start();
    settings().choose(u"themeRaw"_s, 3);
    settings().choose(u"themeRaw"_s, -1);
    settings().setOn(u"themeRaw"_s, true);
    settings().setOn(u"nobody"_s, true);
    EXPECT_TRUE(inDocument(u"themeRaw"_s).isUndefined());
}

TEST_F(SettingsTest, aValueOfANewerProgramIsShownAsWhatItCountsAs) {
    model::AppConfiguration config;
    config.voiceTrigger = u"ctrl"_s;
    config.hideModifierRaw = 9;
    config.voiceLanguage = u"tlh-Klingon-x"_s;
    stage_.desk().files().put(stage_.desk().appInfo().supportFolder + u"/config.json"_s,
                              model::encodeConfiguration(config));
    start();
    EXPECT_EQ(stage_.item(u"voiceTrigger"_s).property("current").toInt(), 0);
    EXPECT_EQ(stage_.item(u"hideModifierRaw"_s).property("current").toInt(), -1);
    EXPECT_EQ(stage_.item(u"voiceLanguage"_s).property("currentText").toString(), u"tlh-Klingon-x");
}

TEST_F(SettingsTest, hotkeysFollowTheSettingsThatFeedThem) {
    stage_.desk().installApp({.name = u"Notes"_s, .path = u"/Applications/Notes.app"_s});
    start();
    stage_.list().addShortcut(u"/Applications/Notes.app"_s, KeyCombo{keyJ, ModifierFlags::control},
                              std::nullopt);
    EXPECT_THAT(bound(),
                Contains(HotkeyCombo{keyJ, CarbonModifiers::control | CarbonModifiers::shift}));

    focus(u"shiftToHide"_s);
    stage_.press(Qt::Key_Space);
    EXPECT_THAT(bound(), Not(Contains(HotkeyCombo{keyJ, CarbonModifiers::control |
                                                            CarbonModifiers::shift})));
    pressButton(u"shiftToHideReset"_s);
    EXPECT_THAT(bound(),
                Contains(HotkeyCombo{keyJ, CarbonModifiers::control | CarbonModifiers::shift}));

    focus(u"hideModifierRaw"_s);
    stage_.press(Qt::Key_Left);
    EXPECT_THAT(bound(), Contains(HotkeyCombo{keyJ, controlOption}));

    EXPECT_THAT(bound(), Not(Contains(HotkeyCombo{keyRight, controlOption})));
    focus(u"windowCycling"_s);
    stage_.press(Qt::Key_Return);
    EXPECT_THAT(bound(), Contains(HotkeyCombo{keyRight, controlOption}));
}

TEST_F(SettingsTest, aComboIsRecordedByPressingIt) {
    start();
    settings().setOn(u"windowCycling"_s, true);
    focus(u"nextWindowComboBox"_s);
    stage_.press(Qt::Key_Return);
    ASSERT_TRUE(stage_.desk().keyboardCapture().isCaptured());
    EventFlags held;
    held.bits = EventFlags::control | EventFlags::command;
    stage_.desk().keyboardCapture().press(keyJ, held);
    stage_.settle();

    EXPECT_EQ(inDocument(u"nextWindowCombo"_s).toObject().value(u"keyCode"_s), int(keyJ));
    EXPECT_THAT(bound(),
                Contains(HotkeyCombo{keyJ, CarbonModifiers::control | CarbonModifiers::command}));

    pressButton(u"nextWindowComboReset"_s);
    EXPECT_TRUE(inDocument(u"nextWindowCombo"_s).isUndefined());
    EXPECT_THAT(bound(), Contains(HotkeyCombo{keyRight, controlOption}));
}

TEST_F(SettingsTest, leavingTheScreenEndsARecording) {
    start();
    settings().recorder(u"voiceCombo"_s)->start();
    ASSERT_TRUE(stage_.desk().keyboardCapture().isCaptured());
    // A second recorder takes over, and there is still only one.
    settings().recorder(u"nextWindowCombo"_s)->start();
    EXPECT_FALSE(settings().recorder(u"voiceCombo"_s)->isRecording());
    stage_.panels().popoverModel().back();
    EXPECT_FALSE(stage_.desk().keyboardCapture().isCaptured());
    EXPECT_FALSE(stage_.list().hotkeysSuspended());
}

TEST_F(SettingsTest, glyphsAreKeptBesideTheDocument) {
    start();
    const auto keys = [this] { return settings().recorder(u"voiceCombo"_s)->keys(); };
    const QStringList before = keys();
    settings().setOn(u"sk.comboGlyphs"_s, before.contains(u"Ctrl"_s));
    EXPECT_NE(keys(), before);
    EXPECT_TRUE(stored(u"defaults.json"_s).value(u"sk.comboGlyphs"_s).isBool());
    EXPECT_TRUE(inDocument(u"sk.comboGlyphs"_s).isUndefined());

    settings().reset(u"sk.comboGlyphs"_s);
    EXPECT_EQ(keys(), before);
    EXPECT_FALSE(stored(u"defaults.json"_s).contains(u"sk.comboGlyphs"_s));
}

QString privacyNote(test::UiStage& stage) {
    const auto sections = stage.panels().popoverModel().settings()->sections();
    return sections.back()->property("note").toString();
}

TEST_F(SettingsTest, agreeingToPingsSendsWhatWaitedAndResettingEndsIt) {
    start();
    const auto pinged = [this] {
        return QString::fromStdString(testing::PrintToString(stage_.desk().journal().calls()))
            .count(u"/version.php"_s);
    };
    EXPECT_EQ(privacyNote(stage_), QString());
    EXPECT_EQ(pinged(), 0);
    settings().setOn(u"sk.pings"_s, true);
    EXPECT_GT(pinged(), 0);
    settings().reset(u"sk.pings"_s);
    EXPECT_FALSE(stage_.agent().pings().isAgreed());
    EXPECT_TRUE(stage_.desk().defaults().value(u"sk.pings"_s).isUndefined());

    test::UiStage alone;
    alone.desk().setServiceAddress({});
    alone.launch();
    EXPECT_NE(privacyNote(alone), QString());
}

TEST_F(SettingsTest, noPictureIsTakenOfWindowsOnceTheyAreSwitchedOff) {
    start();
    const sim::SimScreenCapture& capture = stage_.desk().screenCapture();
    EXPECT_TRUE(capture.isEnabled());
    settings().setOn(u"sk.windowPreviews"_s, false);
    EXPECT_FALSE(capture.isEnabled());
    settings().choose(u"themeRaw"_s, 1); // another setting leaves it so
    EXPECT_FALSE(capture.isEnabled());
    settings().reset(u"sk.windowPreviews"_s);
    EXPECT_TRUE(capture.isEnabled());
    EXPECT_TRUE(stage_.desk().defaults().value(u"sk.windowPreviews"_s).isUndefined());
    settings().setOn(u"windowSwitcher"_s, false);
    EXPECT_FALSE(capture.isEnabled());
}

TEST_F(SettingsTest, whereTheLanguageModelIsAndWhatIsWrongWithTheAddress) {
    start();
    const auto kept = [this](const QString& key) { return stage_.desk().defaults().value(key); };
    const QString endpoint = u"sk.languageModel.endpoint"_s;
    EXPECT_FALSE(stage_.hasItem(endpoint + u"Note"_s));
    settings().setText(endpoint, u" http://models.example.org:8080 "_s);
    EXPECT_EQ(kept(endpoint), u"http://models.example.org:8080"_s);
    stage_.settle();
    EXPECT_TRUE(stage_.hasItem(endpoint + u"Note"_s));
    stage_.desk().languageModel().setAvailable(true);
    settings().setText(endpoint, u"http://127.0.0.1:8080"_s);
    stage_.settle();
    EXPECT_FALSE(stage_.hasItem(endpoint + u"Note"_s));
    EXPECT_EQ(shownText(endpoint), u"http://127.0.0.1:8080"_s);
    settings().setText(endpoint, u"  "_s);
    EXPECT_TRUE(kept(endpoint).isUndefined());

    const QString deadline = u"sk.languageModel.deadline"_s;
    settings().choose(deadline, 4);
    EXPECT_EQ(kept(deadline), 5.0);
    settings().choose(deadline, 9);
    EXPECT_EQ(kept(deadline), 5.0);
    settings().reset(deadline);
    EXPECT_TRUE(kept(deadline).isUndefined());

    const QString folders = u"sk.contacts.folders"_s;
    settings().setText(folders, u"~/People::/mnt/Jörg's"_s);
    EXPECT_EQ(kept(folders), (QJsonArray{u"~/People"_s, u"/mnt/Jörg's"_s}));
    stage_.settle();
    EXPECT_EQ(shownText(folders), u"~/People:/mnt/Jörg's"_s);
}

TEST_F(SettingsTest, lessMotionStillsTheViews) {
    start();
    ThemeColors& theme = themeOf(*stage_.popover().engine());
    EXPECT_TRUE(theme.moves());
    settings().setOn(u"sk.lessMotion"_s, true);
    EXPECT_FALSE(theme.moves());
}

TEST_F(SettingsTest, aLanguageIsPickedByKeyboard) {
    start();
    focus(u"voiceLanguage"_s);
    stage_.press(Qt::Key_Return);
    stage_.press(Qt::Key_Down);
    stage_.press(Qt::Key_Down);
    EXPECT_TRUE(inDocument(u"voiceLanguage"_s).isUndefined());
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(inDocument(u"voiceLanguage"_s), u"en-GB"_s);
    // Unfolded, Escape folds it; folded, it leaves the screen.
    stage_.press(Qt::Key_Return);
    stage_.press(Qt::Key_Escape);
    EXPECT_EQ(stage_.panels().popoverModel().screen(), u"settings");
    stage_.press(Qt::Key_Escape);
    EXPECT_EQ(stage_.panels().popoverModel().screen(), u"list");
}

TEST_F(SettingsTest, wordsAreTypedAndTakenOut) {
    start();
    focus(u"vocabularyTermsHeard"_s);
    stage_.type(u" Kubernetes "_s);
    stage_.press(Qt::Key_Return);
    stage_.type(u"   "_s);
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(inDocument(u"vocabularyTerms"_s), QJsonValue(QJsonArray{u"Kubernetes"_s}));

    focus(u"vocabularyAliasesHeard"_s);
    stage_.type(u"cloud"_s);
    stage_.press(Qt::Key_Return); // goes on to what is meant
    stage_.type(u"Claude"_s);
    stage_.press(Qt::Key_Return);
    EXPECT_EQ(inDocument(u"vocabularyAliases"_s),
              QJsonValue(QJsonArray{
                  QJsonObject{{u"heard"_s, u"cloud"_s}, {u"canonical"_s, u"Claude"_s}}}));

    pressButton(u"vocabularyTermsRemove0"_s);
    EXPECT_TRUE(inDocument(u"vocabularyTerms"_s).isUndefined());
    pressButton(u"vocabularyAliasesRemove0"_s);
    EXPECT_TRUE(inDocument(u"vocabularyAliases"_s).isUndefined());
}

TEST_F(SettingsTest, theSearchTakesRowsOutAndPutsThemBack) {
    start();
    auto* shortcuts = qobject_cast<SettingRows*>(settings().sections().at(1));
    const QAbstractItemModelTester tester(shortcuts,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const int all = shortcuts->count();
    bool wasReset = false;
    QObject::connect(shortcuts, &QAbstractItemModel::modelReset, shortcuts,
                     [&wasReset] { wasReset = true; });

    // The field has the keyboard when the screen opens.
    stage_.type(u"window next"_s);
    EXPECT_EQ(shortcuts->count(), 1);
    EXPECT_TRUE(stage_.hasItem(u"nextWindowCombo"_s));
    EXPECT_FALSE(stage_.hasItem(u"themeRaw"_s));
    settings().setFilter(u"SHORTCUTS"_s); // the section's title
    EXPECT_EQ(shortcuts->count(), all);
    settings().setFilter(u"no such thing"_s);
    EXPECT_TRUE(settings().findsNothing());
    settings().setFilter({});
    EXPECT_EQ(shortcuts->count(), all);
    EXPECT_FALSE(wasReset);
}

TEST_F(SettingsTest, whatIsLimitedHereIsSaidWithItsRemedy) {
    stage_.desk().hotkeys().setAvailability(
        {platform::Availability::State::limited, u"No keys here."_s, u"Log in to X11."_s});
    start();
    EXPECT_EQ(shownText(u"nextWindowComboNote"_s), u"No keys here. Log in to X11.");
    pressButton(u"copyReport"_s);
    const QString report = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(report.contains(u"limited No keys here."_s)) << qPrintable(report);
    EXPECT_TRUE(report.contains(stage_.desk().appInfo().version));
}

class LedgerTest : public SettingsTest {
protected:
    void SetUp() override {
        auto& desk = stage_.desk();
        desk.installApp({.name = u"Notes"_s, .path = u"/Applications/Notes.app"_s});
        desk.hotkeys().refuse({keyJ, CarbonModifiers::control | CarbonModifiers::shift}, 10);
        desk.desktopShortcuts().set(
            {{{keyJ, CarbonModifiers::control | CarbonModifiers::shift, u"openbox"_s, u"Execute"_s},
              {keyRight, CarbonModifiers::command, u"openbox"_s, u"GrowToEdge"_s},
              {96,
               controlOption,
               u"the virtual terminals"_s,
               {},
               platform::DesktopShortcut::Effect::neverFires}},
             false,
             {},
             {}});
        start();
        stage_.list().addShortcut(u"/Applications/Notes.app"_s,
                                  KeyCombo{keyJ, ModifierFlags::control}, std::nullopt);
        stage_.settle();
    }
    std::vector<std::string> rows() {
        std::vector<std::string> lines;
        const KeyLedgerRows& ledger = *settings().ledger();
        const auto roles = ledger.roleNames();
        for (int i = 0; i < ledger.rowCount(); ++i) {
            const QModelIndex row = ledger.index(i);
            const auto text = [&](const char* role) {
                return ledger.data(row, roles.key(role)).toString();
            };
            lines.push_back((text("group") + u" | "_s + text("holder")).toStdString());
        }
        return lines;
    }
};

TEST_F(LedgerTest, saysWhoHasWhichKey) {
    const QAbstractItemModelTester tester(settings().ledger(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_THAT(rows(), ElementsAre("Skipnest | Skipnest: Notes", "Skipnest | Skipnest: voice",
                                    "Refused to Skipnest | Refused: openbox has it (hide Notes)",
                                    "The desktop | openbox: GrowToEdge",
                                    "The desktop | the virtual terminals"));

    // A combo of ours on a key that never arrives; the row of the desktop becomes ours.
    stage_.list().changeSettings([](AppConfiguration& config) {
        config.voiceCombo = KeyCombo{96, {6}};
    });
    EXPECT_THAT(rows(), Contains("Skipnest | never fires: the virtual terminals (voice)"));
    EXPECT_THAT(rows(), Not(Contains("The desktop | the virtual terminals")));

    settings().ledger()->setFilter(u"notes openbox"_s);
    EXPECT_THAT(rows(), ElementsAre("Refused to Skipnest | Refused: openbox has it (hide Notes)"));
    settings().ledger()->setFilter(u"nobody"_s);
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(LedgerTest, isAPageOfItsOwnWithTheKeyboardInItsField) {
    pressButton(u"showKeys"_s);
    ASSERT_TRUE(stage_.hasItem(u"ledgerList"_s));
    stage_.type(u"grow"_s);
    EXPECT_THAT(rows(), ElementsAre("The desktop | openbox: GrowToEdge"));
    stage_.press(Qt::Key_Escape);
    EXPECT_FALSE(stage_.hasItem(u"ledgerList"_s));
    EXPECT_TRUE(stage_.hasItem(u"findSetting"_s));
    EXPECT_EQ(stage_.panels().popoverModel().screen(), u"settings");
}

} // namespace
} // namespace skipnest::ui
