// SPDX-License-Identifier: Apache-2.0
#include "switcher/AppWindows.h"

#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

namespace skipnest::switcher {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::AccessibilityStatus;
using sim::SimApp;
using sim::SimWindow;
using testing::ElementsAre;
using testing::IsEmpty;

struct Pair {
    QString a;
    QString b;
    bool match;
};

TEST(TitlesMatch, whenEqualOrOneWithinTheOtherButForAnEllipsis) {
    const Pair pairs[] = {
        {u"Report…"_s, u"Report 2024"_s, true},
        {u"Report 2024"_s, u"Report…"_s, true},
        {u"abc"_s, u"xabcx"_s, true},
        {u"abc"_s, u"abc"_s, true},
        {u"abc"_s, u"ABC"_s, false},
        {u""_s, u""_s, false},
        {u""_s, u"abc"_s, false},
        {u"Report……"_s, u"Report 2024"_s, false},
        {u"Re…port"_s, u"Report"_s, false},
        {u"שלום…"_s, u"שלום עולם"_s, true},
    };
    for (const auto& [a, b, match] : pairs)
        EXPECT_EQ(titlesMatch(a, b), match) << a.toStdString() << " / " << b.toStdString();
}

class AppWindowsTest : public testing::Test {
protected:
    platform::RunningApplication open(SimApp app) {
        app.name = u"Notes"_s;
        app.path = u"/Applications/Notes.app"_s;
        desk.installApp(app);
        desk.bringToFront(u"Notes"_s);
        return *desk.ports().workspace.frontmostApplication();
    }
    static SimApp twoWindows() {
        return {.windows = {{u"Inbox"_s}, {u"Inbox — Notes"_s}},
                .menuBar = 7,
                .windowMenu = {{u"Minimize"_s}, {u"Inbox"_s, u"✓"_s}, {u"Inbox — Notes"_s}}};
    }
    std::vector<std::string> listed(const platform::RunningApplication& app) {
        std::vector<std::string> titles;
        for (const auto& window : windows.list(app))
            titles.push_back(window.title.toStdString());
        return titles;
    }
    void distrust() {
        sim::Trust trust;
        trust.accessibility = false;
        desk.setTrust(trust);
    }

    sim::SimDesktop desk;
    AppWindows windows{desk.ports()};
};

TEST_F(AppWindowsTest, listsTitledStandardWindowsInTheOrderOfTheApplication) {
    const QString longTitle(10'000, u'x');
    auto app = open({.windows = {{u"Minimised"_s, true},
                                 {u"Dialog"_s, false, u"AXDialog"_s},
                                 {u"Unreadable"_s, false, std::nullopt},
                                 {u""_s},
                                 {longTitle},
                                 {u"Framed"_s, false, u"AXStandardWindow"_s, QRectF(1, 2, 3, 4)}},
                     .focused = 5});
    EXPECT_THAT(listed(app), ElementsAre("Minimised", longTitle.toStdString(), "Framed"));
    const auto found = windows.list(app);
    EXPECT_EQ(found[0].frame, std::nullopt);
    EXPECT_EQ(found[2].frame, QRectF(1, 2, 3, 4));
    EXPECT_TRUE(windows.isMinimized(found[0].element));
    EXPECT_EQ(windows.indexOfFocused(app, found), 2U);
}

TEST_F(AppWindowsTest, theMainWindowStandsInForAFocusedOneThatCannotBeRead) {
    SimApp unfocused = twoWindows();
    unfocused.focused = std::nullopt;
    auto app = open(unfocused);
    EXPECT_EQ(windows.indexOfFocused(app, windows.list(app)), 0U);
    unfocused.accessibilityErrors = {{u"AXMainWindow"_s, AccessibilityStatus::cannotComplete}};
    app = open(unfocused);
    EXPECT_FALSE(windows.focusedWindow(app));
    EXPECT_EQ(windows.indexOfFocused(app, windows.list(app)), std::nullopt);
}

TEST_F(AppWindowsTest, nothingIsReadWithoutTrustOrFromWhatFailsOrHasEnded) {
    auto app = open(twoWindows());
    const auto before = windows.list(app);
    ASSERT_EQ(before.size(), 2U);
    distrust();
    EXPECT_THAT(listed(app), IsEmpty());
    EXPECT_TRUE(windows.windowMenuItems(app).empty());
    desk.setTrust({});
    SimApp failing = twoWindows();
    failing.accessibilityErrors = {{u"AXWindows"_s, AccessibilityStatus::cannotComplete},
                                   {u"AXMenuBar"_s, AccessibilityStatus::cannotComplete}};
    app = open(failing);
    EXPECT_THAT(listed(app), IsEmpty());
    EXPECT_TRUE(windows.windowMenuItems(app).empty());
    desk.quitApp(u"Notes"_s);
    EXPECT_EQ(windows.title(before[0].element), std::nullopt);
    EXPECT_FALSE(windows.isMinimized(before[0].element));
}

TEST_F(AppWindowsTest, theWindowMenuIsTheLastButOneAndHasACheckMark) {
    auto app = open(twoWindows());
    const auto items = windows.windowMenuItems(app);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_FALSE(items[0].marked);
    EXPECT_TRUE(items[1].marked);

    SimApp changed = twoWindows();
    changed.menuBar = 1;
    EXPECT_TRUE(windows.windowMenuItems(open(changed)).empty());
    changed.menuBar = 2;
    changed.windowMenu.push_back({u""_s, u"•"_s});
    EXPECT_EQ(windows.windowMenuItems(open(changed)).size(), 3U);
    for (auto& item : changed.windowMenu)
        item.mark = u""_s;
    EXPECT_TRUE(windows.windowMenuItems(open(changed)).empty());
}

TEST_F(AppWindowsTest, raisesAndChecksAQuarterOfASecondLater) {
    const auto app = open(twoWindows());
    desk.journal().clear();
    windows.raise(windows.list(app)[1].element, app, u"Inbox — Notes"_s);
    EXPECT_THAT(desk.journal().calls(),
                ElementsAre("axSet attribute=AXMain title=Inbox — Notes value=true",
                            "axSet attribute=AXFocusedWindow title=Notes value=Inbox — Notes",
                            "raise title=Inbox — Notes",
                            "axSet attribute=AXFrontmost title=Notes value=true",
                            "activate app=Notes options=none"));
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("raise 'Inbox — Notes': main=0 focus=0 raise=0 front=0"));
    desk.journal().clear();
    desk.advance(249ms);
    EXPECT_THAT(desk.journal().logLines(), IsEmpty());
    desk.advance(1ms);
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("raise verify: focused='Inbox — Notes' wanted='Inbox — Notes' → OK"));
}

TEST_F(AppWindowsTest, aMinimisedWindowComesBackBeforeItIsRaised) {
    SimApp notes = twoWindows();
    notes.windows[1].minimized = true;
    notes.accessibilityErrors = {{u"AXMain"_s, AccessibilityStatus::attributeUnsupported},
                                 {u"AXRaise"_s, AccessibilityStatus::actionUnsupported}};
    const auto app = open(notes);
    desk.journal().clear();
    windows.raise(windows.list(app)[1].element, app, u"Other"_s);
    EXPECT_THAT(desk.journal().logLines(), ElementsAre("raise: un-minimize err=0"));
    desk.advance(179ms);
    EXPECT_EQ(desk.journal().logLines().size(), 1U);
    desk.advance(1ms);
    EXPECT_EQ(desk.journal().logLines().back(),
              "raise 'Other': main=-25205 focus=0 raise=-25206 front=0");
    desk.advance(250ms);
    EXPECT_EQ(desk.journal().logLines().back(),
              "raise verify: focused='Inbox — Notes' wanted='Other' → MISMATCH");
}

// The window closes between the listing and the pick, and the next one of that place is another.
TEST_F(AppWindowsTest, aWindowThatHasClosedIsNoOther) {
    const auto app = open(twoWindows());
    const auto gone = windows.list(app)[0].element;
    SimApp fewer = twoWindows();
    fewer.windows.erase(fewer.windows.begin());
    open(fewer);
    desk.journal().clear();
    windows.raise(gone, app, u"Inbox"_s);
    desk.advance(1s);
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("raise 'Inbox': main=-25202 focus=-25202 raise=-25202 front=0",
                            "raise verify: focused='Inbox — Notes' wanted='Inbox' → MISMATCH"));
}

// Between the pick of a minimised window and its raise.
TEST_F(AppWindowsTest, anApplicationThatEndsWhileItsWindowComesBackIsLeftAlone) {
    SimApp notes = twoWindows();
    notes.windows[1].minimized = true;
    const auto app = open(notes);
    windows.raise(windows.list(app)[1].element, app, u"Inbox — Notes"_s);
    desk.advance(100ms);
    desk.quitApp(u"Notes"_s);
    desk.journal().clear();
    desk.advance(1s);
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("raise 'Inbox — Notes': main=-25202 focus=-25202 raise=-25202 "
                            "front=-25202",
                            "raise verify: focused='' wanted='Inbox — Notes' → MISMATCH"));
    EXPECT_THAT(desk.journal().calls(),
                testing::Not(testing::Contains(testing::StartsWith("openApplication"))));
}

TEST_F(AppWindowsTest, stepsOfARaiseEndWithTheirOwner) {
    const auto app = open(twoWindows());
    {
        AppWindows shortLived(desk.ports());
        shortLived.raise(shortLived.list(app)[1].element, app, u"Inbox"_s);
    }
    desk.journal().clear();
    desk.advance(1s);
    EXPECT_THAT(desk.journal().logLines(), IsEmpty());
}

TEST_F(AppWindowsTest, theMenuIsSearchedFromTheBottom) {
    auto app = open(twoWindows());
    desk.journal().clear();
    EXPECT_TRUE(windows.menuRaise(app, u"Inbox"_s));
    EXPECT_FALSE(windows.menuRaise(app, u"Draft \"1\""_s));
    SimApp failing = twoWindows();
    failing.windowMenu.push_back({u"a \"quoted\" \\ one"_s});
    failing.accessibilityErrors = {{u"AXPress"_s, AccessibilityStatus::cannotComplete}};
    app = open(failing);
    EXPECT_FALSE(windows.menuRaise(app, u"Minimize"_s));
    EXPECT_FALSE(windows.menuRaise(app, u""_s));
    EXPECT_THAT(desk.journal().calls(),
                ElementsAre("menuPress title=Inbox — Notes", "menuPress title=Minimize"));
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("menu-raise: press 'Inbox — Notes' err=0",
                            "menu-raise: no matching item for 'Draft \"1\"' among [\"Minimize\", "
                            "\"Inbox\", \"Inbox — Notes\"]",
                            "menu-raise: press 'Minimize' err=-25204",
                            "menu-raise: no matching item for '' among [\"Minimize\", \"Inbox\", "
                            "\"Inbox — Notes\", \"a \\\"quoted\\\" \\\\ one\"]"));
}

} // namespace
} // namespace skipnest::switcher
