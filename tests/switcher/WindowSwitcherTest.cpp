// SPDX-License-Identifier: Apache-2.0
#include "switcher/WindowSwitcher.h"

#include "hotkeys/HotkeyManager.h"
#include "hotkeys/JumpExecution.h"
#include "model/AppConfiguration.h"
#include "platform/sim/SimDesktop.h"
#include "tests/hotkeys/Combos.h"

#include <gmock/gmock.h>

namespace skipnest::switcher {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::EventFlags;
using sim::SimApp;
using test::shortcut;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::uint16_t rightArrow = 124;
constexpr std::uint16_t leftArrow = 123;
constexpr std::uint16_t downArrow = 125;
constexpr std::uint16_t upArrow = 126;
constexpr std::uint16_t tabKey = 48;
constexpr std::uint16_t returnKey = 36;
constexpr std::uint16_t escapeKey = 53;
constexpr std::uint16_t deleteKey = 51;
constexpr std::uint16_t letterKey = 0;

class NoCounter final : public hotkeys::JumpCounter {
public:
    void countKeyboardJump(const QString&) override {}
    void countHide() override {}
};

// A person with shortcuts for Notes, Mail and Chrome, and Notes with four windows in front.
class WindowSwitcherTest : public testing::Test {
protected:
    WindowSwitcherTest() {
        install("Mail", "com.example.mail", {{u"Post"_s}});
        install("Chrome", "com.google.Chrome", {{u"Git - Chrome"_s}, {u"News - Chrome"_s}});
        install("Notes", "com.example.notes", {{u"A"_s}, {u"B"_s}, {u"C"_s}, {u"D"_s}});
        desk.bringToFront(u"Notes"_s);
        desk.scripts().setTabs(u"com.google.Chrome"_s, {platform::ScriptText{tabs}});
        switcher.setShortcuts([this](const model::KeyCombo& combo) {
            return std::ranges::any_of(manager.registered(), [&](const auto& entry) {
                return entry.hotkey.combo == combo;
            });
        });
        hotkeys::HotkeyActions actions;
        actions.onJump = [this](const model::ShortcutItem& item) { jumps.jump(item, desk.now()); };
        manager.registerAll({shortcut("Notes", "/Applications/Notes.app", "ctrl+opt+n"),
                             shortcut("Mail", "/Applications/Mail.app", "opt+k"),
                             shortcut("Chrome", "/Applications/Chrome.app", "ctrl+opt+c")},
                            {}, actions);
        desk.journal().clear();
    }
    void install(const char* name, const char* bundle, std::vector<sim::SimWindow> windows) {
        desk.installApp({.name = QString::fromLatin1(name),
                         .bundleIdentifier = QString::fromLatin1(bundle),
                         .path = u"/Applications/%1.app"_s.arg(QLatin1String(name)),
                         .windows = std::move(windows)});
    }
    void front(const char* name) { desk.bringToFront(QString::fromLatin1(name)); }
    void hold(const char* combo) { desk.pressHotkey(test::pressed(combo)); }
    void release() { desk.changeModifiers(58, {}); }
    // The bar stays after this, pinned.
    void tap(const char* combo) {
        hold(combo);
        release();
        desk.advance(30ms);
    }
    bool key(std::uint16_t code, const QString& text = {}, std::uint64_t flags = 0,
             bool isRepeat = false) {
        return desk.pressKey(platform::KeyPress{code, {flags}, text, isRepeat, desk.now()});
    }
    void type(const QString& text) {
        for (const QChar character : text)
            EXPECT_TRUE(key(letterKey, character));
    }

    // "windows A [B] C D pinned".
    std::string bar() {
        if (!switcher.isOpen())
            return "closed";
        const SwitcherModel::Content& content = switcher.model().content();
        QString line;
        const auto add = [&line](const auto& rows, int selected) {
            for (const auto& row : rows)
                line += (row.id == selected ? u" [%1]"_s : u" %1"_s).arg(row.title);
        };
        switch (content.level) {
        case WindowSwitcher::Level::windows:
            line = u"windows"_s;
            add(content.windows, content.selWin);
            break;
        case WindowSwitcher::Level::tabs:
            line = u"tabs"_s;
            add(content.tabs, content.selTab);
            break;
        case WindowSwitcher::Level::search:
            line = u"search '%1':"_s.arg(content.query);
            add(content.results, content.selResult);
            break;
        }
        return (line + (content.isPinned ? u" pinned"_s : QString())).toStdString();
    }
    std::vector<std::string> log() {
        auto lines = desk.journal().logLines();
        std::erase_if(lines, [](const std::string& line) { return line.starts_with("open '"); });
        desk.journal().clear();
        return lines;
    }

    static constexpr auto tabs = "1\u00011\u0001Git\u00011\u0001https://git.example/\n"
                                 "1\u00012\u0001Mail\u00010\u0001https://mail.example/\n"
                                 "2\u00011\u0001News\u00011\u0001https://news.example/\n"
                                 "2\u00012\u0001Legit\u00010\u0001https://x.example/\n"_L1;
    sim::SimDesktop desk;
    NoCounter counter;
    BrowserTabs browser{desk.ports()};
    std::vector<std::string> committed;
    WindowSwitcher switcher{desk.ports(), browser, [this](const QString& name) {
                                committed.push_back(name.toStdString());
                            }};
    hotkeys::FocusTracker focus{desk.ports().workspace, desk.appInfo().pid};
    hotkeys::JumpExecution jumps{desk.ports(), focus, switcher, counter};
    hotkeys::HotkeyManager manager{desk.ports().hotkeys, desk.ports().keyboardLayout,
                                   desk.ports().diagnostics, desk.ports().scheduler};
};

TEST_F(WindowSwitcherTest, holdingAdvancesAndLettingGoPicks) {
    hold("ctrl+opt+n");
    EXPECT_EQ(bar(), "windows [A] B C D");
    EXPECT_TRUE(desk.panels().isSwitcherShown());
    desk.advance(690ms);
    EXPECT_EQ(bar(), "windows [A] B C D");
    desk.advance(30ms);
    EXPECT_EQ(bar(), "windows A [B] C D");
    desk.advance(2280ms);
    EXPECT_EQ(bar(), "windows [A] B C D"); // four steps in three seconds, once around
    desk.advance(720ms);
    release();
    desk.advance(30ms);
    EXPECT_EQ(bar(), "closed");
    EXPECT_FALSE(desk.panels().isSwitcherShown());
    EXPECT_THAT(committed, ElementsAre("Notes"));
    EXPECT_THAT(log(),
                ElementsAre("switcher: Notes: AX=4 menu=0",
                            "switcher: begin hold=786432 down=true browser=false windows=4",
                            "switcher: CGEventTap installed", "switcher: commit(modifier released)",
                            "raise 'B': main=0 focus=0 raise=0 front=0"));
    EXPECT_FALSE(desk.keyEvents().isIntercepted());
    EXPECT_FALSE(desk.pointer().isObserved());
    EXPECT_THAT(desk.runningTimers(), Not(Contains(u"switcher poll"_s)));
}

TEST_F(WindowSwitcherTest, aReleaseThatNobodyToldOfIsSeen) {
    hold("ctrl+opt+n");
    desk.advance(720ms);
    desk.keyEvents().setModifiersDown({});
    desk.advance(30ms);
    EXPECT_THAT(committed, ElementsAre("Notes"));
}

TEST_F(WindowSwitcherTest, heldForTooLongItPicks) {
    hold("ctrl+opt+n");
    desk.advance(20s);
    EXPECT_NE(bar(), "closed");
    desk.advance(100ms);
    EXPECT_EQ(bar(), "closed");
    EXPECT_THAT(log(), Contains("switcher: commit(safety timeout)"));
}

TEST_F(WindowSwitcherTest, aTapStaysAndGoesWhenNobodyCares) {
    tap("ctrl+opt+n");
    EXPECT_EQ(bar(), "windows [A] B C D pinned");
    desk.advance(19s);
    hold("ctrl+opt+n");
    EXPECT_EQ(bar(), "windows A [B] C D pinned");
    desk.advance(20s);
    EXPECT_EQ(bar(), "windows A [B] C D pinned");
    desk.advance(30ms);
    EXPECT_EQ(bar(), "closed");
    EXPECT_THAT(committed, IsEmpty());
    EXPECT_THAT(log(), Contains("switcher: tap-open → interactive"));
}

TEST_F(WindowSwitcherTest, arrowsAndTabStepAndPinTheBar) {
    hold("ctrl+opt+n");
    EXPECT_TRUE(key(leftArrow));
    EXPECT_EQ(bar(), "windows A B C [D] pinned");
    key(rightArrow);
    key(tabKey);
    key(rightArrow, {}, 0, true); // a repeat goes on
    EXPECT_EQ(bar(), "windows A B [C] D pinned");
    key(tabKey, u"\t"_s, EventFlags::shift);
    key(upArrow);
    key(downArrow); // no tabs to go down to
    EXPECT_EQ(bar(), "windows A [B] C D pinned");
    release();
    desk.advance(5s);
    EXPECT_EQ(bar(), "windows A [B] C D pinned");
    key(returnKey, u"\r"_s, 0, true);
    EXPECT_NE(bar(), "closed");
    key(returnKey, u"\r"_s);
    EXPECT_EQ(bar(), "closed");
    const auto lines = log();
    EXPECT_EQ(std::ranges::count(lines, "switcher: pinned (interactive)"), 1);
    EXPECT_THAT(lines, Contains("switcher: commit(return)"));
}

TEST_F(WindowSwitcherTest, keysThatAreNotTheBarsPass) {
    EXPECT_FALSE(key(rightArrow));
    tap("ctrl+opt+n");
    EXPECT_FALSE(key(letterKey, u"a"_s, EventFlags::command));
    EXPECT_FALSE(key(letterKey, u"a"_s, EventFlags::control));
    EXPECT_FALSE(key(96, {}));           // F5
    EXPECT_FALSE(key(115, u"\u0001"_s)); // Home, with what some systems say it types
    EXPECT_TRUE(key(letterKey, u"a"_s, EventFlags::alternate));
    EXPECT_TRUE(key(letterKey, u"a"_s, 0, true));
    EXPECT_EQ(bar(), "search 'a': [A] pinned");
}

TEST_F(WindowSwitcherTest, aShortcutHeldDownNeitherTypesNorPins) {
    front("Mail");
    install("Mail", "com.example.mail", {{u"Post"_s}, {u"Kept"_s}});
    hold("opt+k");
    EXPECT_EQ(bar(), "windows [Post] Kept");
    EXPECT_TRUE(key(40, u"k"_s, EventFlags::alternate, true));
    EXPECT_EQ(bar(), "windows [Post] Kept");
    hold("opt+k");
    EXPECT_EQ(bar(), "windows Post [Kept]");
}

TEST_F(WindowSwitcherTest, anotherShortcutClosesTheBarAndJumps) {
    tap("ctrl+opt+n");
    hold("opt+k");
    desk.advance(1s);
    EXPECT_EQ(bar(), "closed");
    EXPECT_EQ(desk.frontApp(), u"Mail"_s);
    EXPECT_THAT(committed, IsEmpty());
}

TEST_F(WindowSwitcherTest, escapeGoesBackAndThenCloses) {
    front("Chrome");
    tap("ctrl+opt+c");
    key(downArrow);
    EXPECT_EQ(bar(), "tabs [Git] Mail pinned");
    key(upArrow);
    EXPECT_EQ(bar(), "tabs Git [Mail] pinned");
    type(u"ne"_s);
    EXPECT_EQ(bar(), "search 'ne': [News] pinned");
    key(escapeKey, u"\u001b"_s, 0, true);
    EXPECT_EQ(bar(), "search 'ne': [News] pinned");
    key(escapeKey);
    EXPECT_EQ(bar(), "windows [Git] News pinned");
    key(escapeKey);
    EXPECT_EQ(bar(), "closed");
    EXPECT_THAT(committed, IsEmpty());
    EXPECT_THAT(log(), Contains("switcher: Escape → cancel"));
}

TEST_F(WindowSwitcherTest, searchKeepsTheTabsThatHaveTheQuery) {
    front("Chrome");
    tap("ctrl+opt+c");
    type(u"GIT"_s);
    EXPECT_EQ(bar(), "search 'GIT': [Git] Legit pinned");
    type(u"x"_s);
    EXPECT_EQ(bar(), "search 'GITx': pinned");
    key(returnKey); // nothing to pick: closes, and counts nothing
    EXPECT_EQ(bar(), "closed");
    EXPECT_THAT(committed, IsEmpty());
    EXPECT_THAT(log(), Contains("switcher: query='GITx' matches=0"));

    tap("ctrl+opt+c");
    type(u"e\u0301"_s.normalized(QString::NormalizationForm_C) + u"x"_s);
    key(deleteKey);
    key(deleteKey);
    key(deleteKey);
    EXPECT_EQ(bar(), "search '': [Git] Mail News Legit pinned");
    type(u"mail.ex"_s); // of the address
    EXPECT_EQ(bar(), "search 'mail.ex': [Mail] pinned");
    key(deleteKey);
    EXPECT_EQ(bar(), "search 'mail.e': [Mail] pinned");
}

TEST_F(WindowSwitcherTest, tabsHitsAndBrowserWindowsArePicked) {
    struct Row {
        std::function<void()> pick;
        const char* reason;
    };
    const Row windowPicks[] = {
        {[this] { switcher.model().onPickWindow(1); }, "switcher: commit(click window)"},
        {[this] {
             key(rightArrow);
             key(returnKey);
         },
         "switcher: commit(return)"},
    };
    for (const Row& row : windowPicks) {
        front("Chrome");
        tap("ctrl+opt+c");
        committed.clear();
        row.pick();
        EXPECT_EQ(bar(), "closed");
        const auto lines = log();
        EXPECT_THAT(lines, Contains(row.reason));
        EXPECT_THAT(lines, Contains(HasSubstr("raise 'News - Chrome'")));
        EXPECT_THAT(committed, ElementsAre("Chrome"));
    }

    front("Chrome");
    tap("ctrl+opt+c");
    key(downArrow);
    desk.journal().clear();
    switcher.model().onPickTab(1);
    EXPECT_THAT(desk.journal().calls(), Contains(HasSubstr("script")));
    EXPECT_THAT(log(), Contains("switcher: commit(click tab)"));
    tap("ctrl+opt+c");
    type(u"legit"_s);
    switcher.model().onPickResult(7); // there is no such hit
    EXPECT_EQ(bar(), "search 'legit': [Legit] pinned");
    switcher.model().onPickResult(0);
    EXPECT_THAT(log(), Contains("switcher: commit(click result)"));
}

TEST_F(WindowSwitcherTest, aSingleBrowserWindowShowsItsTabs) {
    desk.scripts().setTabs(
        u"com.google.Chrome"_s,
        {platform::ScriptText{
            u"1\u00011\u0001One\u00011\u0001\n1\u00012\u0001Two\u00010\u0001\n"_s}});
    front("Chrome");
    hold("ctrl+opt+c");
    EXPECT_EQ(bar(), "tabs [One] Two");
    desk.advance(1s); // tabs do not advance by themselves
    EXPECT_EQ(bar(), "tabs [One] Two");
    hold("ctrl+opt+c");
    EXPECT_EQ(bar(), "tabs One [Two]");
}

TEST_F(WindowSwitcherTest, tooFewTabsFallBackToWindowsOnce) {
    const platform::ScriptAnswer answers[] = {
        platform::ScriptText{u"1\u00011\u0001Git\u00011\u0001https://git.example/\n"_s},
        platform::ScriptError{-600, u"not running"_s}, platform::ScriptBudgetExceeded{}};
    for (const auto& answer : answers) {
        desk.scripts().setTabs(u"com.google.Chrome"_s, {answer});
        front("Chrome");
        log();
        tap("ctrl+opt+c");
        EXPECT_EQ(bar(), "windows [Git - Chrome] News - Chrome pinned");
        const auto lines = log();
        EXPECT_EQ(std::ranges::count_if(
                      lines, [](const auto& line) { return line.ends_with("window fallback"); }),
                  1);
        key(escapeKey);
    }
}

TEST_F(WindowSwitcherTest, oneWindowIsNothingToSwitchBetween) {
    front("Mail");
    log();
    hold("opt+k");
    EXPECT_EQ(bar(), "closed");
    EXPECT_THAT(log(), Contains("switcher: only 1 window(s) total"));
}

TEST_F(WindowSwitcherTest, withoutAccessibilityThePersonIsAskedOnce) {
    front("Chrome");
    desk.setTrust({.accessibility = false});
    desk.journal().clear();
    hold("ctrl+opt+c");
    EXPECT_EQ(bar(), "closed");
    const auto calls = desk.journal().calls();
    EXPECT_EQ(std::ranges::count(calls, "accessibilityPrompt"), 1);
    EXPECT_THAT(calls, Contains(HasSubstr("Privacy_Accessibility")));
    EXPECT_THAT(log(), Contains("switcher: Accessibility missing → prompting"));
}

TEST_F(WindowSwitcherTest, withoutTheKeyboardHoldingStillWorks) {
    desk.keyEvents().refuseInterceptors();
    hold("ctrl+opt+n");
    desk.advance(720ms);
    release();
    desk.advance(30ms);
    EXPECT_THAT(committed, ElementsAre("Notes"));
    EXPECT_THAT(log(), Contains("switcher: CGEventTap create failed — arrows/search off "
                                "(hold-cycle only)"));
}

TEST_F(WindowSwitcherTest, anApplicationThatEndsTakesTheBarWithIt) {
    tap("ctrl+opt+n");
    desk.quitApp(u"Notes"_s);
    desk.advance(30ms);
    EXPECT_EQ(bar(), "closed");
    EXPECT_FALSE(desk.keyEvents().isIntercepted());
}

TEST_F(WindowSwitcherTest, aWindowThatHasGoneIsStillAPickThatHarmsNothing) {
    tap("ctrl+opt+n");
    install("Notes", "com.example.notes", {{u"A"_s}});
    switcher.model().onPickWindow(3);
    desk.advance(1s);
    EXPECT_EQ(bar(), "closed");
    EXPECT_THAT(log(), Contains(HasSubstr("MISMATCH")));
}

TEST_F(WindowSwitcherTest, thePointerSelectsPicksAndLeaves) {
    tap("ctrl+opt+n");
    switcher.model().onHoverWindow(2);
    EXPECT_EQ(bar(), "windows A B [C] D pinned");
    switcher.model().onHoverWindow(4);
    EXPECT_EQ(bar(), "windows A B [C] D pinned");
    desk.clickOutside();
    EXPECT_EQ(bar(), "closed");
    EXPECT_THAT(log(), Contains("switcher: click outside — dismissing"));
    switcher.model().onPickWindow(0);
    switcher.model().onHoverWindow(0);
    EXPECT_THAT(committed, IsEmpty());
}

TEST_F(WindowSwitcherTest, windowsOfTheMenuAloneAreRaisedThere) {
    desk.installApp({.name = u"Notes"_s,
                     .bundleIdentifier = u"com.example.notes"_s,
                     .path = u"/Applications/Notes.app"_s,
                     .windows = {{u"A"_s}},
                     .menuBar = 3,
                     .windowMenu = {{u"Minimize"_s}, {u"A"_s, u"✓"_s}, {u"Elsewhere"_s}}});
    tap("ctrl+opt+n");
    EXPECT_EQ(bar(), "windows [A] Elsewhere pinned");
    switcher.model().onPickWindow(1);
    EXPECT_THAT(log(), Contains("menu-raise: press 'Elsewhere' err=0"));
}

TEST_F(WindowSwitcherTest, manyWindowsWithOddTitles) {
    std::vector<sim::SimWindow> windows = {{QString(10000, u'x')},
                                           {u"\u202eשלום\u0000\n\t"_s},
                                           {u"%1 %2 <b>"_s},
                                           {QString(QChar(0xd83d))}};
    while (windows.size() < 500)
        windows.push_back({u"Window %1"_s.arg(windows.size())});
    install("Notes", "com.example.notes", windows);
    tap("ctrl+opt+n");
    EXPECT_EQ(switcher.model().content().windows.size(), 500U);
    key(leftArrow);
    EXPECT_EQ(switcher.model().content().selWin, 499);
    type(u"%2"_s);
    EXPECT_EQ(switcher.model().content().results.size(), 1U);
    key(returnKey);
    EXPECT_THAT(log(), Contains("switcher: query='%2' matches=1"));
}

} // namespace
} // namespace skipnest::switcher
