// SPDX-License-Identifier: Apache-2.0
// Draws the screens into PNG files, FOLDER/SCREEN-THEME.png. Scale by QT_SCALE_FACTOR, as for any
// Qt program.
#include "tests/ui/BrowserScene.h"
#include "tests/ui/ChallengeScene.h"
#include "tests/ui/SwitcherScene.h"
#include "tests/ui/UiStage.h"

#include "app/MenuBarShell.h"
#include "model/KeyCombo.h"
#include "ui/PopoverModel.h"
#include "ui/Translations.h"
#include "ui/stats/StatisticsPicture.h"

#include <QCommandLineParser>
#include <QDir>
#include <QEventLoop>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickItem>
#include <QQuickView>
#include <QQuickWindow>
#include <QTimer>

#include <array>
#include <cstdio>

namespace {

using namespace skipnest;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using model::KeyCombo;
using model::ModifierFlags;
using platform::Availability;
using platform::CarbonModifiers;
using platform::EventFlags;
using platform::IndexedFile;
using platform::PopoverScreen;
using Setup = test::UiStage::Setup;
using Stage = test::UiStage;

constexpr ModifierFlags controlOption = ModifierFlags::control | ModifierFlags::option;
constexpr std::uint32_t carbonControlOption = CarbonModifiers::control | CarbonModifiers::option;
constexpr std::uint64_t controlOptionHeld = EventFlags::control | EventFlags::alternate;

struct Sample {
    QStringView path;
    std::optional<std::uint16_t> keyCode;
};

constexpr auto usualShortcuts = std::to_array<Sample>({
    {u"/Applications/Notes.app", 45},
    {u"/Applications/Firefox.app", 3},
    {u"/Applications/Terminal.app", 17},
    {u"/Applications/Mail.app", 46},
    {u"/Applications/Calendar.app", 8},
    {u"/Users/person/Documents/Invoices", 34},
    {u"/Users/person/Documents/Household budget.ods", 11},
    {u"/Users/person/Downloads", 2},
});

// What is hard to draw: umlauts, long words, an emoji, a name from right to left, no key, a key
// that two have.
constexpr auto hardShortcuts = std::to_array<Sample>({
    {u"/Users/person/Documents/Verträge und Geburtstagsüberraschungen 2026", 9},
    {u"/Users/person/Documents/Donaudampfschifffahrtsgesellschaftskapitänsmütze.odt", 1},
    {u"/Users/person/Documents/🎉 Party.txt", std::nullopt},
    {u"/Users/person/Documents/תוכנית.txt", 46},
    {u"/Applications/Mail.app", 46},
});

void furnish(Stage& stage) {
    auto& desk = stage.desk();
    (void)desk.defaults().setValue(u"sk.comboGlyphs"_s, false);
    for (const QStringView name :
         {u"Firefox", u"Terminal", u"Notes", u"Mail", u"Calendar", u"Music", u"Maps"}) {
        const QString path = u"/Applications/%1.app"_s.arg(name);
        desk.installApp({.name = name.toString(), .path = path});
        desk.fileIndex().add({path, name.toString(), IndexedFile::Kind::application});
    }
    (void)desk.addFolder(u"/Users/person/Documents/Invoices"_s);
    (void)desk.addFolder(hardShortcuts[0].path.toString());
    for (const QStringView path : std::initializer_list<QStringView>{
             u"/Users/person/Documents/Household budget.ods", hardShortcuts[1].path,
             hardShortcuts[2].path, hardShortcuts[3].path, u"/Users/person/Documents/Minutes.odt",
             u"/Users/person/Documents/Mining history.pdf"}) {
        (void)desk.addFile(path.toString(), "x");
        desk.fileIndex().add(
            {path.toString(), path.toString().section(u'/', -1), IndexedFile::Kind::file});
    }
    platform::DesktopShortcutReading reading;
    reading.shortcuts = {{18, CarbonModifiers::command, u"openbox"_s, u"GoToDesktop"_s},
                         {2, CarbonModifiers::command, u"openbox"_s, u"ToggleShowDesktop"_s},
                         {122, carbonControlOption, u"Linux"_s, u"VT 1"_s,
                          platform::DesktopShortcut::Effect::neverFires}};
    reading.sources = {u"rc.xml"_s};
    desk.desktopShortcuts().set(reading);
}

template <std::size_t count> void fill(Stage& stage, const std::array<Sample, count>& shortcuts) {
    for (const Sample& each : shortcuts)
        stage.list().addShortcut(
            each.path.toString(),
            each.keyCode ? std::optional(KeyCombo{*each.keyCode, controlOption}) : std::nullopt,
            std::nullopt);
    stage.settle();
}

void launch(Stage& stage, Setup setup, model::Theme theme, void (*furnishMore)(sim::SimDesktop&)) {
    furnish(stage);
    furnishMore(stage.desk());
    stage.launch(setup);
    stage.list().changeSettings(
        [theme](auto& settings) { settings.themeRaw = model::themeName(theme); });
    stage.agent().ledger().refresh();
    stage.settle();
}

QQuickView& on(Stage& stage, PopoverScreen screen, const QString& path = {}) {
    stage.show({screen, path});
    return stage.popover();
}

// After all motion.
QQuickView& rested(Stage& stage, QQuickView& view) {
    QEventLoop loop;
    QTimer::singleShot(500, &loop, &QEventLoop::quit);
    loop.exec();
    stage.settle();
    return view;
}

// Of the popover, with the usual list unless said otherwise.
QQuickView& list(Stage& stage) {
    fill(stage, usualShortcuts);
    return on(stage, PopoverScreen::list);
}
QQuickView& listNames(Stage& stage) {
    fill(stage, hardShortcuts);
    return on(stage, PopoverScreen::list);
}
QQuickView& listEmpty(Stage& stage) {
    return on(stage, PopoverScreen::list);
}
QQuickView& listRefused(Stage& stage) {
    stage.desk().hotkeys().refuse({3, carbonControlOption}, 10);
    return list(stage);
}
QQuickView& listUnbound(Stage& stage) {
    stage.desk().hotkeys().setAvailability(
        {Availability::State::unavailable, u"This is a Wayland session."_s,
         u"Copy the bindings for your desktop, or log in to an X11 session."_s});
    return list(stage);
}
QQuickView& add(Stage& stage) {
    fill(stage, usualShortcuts);
    on(stage, PopoverScreen::add);
    stage.type(u"mi"_s);
    stage.desk().advance(200ms);
    stage.settle();
    return stage.popover();
}
QQuickView& addRecording(Stage& stage) {
    fill(stage, usualShortcuts);
    on(stage, PopoverScreen::add, u"/Applications/Music.app"_s);
    stage.click(stage.item(u"jumpKeyBox"_s));
    stage.desk().keyboardCapture().changeModifiers(59, {EventFlags::control});
    stage.settle();
    return stage.popover();
}
QQuickView& addConflict(Stage& stage) {
    addRecording(stage);
    stage.desk().keyboardCapture().press(45, {controlOptionHeld});
    stage.settle();
    return stage.popover();
}
QQuickView& importing(Stage& stage) {
    fill(stage, usualShortcuts);
    (void)stage.agent().transfer().exportTo(
        u"/Users/person/Documents/Skipnest-Export-2026-07-24.json"_s);
    for (int i = 0; i < 3; ++i)
        (void)stage.list().remove(stage.list().shortcuts().back().id);
    (void)stage.agent().transfer().exportTo(model::ExportDestination::downloads);
    on(stage, PopoverScreen::importing);
    stage.click(stage.item(u"candidate0"_s));
    return stage.popover();
}
QQuickView& importEmpty(Stage& stage) {
    return on(stage, PopoverScreen::importing);
}
QQuickView& exporting(Stage& stage) {
    fill(stage, usualShortcuts);
    on(stage, PopoverScreen::exporting);
    stage.click(stage.item(u"destination0"_s));
    return stage.popover();
}
QQuickView& settings(Stage& stage) {
    fill(stage, usualShortcuts);
    return on(stage, PopoverScreen::settings);
}
QQuickView& settingsKeys(Stage& stage) {
    stage.desk().hotkeys().refuse({3, carbonControlOption}, 10);
    settings(stage);
    stage.item(u"showKeys"_s).forceActiveFocus(); // further down than the window shows
    stage.press(Qt::Key_Return);
    return stage.popover();
}
// Jumps of some weeks, the last of them a run of days.
void jumpAround(Stage& stage) {
    using Kind = stats::JumpStats::Kind;
    constexpr std::array perWeek = {3, 17, 24, 9, 38, 52, 47};
    const auto jump = [&stage](int times) {
        constexpr std::array names = {"Firefox", "Notes",    "Firefox",
                                      "Mail",    "Invoices", "Terminal"};
        for (int i = 0; i < times; ++i)
            stage.agent().stats().record(
                i % 7 == 6 ? Kind::switcher : Kind::keyboard,
                QString::fromLatin1(names[static_cast<std::size_t>(i) % names.size()]));
        stage.settle();
    };
    for (const int jumps : perWeek) {
        jump(jumps);
        stage.desk().advance(std::chrono::days(7));
    }
    for (const int jumps : {8, 11, 5, 14, 20}) {
        jump(jumps);
        if (jumps != 20)
            stage.desk().advance(std::chrono::days(1));
    }
}
// Everything that is due was shown before.
void celebrateAll(Stage& stage) {
    auto& stats = stage.agent().stats();
    while (const auto milestone = stats.nextMilestone())
        stats.celebrate(milestone->id);
    while (const auto recap = stats.weeklyRecap())
        stats.celebrate(recap->id);
    for (const char* tip : {"tip.hide", "tip.capture", "tip.drop", "tip.voice"})
        stats.celebrate(QString::fromLatin1(tip));
}
QQuickView& card(Stage& stage) {
    fill(stage, usualShortcuts);
    jumpAround(stage);
    celebrateAll(stage);
    return on(stage, PopoverScreen::list);
}
QQuickView& cardMilestone(Stage& stage) {
    fill(stage, usualShortcuts);
    jumpAround(stage);
    return rested(stage, on(stage, PopoverScreen::list));
}
QQuickView& cardRecap(Stage& stage) {
    fill(stage, usualShortcuts);
    jumpAround(stage);
    auto& stats = stage.agent().stats();
    while (const auto milestone = stats.nextMilestone())
        stats.celebrate(milestone->id);
    return rested(stage, on(stage, PopoverScreen::list));
}
QQuickView& cardTip(Stage& stage) {
    cardRecap(stage);
    stage.agent().shell().closePopover();
    return rested(stage, on(stage, PopoverScreen::list));
}
QQuickView& statistics(Stage& stage) {
    card(stage);
    return on(stage, PopoverScreen::statistics);
}
QQuickView& statisticsShared(Stage& stage) {
    statistics(stage);
    stage.item(u"savePicture"_s).forceActiveFocus(Qt::TabFocusReason);
    stage.press(Qt::Key_Return);
    return stage.popover();
}
QQuickView& statisticsNothing(Stage& stage) {
    fill(stage, usualShortcuts);
    return on(stage, PopoverScreen::statistics);
}

// The web service has an answer, and the run before ended by a crash.
void serve(Stage& stage) {
    auto& desk = stage.desk();
    desk.http().setAnswer(
        u"/version.json"_s,
        platform::HttpReply{200,
                            R"({"version":"1.1","build":"52",)"
                            R"("url":"https://service.example/1.1",)"
                            R"("notes":"Jumps are faster, and there is a window switcher."})"});
    desk.advance(1s); // after the check of the start
    stage.agent().updates().check();
    desk.advance(1s);
    stage.settle();
}
QQuickView& listUpdate(Stage& stage) {
    serve(stage);
    return list(stage);
}
QQuickView& crash(Stage& stage) {
    stage.desk().files().put(
        stage.desk().appInfo().supportFolder + u"/pending-crash.json"_s,
        R"({"type":"signal","name":"SIGSEGV","stack":"skipnest+0x2f1c80\nskipnest+0x2f0b14\n)"
        R"(libQt6Core.so.6.4.2+0x1a2f40\nlibQt6Core.so.6.4.2+0x1a3370\nlibc.so.6+0x2724a\n)"
        R"(skipnest+0x11e75"})");
    stage.list().changeSettings([](auto& settings) { settings.crashReports = true; });
    list(stage);
    return stage.popover();
}
QQuickView& crashReport(Stage& stage) {
    crash(stage);
    return on(stage, PopoverScreen::crash);
}
QQuickView& settingsPrivacy(Stage& stage) {
    settings(stage);
    stage.panels().popoverModel().settings()->setFilter(
        QCoreApplication::translate("Settings", "Privacy"));
    return stage.popover();
}

void browsers(sim::SimDesktop& desk) {
    desk.browserExtensions().setBrowsers(test::severalBrowsers());
}
QQuickView& browserList(Stage& stage) {
    return on(stage, PopoverScreen::browsers);
}
QQuickView& browserPage(Stage& stage, const QString& identifier) {
    stage.show({PopoverScreen::browsers, {}, identifier});
    return stage.popover();
}
QQuickView& browserWaits(Stage& stage) {
    return browserPage(stage, u"org.chromium.Chromium"_s);
}
QQuickView& browserConnected(Stage& stage) {
    return browserPage(stage, u"com.brave.Browser"_s);
}
QQuickView& browserSigned(Stage& stage) {
    return browserPage(stage, u"org.mozilla.firefox"_s);
}
QQuickView& browserSettings(Stage& stage) {
    settings(stage);
    stage.panels().popoverModel().settings()->setFilter(u"Browser"_s);
    return stage.popover();
}

QQuickView& feedback(Stage& stage) {
    on(stage, PopoverScreen::feedback);
    stage.item(u"feedbackCategory"_s).forceActiveFocus();
    stage.press(Qt::Key_Right);
    stage.click(stage.item(u"feedbackMessage"_s));
    stage.type(u"The list could show when a key was last used."_s);
    return stage.popover();
}

QQuickView& challengeJoin(Stage& stage) {
    on(stage, PopoverScreen::challenge);
    stage.type(u"Ada"_s);
    return stage.popover();
}
QQuickView& challengeCountry(Stage& stage) {
    challengeJoin(stage);
    stage.press(Qt::Key_Tab);
    stage.type(u"ver"_s);
    return stage.popover();
}
QQuickView& challengeTaken(Stage& stage) {
    stage.desk().http().setAnswer(u"/leaderboard.php"_s,
                                  platform::HttpReply{200, R"({"available":false})"});
    challengeJoin(stage);
    stage.press(Qt::Key_Return);
    stage.desk().advance(1s);
    stage.settle();
    return stage.popover();
}
QQuickView& challengeBoard(Stage& stage) {
    on(stage, PopoverScreen::challenge);
    stage.desk().advance(1s);
    stage.settle();
    return stage.popover();
}
QQuickView& challengeUnreachable(Stage& stage) {
    stage.desk().http().setAnswer(u"/leaderboard.php"_s, platform::HttpReply{503, {}});
    return challengeBoard(stage);
}
QQuickView& challengeRename(Stage& stage) {
    challengeBoard(stage);
    stage.click(stage.item(u"challengeRename"_s));
    return stage.popover();
}
QQuickView& challengeLeave(Stage& stage) {
    challengeBoard(stage);
    stage.click(stage.item(u"challengeAskToLeave"_s));
    return stage.popover();
}

// Of the onboarding window, one step after the other.
QQuickView& welcome(Stage& stage) {
    return stage.onboarding();
}
QQuickView& firstShortcut(Stage& stage) {
    stage.press(stage.onboarding(), Qt::Key_Return);
    stage.press(stage.onboarding(), Qt::Key_Return);
    return stage.onboarding();
}
QQuickView& firstShortcutSearch(Stage& stage) {
    stage.press(stage.onboarding(), Qt::Key_Return);
    stage.type(stage.onboarding(), u"mi"_s);
    stage.desk().advance(200ms);
    stage.settle();
    return stage.onboarding();
}
QQuickView& tryIt(Stage& stage) {
    firstShortcut(stage);
    stage.press(stage.onboarding(), Qt::Key_Return);
    return stage.onboarding();
}
QQuickView& tryItWorks(Stage& stage) {
    tryIt(stage);
    stage.desk().pressHotkey({3, carbonControlOption});
    stage.settle();
    return stage.onboarding();
}
QQuickView& tryItWayland(Stage& stage) {
    stage.desk().hotkeys().setAvailability(
        {Availability::State::unavailable, u"A Wayland desktop gives no program keys of its own."_s,
         u"Bind them in its settings."_s});
    return tryIt(stage);
}
QQuickView& tryItTaken(Stage& stage) {
    firstShortcut(stage);
    stage.desk().hotkeys().refuse({3, carbonControlOption}, 10);
    stage.press(stage.onboarding(), Qt::Key_Return);
    return stage.onboarding();
}
QQuickView& gesture(Stage& stage) {
    tryIt(stage);
    stage.press(stage.onboarding(), Qt::Key_Return);
    return stage.onboarding();
}
QQuickView& gestureShift(Stage& stage) {
    platform::DesktopShortcutReading reading;
    reading.reactsToSuperTap = true;
    reading.superTapOwner = u"GNOME"_s;
    stage.desk().desktopShortcuts().set(reading);
    stage.agent().ledger().refresh();
    return gesture(stage);
}
QQuickView& done(Stage& stage) {
    gesture(stage);
    stage.press(stage.onboarding(), Qt::Key_Return);
    return stage.onboarding();
}

// Of the switcher's bar.
QQuickView& bar(Stage& stage, const test::SwitcherScene::Content& content, bool hasPreviews) {
    // One at a time; it goes after the stage that it is on.
    static std::unique_ptr<test::SwitcherScene> scene;
    scene = std::make_unique<test::SwitcherScene>(stage);
    scene->show(content);
    for (int i = 0; hasPreviews && i < static_cast<int>(content.windows.size()); ++i)
        scene->model().setImage(i, test::windowPicture(i));
    return rested(stage, scene->view());
}
QString writer(Stage& stage) {
    stage.desk().installApp({.name = u"Writer"_s, .path = u"/Applications/Writer.app"_s});
    return u"/Applications/Writer.app"_s;
}
template <int windows> QQuickView& barWindows(Stage& stage) {
    return bar(stage, test::windowSession(windows, writer(stage)), true);
}
// What programs and pages put into titles.
QQuickView& barOddTitles(Stage& stage) {
    auto content = test::windowSession(6, writer(stage));
    const std::array titles{u"W"_s.repeated(10000),
                            u"/home/ada/Documents/2026/Übersicht der Reisekosten.ods"_s,
                            u"\u202eevil\u202c\t\r\n\x1b[31m"_s,
                            u"<b>bold</b> &amp; <img src='x'>"_s,
                            u"טיוטה 7 של התוכנית.odt"_s,
                            u"Ärger mit Öl: Ümläute ÄÖÜ gjpqy"_s};
    for (std::size_t i = 0; i < titles.size(); ++i)
        content.windows[i].title = titles[i];
    return bar(stage, content, true);
}
QQuickView& barOddTabs(Stage& stage) {
    auto content = test::tabSession(6);
    content.tabs[0].title.clear();
    content.tabs[1].title = u"W"_s.repeated(10000);
    content.tabs[2].title = u"<i>x</i>\nÄÖÜ gjpqy"_s;
    return bar(stage, content, false);
}
QQuickView& barIcons(Stage& stage) {
    auto content = test::windowSession(4, writer(stage));
    content.isPinned = false;
    return bar(stage, content, false);
}
QQuickView& barBrowser(Stage& stage) {
    return bar(stage, test::browserSession(3), true);
}
QQuickView& barTabs(Stage& stage) {
    return bar(stage, test::tabSession(14), false);
}
QQuickView& barManyTabs(Stage& stage) {
    return bar(stage, test::tabSession(140), false);
}
QQuickView& barSearch(Stage& stage) {
    auto content = test::searchSession(u"git"_s);
    content.selResult = 1;
    return bar(stage, content, true);
}
QQuickView& barNothingFound(Stage& stage) {
    return bar(stage, test::searchSession(u"quaint"_s), true);
}

struct Picture {
    QStringView name;
    Setup setup;
    QQuickView& (*prepare)(Stage&);
    void (*furnishMore)(sim::SimDesktop&) = [](sim::SimDesktop&) {}; // before the launch
};
constexpr auto pictures = std::to_array<Picture>({
    {u"list", Setup::countsAsDone, list},
    {u"list-names", Setup::countsAsDone, listNames},
    {u"list-empty", Setup::countsAsDone, listEmpty},
    {u"list-refused", Setup::countsAsDone, listRefused},
    {u"list-unbound", Setup::countsAsDone, listUnbound},
    {u"add", Setup::countsAsDone, add},
    {u"add-recording", Setup::countsAsDone, addRecording},
    {u"add-conflict", Setup::countsAsDone, addConflict},
    {u"import", Setup::countsAsDone, importing},
    {u"import-empty", Setup::countsAsDone, importEmpty},
    {u"export", Setup::countsAsDone, exporting},
    {u"settings", Setup::countsAsDone, settings},
    {u"settings-keys", Setup::countsAsDone, settingsKeys},
    {u"card", Setup::countsAsDone, card},
    {u"card-milestone", Setup::countsAsDone, cardMilestone},
    {u"card-recap", Setup::countsAsDone, cardRecap},
    {u"card-tip", Setup::countsAsDone, cardTip},
    {u"statistics", Setup::countsAsDone, statistics},
    {u"statistics-shared", Setup::countsAsDone, statisticsShared},
    {u"statistics-nothing", Setup::countsAsDone, statisticsNothing},
    {u"list-update", Setup::countsAsDone, listUpdate},
    {u"list-crash", Setup::countsAsDone, crash},
    {u"crash", Setup::countsAsDone, crashReport},
    {u"settings-privacy", Setup::countsAsDone, settingsPrivacy},
    {u"settings-browsers", Setup::countsAsDone, browserSettings, browsers},
    {u"browsers", Setup::countsAsDone, browserList, browsers},
    {u"browsers-waiting", Setup::countsAsDone, browserWaits, browsers},
    {u"browsers-connected", Setup::countsAsDone, browserConnected, browsers},
    {u"browsers-signed", Setup::countsAsDone, browserSigned, browsers},
    {u"feedback", Setup::countsAsDone, feedback},
    {u"challenge-none", Setup::countsAsDone, challengeJoin, test::removeWebService},
    {u"challenge-join", Setup::countsAsDone, challengeJoin},
    {u"challenge-country", Setup::countsAsDone, challengeCountry},
    {u"challenge-taken", Setup::countsAsDone, challengeTaken},
    {u"challenge-board", Setup::countsAsDone, challengeBoard, test::takePartInChallenge},
    {u"challenge-unreachable", Setup::countsAsDone, challengeUnreachable,
     test::takePartInChallenge},
    {u"challenge-rename", Setup::countsAsDone, challengeRename, test::takePartInChallenge},
    {u"challenge-leave", Setup::countsAsDone, challengeLeave, test::takePartInChallenge},
    {u"bar-1", Setup::countsAsDone, barWindows<1>},
    {u"bar-2", Setup::countsAsDone, barWindows<2>},
    {u"bar-7", Setup::countsAsDone, barWindows<7>},
    {u"bar-20", Setup::countsAsDone, barWindows<20>},
    {u"bar-500", Setup::countsAsDone, barWindows<500>},
    {u"bar-odd", Setup::countsAsDone, barOddTitles},
    {u"bar-odd-tabs", Setup::countsAsDone, barOddTabs},
    {u"bar-icons", Setup::countsAsDone, barIcons},
    {u"bar-browser", Setup::countsAsDone, barBrowser},
    {u"bar-tabs", Setup::countsAsDone, barTabs},
    {u"bar-many-tabs", Setup::countsAsDone, barManyTabs},
    {u"bar-search", Setup::countsAsDone, barSearch},
    {u"bar-nothing", Setup::countsAsDone, barNothingFound},
    {u"onboarding-welcome", Setup::check, welcome},
    {u"onboarding-shortcut", Setup::check, firstShortcut},
    {u"onboarding-search", Setup::check, firstShortcutSearch},
    {u"onboarding-try", Setup::check, tryIt},
    {u"onboarding-works", Setup::check, tryItWorks},
    {u"onboarding-taken", Setup::check, tryItTaken},
    {u"onboarding-wayland", Setup::check, tryItWayland},
    {u"onboarding-gesture", Setup::check, gesture},
    {u"onboarding-gesture-shift", Setup::check, gestureShift},
    {u"onboarding-done", Setup::check, done},
});

// What a person shares is drawn without a window.
bool drawShared(const QDir& folder, model::Theme theme) {
    const ui::StatisticsFigures figures{
        248, 58, 5, 0, {3, 17, 24, 9, 38, 52, 47, 58}, QDate(2026, 2, 23)};
    return ui::statisticsPicture(figures, ui::palette(theme))
        .save(folder.filePath(u"share-%1.png"_s.arg(model::themeName(theme))));
}

constexpr int smallest = 0; // of a PNG's qualities, all of which are lossless

constexpr std::array themes = {model::Theme::light, model::Theme::dark, model::Theme::brand};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application(argc, argv);

    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption language(u"language"_s, u"In this language."_s, u"CODE"_s, u"en"_s);
    parser.addOption(language);
    parser.addPositionalArgument(u"FOLDER"_s, u"Where the pictures go."_s);
    parser.addPositionalArgument(u"THEME"_s, u"light, dark, brand or all."_s, u"[THEME"_s);
    parser.addPositionalArgument(u"SCREEN"_s, u"Only these."_s, u"[SCREEN...]]"_s);
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        parser.showHelp(2);
    const QLocale locale(parser.value(language));
    QLocale::setDefault(locale);
    ui::installTranslations(application, locale);

    const QDir folder(arguments.first());
    (void)folder.mkpath(u"."_s);
    const QString theme = arguments.value(1, u"all"_s);
    const QStringList wanted = arguments.mid(2);
    for (const model::Theme each : themes)
        if ((wanted.isEmpty() || wanted.contains(u"share"_s)) &&
            (theme == u"all" || theme == model::themeName(each)) && !drawShared(folder, each))
            return 1;
    for (const Picture& picture : pictures) {
        const QString name = picture.name.toString();
        if (!wanted.isEmpty() && !wanted.contains(name))
            continue;
        for (const model::Theme each : themes) {
            if (theme != u"all" && theme != model::themeName(each))
                continue;
            Stage stage;
            launch(stage, picture.setup, each, picture.furnishMore);
            const QString file = folder.filePath(u"%1-%2.png"_s.arg(name, model::themeName(each)));
            if (!stage.picture(picture.prepare(stage)).save(file, "PNG", smallest)) {
                std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(file));
                return 1;
            }
            std::printf("%s\n", qUtf8Printable(file));
        }
    }
    return 0;
}
