// SPDX-License-Identifier: Apache-2.0
#include "app/AppDelegate.h"
#include "platform/sim/SimDesktop.h"
#include "tests/hotkeys/Combos.h"

#include <gmock/gmock.h>

namespace skipnest::app {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::NotificationCenter;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class MenuBarShellTest : public testing::Test {
protected:
    MenuBarShellTest() {
        desk.installApp({.name = u"Notes"_s, .path = u"/Applications/Notes.app"_s});
        agent.launch();
        desk.runPosted();
        desk.journal().clear();
    }

    sim::SimDesktop desk;
    int quits = 0;
    AppDelegate agent{
        desk.ports(),
        {.setup = AppDelegate::Options::Setup::countsAsDone, .quit = [this] { ++quits; }}};
    MenuBarShell& shell() { return agent.shell(); }
};

TEST_F(MenuBarShellTest, clicksAndTheChordToggleAndEveryToggleIsLogged) {
    desk.statusItem().click();
    EXPECT_EQ(desk.panels().popoverFrame().top(), 24 + 4) << "below the icon";
    agent.notifications().post(NotificationCenter::toggleMainPopover());
    agent.notifications().post(NotificationCenter::toggleMainPopover());
    agent.notifications().post(NotificationCenter::closePopover());
    agent.notifications().post(NotificationCenter::closePopover());
    EXPECT_THAT(desk.journal().panels(), ElementsAre("popover state=list", "popover state=closed",
                                                     "popover state=list", "popover state=closed"));
    EXPECT_THAT(desk.journal().logLines(), ElementsAre("popover toggled via ⌃⌥ (shown=true)",
                                                       "popover toggled via ⌃⌥ (shown=false)",
                                                       "popover toggled via ⌃⌥ (shown=true)"));
}

// The click that closes the popover first takes its focus, which hides it.
TEST_F(MenuBarShellTest, aClickRightAfterThePopoverLostTheFocusClosesIt) {
    const struct {
        platform::Duration gap;
        bool shown;
    } rows[] = {{0ms, false}, {300ms, false}, {301ms, true}};
    for (const auto& row : rows) {
        shell().showPopover();
        desk.panels().clickOutside();
        desk.advance(row.gap);
        desk.statusItem().click();
        EXPECT_EQ(desk.panels().isPopoverShown(), row.shown) << row.gap.count();
        desk.statusItem().click();
        EXPECT_NE(desk.panels().isPopoverShown(), row.shown) << "the click after that";
        shell().closePopover();
    }
    shell().showPopover();
    shell().closePopover();
    desk.statusItem().click();
    EXPECT_TRUE(desk.panels().isPopoverShown()) << "it was closed by us, not by this click";
}

TEST_F(MenuBarShellTest, theMenuOffersTheFirstBoundTargetsAndWhatThisProgramCanDo) {
    EXPECT_EQ(
        desk.statusItem().menuTitles(),
        (QStringList{u"Open"_s, u"-"_s, u"Settings"_s, u"Check for Updates"_s, u"-"_s, u"Quit"_s}));
    model::ShortcutListViewModel& list = agent.viewModel();
    list.addShortcut(u"/tmp/unbound"_s);
    for (int i = 0; i < 7; ++i)
        list.addShortcut(i == 1 ? u"/Applications/Notes.app"_s : u"/tmp/two \n lines%1"_s.arg(i),
                         model::KeyCombo{static_cast<std::uint16_t>(18 + i), {6}}, std::nullopt);
    EXPECT_EQ(desk.statusItem().menuTitles().mid(2, 6),
              (QStringList{u"two lines0"_s, u"Notes"_s, u"two lines2"_s, u"two lines3"_s,
                           u"two lines4"_s, u"-"_s}));
    desk.statusItem().choose(u"Notes"_s);
    EXPECT_THAT(desk.journal().calls(),
                ElementsAre("openApplication path=/Applications/Notes.app"));
    desk.statusItem().choose(u"Settings"_s);
    EXPECT_EQ(shell().route().screen, platform::PopoverScreen::settings);
    desk.statusItem().choose(u"Quit"_s);
    EXPECT_EQ(quits, 1);
}

TEST_F(MenuBarShellTest, theMenuFollowsTheUse) {
    model::ShortcutListViewModel& list = agent.viewModel();
    for (const QString& name : {u"/tmp/a"_s, u"/tmp/b"_s, u"/Applications/Notes.app"_s})
        list.addShortcut(
            name, model::KeyCombo{static_cast<std::uint16_t>(18 + list.shortcuts().size()), {6}},
            std::nullopt);
    desk.statusItem().choose(u"Notes"_s);
    desk.runPosted();
    EXPECT_EQ(desk.statusItem().menuTitles().mid(2, 3), (QStringList{u"Notes"_s, u"a"_s, u"b"_s}));
    EXPECT_EQ(agent.stats().store().byTarget.value(u"Notes"_s), 1);
}

// A check that the person asked for ends with an answer, whatever comes of it.
TEST_F(MenuBarShellTest, checkingForUpdatesIsAnswered) {
    const auto check = [this] {
        desk.journal().clear();
        desk.statusItem().choose(u"Check for Updates"_s);
        desk.advance(1s);
        return desk.journal().calls().back();
    };
    desk.advance(1s);
    EXPECT_THAT(check(), HasSubstr("The check for updates failed"));
    const auto release = [this](const char* version) {
        desk.http().setAnswer(u"/version.json"_s,
                              platform::HttpReply{200, QByteArray(R"({"version":")") + version +
                                                           R"(","build":"1","notes":"",)"
                                                           R"("url":"https://example.org/new"})"});
    };
    release("1.0.0");
    EXPECT_THAT(check(), HasSubstr("Skipnest is up to date"));
    release("1.1");
    EXPECT_EQ(check(), "openURL url=https://example.org/new");
    EXPECT_EQ(desk.statusItem().toolTip(), u"Skipnest update available"_s);
}

TEST_F(MenuBarShellTest, anUnconfirmedApplicationIsNotInTheMenu) {
    model::ShortcutItem evil = test::shortcut("Evil", "/tmp/Evil.app", "ctrl+opt+e");
    evil.createdAt = desk.wallClock().nowUtc();
    ASSERT_TRUE(agent.viewModel().merge({evil}));
    EXPECT_FALSE(desk.statusItem().menuTitles().contains(u"Evil"_s));
    EXPECT_FALSE(desk.pressHotkey(test::pressed("ctrl+opt+e")));
    agent.viewModel().confirm(agent.viewModel().shortcuts().front().id);
    EXPECT_TRUE(desk.statusItem().menuTitles().contains(u"Evil"_s));
    EXPECT_TRUE(desk.pressHotkey(test::pressed("ctrl+opt+e")));
}

TEST_F(MenuBarShellTest, aNewIconShowsAtOnce) {
    agent.viewModel().changeSettings(
        [](model::AppConfiguration& config) { config.menuBarIconName = u"star"_s; });
    EXPECT_EQ(desk.statusItem().iconName(), u"star"_s);
}

TEST_F(MenuBarShellTest, theFirstDropThatIsAFileOpensTheAddScreen) {
    ASSERT_TRUE(desk.addFile(u"/Users/person/Grüße 100%.txt"_s));
    const struct {
        QStringList urls;
        const char* added; // the path, or null
        const char* message;
    } rows[] = {
        {{u"file:///Users/person/Gr%C3%BC%C3%9Fe%20100%25.txt\r"_s},
         "/Users/person/Grüße 100%.txt",
         ""},
        {{u"https://example.com"_s, u"/Users/person/Downloads/"_s}, "/Users/person/Downloads", ""},
        {{u"file://localhost/Applications/Notes.app"_s}, "/Applications/Notes.app", ""},
        {{u"file://elsewhere.example/Applications/Notes.app"_s},
         nullptr,
         "is not a file or folder on this computer."},
        {{u"https://example.com/a"_s},
         nullptr,
         "“https://example.com/a” is not a file or folder on this computer."},
        {{u"file:///Users/person/gone\nfile"_s},
         nullptr,
         "“/Users/person/gone file” is not there any more."},
        {{u"\u0000"_s}, nullptr, "is not a file or folder on this computer."},
        {{}, nullptr, "Nothing was dropped."},
    };
    const auto listBefore = agent.viewModel().shortcuts();
    for (const auto& row : rows) {
        shell().closePopover();
        desk.journal().clear();
        const auto added = shell().addDropped(row.urls);
        EXPECT_EQ(added.ok(), row.added != nullptr);
        EXPECT_EQ(desk.panels().isPopoverShown(), row.added != nullptr);
        if (row.added == nullptr) {
            EXPECT_THAT(added.failure().detail.toStdString(), HasSubstr(row.message));
            desk.statusItem().drop(row.urls);
            desk.runPosted();
            ASSERT_EQ(desk.journal().calls().size(), 1U) << "said in an alert too";
            EXPECT_THAT(desk.journal().calls()[0], HasSubstr(row.message));
        } else {
            EXPECT_EQ(desk.panels().route().screen, platform::PopoverScreen::add);
            EXPECT_EQ(desk.panels().route().targetPath, QString::fromUtf8(row.added));
        }
    }
    EXPECT_EQ(agent.viewModel().shortcuts(), listBefore);
}

} // namespace
} // namespace skipnest::app
