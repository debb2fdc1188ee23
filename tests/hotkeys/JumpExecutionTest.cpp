// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/JumpExecution.h"

#include "platform/sim/SimDesktop.h"
#include "tests/hotkeys/Combos.h"

#include <gmock/gmock.h>

namespace skipnest::hotkeys {
namespace {

using namespace std::chrono_literals;
using model::ShortcutItem;
using test::shortcut;
using testing::ElementsAre;
using testing::IsEmpty;

// Answers as told and notes what was asked.
class ScriptedSwitcher final : public SwitcherGate {
public:
    [[nodiscard]] bool isOpen() const override { return isOpen_; }
    void cancel() override {
        asked.emplace_back("cancel");
        isOpen_ = false;
    }
    Answer offer(const platform::RunningApplication& app) override {
        asked.push_back("offer " + app.name.toStdString());
        return offered;
    }
    Answer open(const platform::RunningApplication& front,
                std::optional<model::ModifierFlags> modifiers, Mode mode) override {
        asked.push_back("open " + front.name.toStdString() +
                        (mode == Mode::tabsAllowed ? " tabs " : " windows ") +
                        (modifiers ? std::to_string(modifiers->rawValue) : "-"));
        return mode == Mode::tabsAllowed ? openedTabs : openedWindows;
    }
    [[nodiscard]] bool knowsTabsOf(const QString& bundle) const override {
        return bundle == u"com.google.Chrome";
    }

    bool isOpen_ = false;
    Answer offered = Answer::declined;
    Answer openedTabs = Answer::declined;
    Answer openedWindows = Answer::declined;
    std::vector<std::string> asked;
};

class NotedCounter final : public JumpCounter {
public:
    void countKeyboardJump(const QString& name) override { noted.push_back(name.toStdString()); }
    void countHide() override { noted.emplace_back("hide"); }
    std::vector<std::string> noted;
};

class JumpExecutionTest : public testing::Test {
protected:
    JumpExecutionTest() {
        install("Notes", "com.example.notes");
        install("Chrome", "com.google.Chrome");
        install("Mail", "com.example.mail");
        desk.bringToFront(QStringLiteral("Mail"));
        desk.bringToFront(QStringLiteral("Chrome"));
    }
    void install(const char* name, const char* bundle, sim::Running running = sim::Running::yes) {
        const QString text = QString::fromLatin1(name);
        desk.installApp({.name = text,
                         .bundleIdentifier = QString::fromLatin1(bundle),
                         .path = QStringLiteral("/Applications/%1.app").arg(text),
                         .pid = {},
                         .running = running,
                         .windows = {{}}});
    }
    JumpExecution::Started jump(const ShortcutItem& item) {
        const auto started = jumps.jump(
            item, desk.now(), [this](const JumpArrival& arrival) { arrivals.push_back(arrival); });
        desk.runPosted();
        return started;
    }

    sim::SimDesktop desk;
    FocusTracker focus{desk.ports().workspace, desk.appInfo().pid};
    ScriptedSwitcher switcher;
    NotedCounter counter;
    JumpExecution jumps{desk.ports(), focus, switcher, counter};
    std::vector<JumpArrival> arrivals;
    const ShortcutItem notes = shortcut("Notes", "/Applications/Notes.app", "ctrl+opt+n");
    const ShortcutItem chrome = shortcut("Chrome", "/Applications/Chrome.app", "cmd+shift+c");
    using Outcome = JumpArrival::Outcome;
    using Answer = SwitcherGate::Answer;
};

TEST_F(JumpExecutionTest, applicationElsewhereIsActivatedAndCountedNeverListed) {
    EXPECT_EQ(jump(notes), JumpExecution::Started::yes);
    EXPECT_EQ(desk.frontApp(), u"Notes");
    EXPECT_THAT(switcher.asked, IsEmpty());
    EXPECT_THAT(counter.noted, ElementsAre("Notes"));
    EXPECT_THAT(desk.journal().logLines(), ElementsAre("open 'Notes'"));
    ASSERT_EQ(arrivals.size(), 1u);
    EXPECT_EQ(arrivals.front().outcome, Outcome::arrived);
    EXPECT_THAT(desk.runningTimers(), IsEmpty());
}

TEST_F(JumpExecutionTest, openBarTakesAnOfferOrIsCancelled) {
    switcher.isOpen_ = true;
    switcher.offered = Answer::taken;
    jump(notes);
    EXPECT_THAT(switcher.asked, ElementsAre("offer Notes"));
    EXPECT_THAT(counter.noted, IsEmpty());
    EXPECT_THAT(desk.journal().calls(), IsEmpty());

    switcher.asked.clear();
    switcher.offered = Answer::declined;
    jump(notes);
    EXPECT_THAT(switcher.asked, ElementsAre("offer Notes", "cancel"));
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("open 'Notes'", "open 'Notes'", "switcher: cancelled"));
    EXPECT_EQ(desk.frontApp(), u"Notes");
}

struct FrontCase {
    const char* name;
    JumpSwitches switches;
    SwitcherGate::Answer tabs;
    SwitcherGate::Answer windows;
    std::vector<std::string> asked;
    bool reactivated;
};

class JumpToFront : public JumpExecutionTest, public testing::WithParamInterface<FrontCase> {};

TEST_P(JumpToFront, goesToTheSwitcherOrBringsAllWindowsForward) {
    jumps.setSwitches(GetParam().switches);
    switcher.openedTabs = GetParam().tabs;
    switcher.openedWindows = GetParam().windows;
    jump(chrome);
    desk.advance(1s);
    EXPECT_EQ(switcher.asked, GetParam().asked);
    if (GetParam().reactivated) {
        EXPECT_THAT(counter.noted, ElementsAre("Chrome"));
        EXPECT_THAT(desk.journal().timedCalls(),
                    ElementsAre("0 activate app=Skipnest options=ignoringOtherApps",
                                "0.1 activate app=Chrome options=allWindows"));
    } else {
        EXPECT_THAT(counter.noted, IsEmpty());
        EXPECT_THAT(desk.journal().calls(), IsEmpty());
    }
}

constexpr auto taken = SwitcherGate::Answer::taken;
constexpr auto declined = SwitcherGate::Answer::declined;
INSTANTIATE_TEST_SUITE_P(
    Rows, JumpToFront,
    testing::Values(
        FrontCase{"tabsFirst", {true, true}, taken, taken, {"open Chrome tabs 9"}, false},
        FrontCase{"windowsWhereNoTabs",
                  {true, true},
                  declined,
                  taken,
                  {"open Chrome tabs 9", "open Chrome windows 9"},
                  false},
        FrontCase{"tabsOff", {true, false}, taken, taken, {"open Chrome windows 9"}, false},
        FrontCase{"declined", {true, false}, taken, declined, {"open Chrome windows 9"}, true},
        FrontCase{"switcherOff", {false, true}, taken, taken, {}, true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(JumpExecutionTest, fileNeverOpensTheSwitcherAndArrivesWithItsApplication) {
    ASSERT_TRUE(desk.addFile(QStringLiteral("/tmp/x.txt")));
    desk.applications().setDefaultApplication(QStringLiteral("/tmp/x.txt"),
                                              QStringLiteral("Chrome"));
    switcher.isOpen_ = true;
    switcher.openedWindows = Answer::taken;
    jump(shortcut("X", "/tmp/x.txt", "f5"));
    EXPECT_THAT(switcher.asked, ElementsAre("cancel"));
    EXPECT_THAT(desk.journal().calls(), ElementsAre("openURL url=file:///tmp/x.txt"));
    EXPECT_THAT(counter.noted, ElementsAre("X"));
    // Chrome was in front all along: seen at the first look.
    desk.advance(150ms);
    ASSERT_EQ(arrivals.size(), 1u);
    EXPECT_EQ(arrivals.front().outcome, Outcome::arrived);
}

TEST_F(JumpExecutionTest, missingTargetShowsTheAlertAndStartsNothing) {
    EXPECT_EQ(jump(shortcut("Gone", "/tmp/gone.txt", "f5")), JumpExecution::Started::no);
    EXPECT_THAT(desk.journal().prints(),
                ElementsAre("[Skipnest] Target does not exist: /tmp/gone.txt"));
    const auto& alert = desk.journal().entries().back();
    EXPECT_EQ(alert.text, u"alert");
    EXPECT_EQ(alert.fields[QStringLiteral("message")], QStringLiteral("File Not Found"));
    EXPECT_EQ(alert.fields[QStringLiteral("text")],
              QStringLiteral("The shortcut target could not be found:\n/tmp/gone.txt\n\nThe file "
                             "may have been moved or deleted."));
    EXPECT_THAT(counter.noted, IsEmpty());
    ASSERT_EQ(arrivals.size(), 1u);
    EXPECT_EQ(arrivals.front().outcome, Outcome::missed);
}

TEST_F(JumpExecutionTest, bookmarkFindsAMovedTargetAndItsAccessEnds) {
    ASSERT_TRUE(desk.addFile(QStringLiteral("/tmp/moved.txt")));
    desk.bookmarks().setTarget(QStringLiteral("/tmp/x.txt"), QStringLiteral("/tmp/moved.txt"));
    ShortcutItem item = shortcut("X", "/tmp/x.txt", "f5");
    item.bookmarkData = sim::SimBookmarks::bytesFor(QStringLiteral("/tmp/x.txt"));
    jump(item);
    EXPECT_THAT(desk.journal().calls(), ElementsAre("openURL url=file:///tmp/moved.txt"));
    EXPECT_EQ(desk.bookmarks().heldAccesses(), 0);

    // One that does not resolve falls back to the stored path.
    desk.bookmarks().setTarget(QStringLiteral("/tmp/x.txt"), std::nullopt);
    ASSERT_TRUE(desk.addFile(QStringLiteral("/tmp/x.txt")));
    desk.journal().clear();
    jump(item);
    EXPECT_THAT(desk.journal().calls(), ElementsAre("openURL url=file:///tmp/x.txt"));
    EXPECT_EQ(desk.journal().prints().size(), 1u);
}

TEST_F(JumpExecutionTest, refusedFocusIsTakenTheSecondWayOnceAndSaid) {
    ASSERT_TRUE(desk.applications().withholdFocus(QStringLiteral("Notes")));
    jump(notes);
    EXPECT_EQ(desk.frontApp(), u"Chrome");
    desk.advance(149ms);
    EXPECT_THAT(arrivals, IsEmpty());
    desk.advance(1ms);
    EXPECT_EQ(desk.frontApp(), u"Notes");
    EXPECT_THAT(desk.journal().timedCalls(),
                ElementsAre("0 openApplication path=/Applications/Notes.app",
                            "0.15 activate app=Notes options=ignoringOtherApps"));
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("open 'Notes'", "jump: 'Notes' refused by the desktop, activated past "
                                            "it, arrived in 150 ms"));
    EXPECT_EQ(arrivals.front().outcome, Outcome::arrived);
}

TEST_F(JumpExecutionTest, startingProgramIsGivenTimeToTakeTheFocusItself) {
    install("Slow", "com.example.slow", sim::Running::no);
    ASSERT_TRUE(desk.applications().withholdFocus(QStringLiteral("Slow")));
    jump(shortcut("Slow", "/Applications/Slow.app"));
    desk.advance(299ms);
    EXPECT_EQ(desk.frontApp(), u"Chrome");
    desk.advance(1ms); // it has been running for a whole period now
    EXPECT_EQ(desk.frontApp(), u"Slow");
}

TEST_F(JumpExecutionTest, laterJumpEndsTheEarlierAndRefusedOpenIsSaid) {
    desk.applications().refuseOpen(
        QStringLiteral("/Applications/Notes.app"),
        {platform::Failure::Kind::refused, QStringLiteral("it is damaged")});
    jump(notes);
    EXPECT_THAT(desk.journal().prints(),
                ElementsAre("[Skipnest] Failed to open /Applications/Notes.app: it is damaged"));
    ASSERT_EQ(arrivals.size(), 1u);
    EXPECT_EQ(arrivals[0].reason, u"it is damaged");

    ASSERT_TRUE(desk.applications().withholdFocus(QStringLiteral("Mail")));
    jump(shortcut("Mail", "/Applications/Mail.app"));
    install("Slow", "com.example.slow", sim::Running::no);
    jump(shortcut("Slow", "/Applications/Slow.app"));
    ASSERT_EQ(arrivals.size(), 3u);
    EXPECT_EQ(arrivals[1].outcome, Outcome::missed);
    EXPECT_EQ(arrivals[2].outcome, Outcome::arrived);
    desk.advance(5s);
    EXPECT_EQ(desk.frontApp(), u"Slow"); // Mail is not fetched any more
}

TEST_F(JumpExecutionTest, hidingTheOneInFrontGivesFocusBackOnlyWhereItStayed) {
    jumps.hide(chrome);
    desk.advance(1s);
    EXPECT_THAT(desk.journal().calls(), ElementsAre("hide app=Chrome"));
    EXPECT_EQ(desk.frontApp(), u"Mail");
    EXPECT_THAT(counter.noted, ElementsAre("hide"));

    desk.bringToFront(QStringLiteral("Chrome"));
    ASSERT_TRUE(desk.applications().ignoreHide(QStringLiteral("Chrome")));
    desk.journal().clear();
    jumps.hide(chrome);
    desk.advance(199ms);
    EXPECT_EQ(desk.frontApp(), u"Chrome");
    desk.advance(1ms);
    EXPECT_THAT(desk.journal().calls(),
                ElementsAre("hide app=Chrome", "activate app=Mail options=none"));
}

TEST_F(JumpExecutionTest, hidingWithoutFocusOrWithNowhereToGoLeavesFocusAlone) {
    ASSERT_TRUE(desk.applications().ignoreHide(QStringLiteral("Notes")));
    jumps.hide(notes); // not active
    desk.advance(1s);
    EXPECT_THAT(desk.journal().calls(), ElementsAre("hide app=Notes"));

    ASSERT_TRUE(desk.applications().ignoreHide(QStringLiteral("Chrome")));
    desk.quitApp(QStringLiteral("Mail"));
    desk.journal().clear();
    jumps.hide(chrome); // the one before has ended
    desk.advance(1s);
    EXPECT_THAT(desk.journal().calls(), ElementsAre("hide app=Chrome"));

    desk.journal().clear();
    jumps.hide(shortcut("X", "/tmp/unknown.txt")); // nothing opens it
    install("Idle", "com.example.idle", sim::Running::no);
    jumps.hide(shortcut("Idle", "/Applications/Idle.app")); // does not run
    desk.advance(1s);
    EXPECT_THAT(desk.journal().calls(), IsEmpty());
}

} // namespace
} // namespace skipnest::hotkeys
