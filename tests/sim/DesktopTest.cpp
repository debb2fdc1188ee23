// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

namespace skipnest::sim {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::ActivationOption;
using platform::Outcome;
using platform::RunningApplication;
using platform::Termination;
using testing::ElementsAre;
using testing::IsEmpty;

class SimDesktopTest : public testing::Test {
protected:
    SimDesktopTest() {
        for (const QString& name : {u"Notes"_s, u"Mail"_s, u"Maps"_s}) {
            desk_.installApp({.name = name,
                              .bundleIdentifier = u"com.example."_s + name.toLower(),
                              .path = pathOf(name)});
            desk_.bringToFront(name);
        }
        told_.clear();
    }

    static QString pathOf(const QString& name) { return u"/Applications/"_s + name + u".app"_s; }
    platform::ProcessIdentifier pid(const QString& name) {
        return desk_.applications().find(name)->pid;
    }
    std::vector<std::string> order() { return desk_.applications().activationOrder(); }
    platform::Workspace::OpenCompletion noteAnswer() {
        return [this](const Outcome& outcome) {
            answers_.push_back(outcome ? "taken" : outcome.failure().detail.toStdString());
        };
    }

    SimDesktop desk_;
    platform::Workspace& workspace_ = desk_.ports().workspace;
    platform::ApplicationControl& control_ = desk_.ports().applications;
    std::vector<std::string> told_;
    std::vector<std::string> answers_;
    platform::Observation observation_ = workspace_.observeActivations(
        [this](const RunningApplication& app) { told_.push_back(app.name.toStdString()); });
};

TEST_F(SimDesktopTest, hidingTheFrontHandsOverToTheOneBeforeItThatShows) {
    (void)control_.hide(pid(u"Mail"_s));
    (void)control_.hide(pid(u"Maps"_s));
    EXPECT_EQ(desk_.frontApp(), u"Maps"_s) << "nothing happens inside the request";
    desk_.runPosted();
    EXPECT_EQ(desk_.frontApp(), u"Notes"_s);
    EXPECT_TRUE(control_.state(pid(u"Maps"_s)).hidden);
    EXPECT_THAT(told_, ElementsAre("Notes"));

    (void)control_.hide(pid(u"Notes"_s));
    desk_.runPosted();
    EXPECT_FALSE(workspace_.frontmostApplication().has_value());
    desk_.bringToFront(u"Mail"_s);
    EXPECT_FALSE(control_.state(pid(u"Mail"_s)).hidden);
    EXPECT_THAT(order(), ElementsAre("Mail", "Maps", "Notes"));
}

TEST_F(SimDesktopTest, anApplicationThatIgnoresHideStaysInFront) {
    (void)desk_.applications().ignoreHide(u"Maps"_s);
    EXPECT_TRUE(control_.hide(pid(u"Maps"_s)).ok());
    desk_.runPosted();
    EXPECT_TRUE(control_.state(pid(u"Maps"_s)).active);
    EXPECT_THAT(desk_.journal().calls(), ElementsAre("hide app=Maps"));
}

TEST_F(SimDesktopTest, quittingHandsOverAndANewRunIsANewProcess) {
    const auto old = pid(u"Maps"_s);
    desk_.quitApp(u"Maps"_s);
    EXPECT_EQ(desk_.frontApp(), u"Mail"_s);
    EXPECT_TRUE(control_.state(old).terminated);
    EXPECT_FALSE(control_.activate(old, ActivationOption::none).ok());
    EXPECT_THAT(desk_.journal().calls(), IsEmpty());

    workspace_.openApplication(pathOf(u"Maps"_s), noteAnswer());
    EXPECT_THAT(answers_, IsEmpty());
    desk_.runPosted();
    EXPECT_THAT(answers_, ElementsAre("taken"));
    EXPECT_EQ(desk_.frontApp(), u"Maps"_s);
    EXPECT_NE(pid(u"Maps"_s), old);
    EXPECT_THAT(told_, ElementsAre("Mail", "Maps"));
}

TEST_F(SimDesktopTest, politeTerminationMayBeIgnoredAndForcedMayNot) {
    (void)desk_.applications().ignoreQuit(u"Notes"_s);
    (void)control_.terminate(pid(u"Notes"_s), Termination::polite);
    desk_.runPosted();
    EXPECT_THAT(order(), ElementsAre("Maps", "Mail", "Notes"));
    (void)control_.terminate(pid(u"Notes"_s), Termination::forced);
    desk_.runPosted();
    EXPECT_THAT(order(), ElementsAre("Maps", "Mail"));
}

TEST_F(SimDesktopTest, activatingOurselvesTakesTheFocusAndPutsNothingInFront) {
    (void)control_.activate(desk_.appInfo().pid, ActivationOption::ignoringOtherApps);
    desk_.runPosted();
    EXPECT_EQ(desk_.frontApp(), u"Maps"_s);
    (void)control_.activate(pid(u"Maps"_s), ActivationOption::allWindows);
    desk_.runPosted();
    EXPECT_THAT(told_, ElementsAre("Skipnest", "Maps"));
    EXPECT_THAT(desk_.journal().calls(),
                ElementsAre("activate app=Skipnest options=ignoringOtherApps",
                            "activate app=Maps options=allWindows"));
}

TEST_F(SimDesktopTest, filesOpenInTheirDefaultApplication) {
    ASSERT_TRUE(desk_.addFile(u"/tmp/a b.txt"_s).ok());
    desk_.applications().setDefaultApplication(u"/tmp/a b.txt"_s, u"Notes"_s);
    EXPECT_EQ(workspace_.defaultApplication(u"/tmp/a b.txt"_s), pathOf(u"Notes"_s));
    workspace_.openFile(u"/tmp/a b.txt"_s, noteAnswer());
    desk_.runPosted();
    EXPECT_EQ(desk_.frontApp(), u"Notes"_s);
    ASSERT_TRUE(desk_.removePath(u"/tmp"_s).ok());
    workspace_.openFile(u"/tmp/a b.txt"_s, noteAnswer());
    desk_.runPosted();
    EXPECT_THAT(answers_, ElementsAre("taken", "nothing is at /tmp/a b.txt"));
    EXPECT_THAT(desk_.journal().calls(), ElementsAre("openURL url=file:///tmp/a%20b.txt",
                                                     "openURL url=file:///tmp/a%20b.txt"));
}

TEST_F(SimDesktopTest, aNewDescriptionReplacesTheOldOneInItsPlace) {
    const auto old = pid(u"Mail"_s);
    desk_.installApp({.name = u"Mail"_s, .path = u"/Applications/Post.app"_s});
    EXPECT_EQ(pid(u"Mail"_s), old);
    EXPECT_THAT(order(), ElementsAre("Maps", "Mail", "Notes"));
    EXPECT_EQ(desk_.files().kind(pathOf(u"Mail"_s)), platform::FileKind::none);
    EXPECT_EQ(desk_.files().kind(u"/Applications/Post.app"_s), platform::FileKind::folder);

    desk_.installApp({.name = u"Maps"_s, .path = pathOf(u"Maps"_s), .running = Running::no});
    EXPECT_EQ(desk_.frontApp(), u"Mail"_s);
    desk_.installApp({.name = u"Finder"_s, .pid = {77}});
    EXPECT_EQ(pid(u"Finder"_s).value, 77);
}

TEST_F(SimDesktopTest, cyclingMinimisesAndBringsBackOneWindowAtATime) {
    desk_.installApp({.name = u"Notes"_s,
                      .bundleIdentifier = u"com.example.notes"_s,
                      .windows = {{u"A"_s}, {u"B"_s}}});
    const auto run = [this](platform::CycleDirection direction) {
        const auto answer = desk_.ports().scripts.run(
            {u"text"_s, platform::CycleWindows{u"com.example.notes"_s, direction}}, 2s);
        const auto* error = std::get_if<platform::ScriptError>(&answer);
        return error ? error->number : 0;
    };
    const auto minimized = [this] {
        std::vector<bool> states;
        for (const SimWindow& window : desk_.applications().find(u"Notes"_s)->windows)
            states.push_back(window.minimized);
        return states;
    };
    EXPECT_EQ(run(platform::CycleDirection::next), 0);
    EXPECT_THAT(minimized(), ElementsAre(true, false));
    EXPECT_EQ(run(platform::CycleDirection::next), 0);
    EXPECT_EQ(run(platform::CycleDirection::next), SimScripts::noSuchWindow);
    EXPECT_EQ(run(platform::CycleDirection::previous), 0);
    EXPECT_THAT(minimized(), ElementsAre(true, false));

    desk_.scripts().setAnswer(u"com.example.notes"_s, platform::ScriptBudgetExceeded{});
    run(platform::CycleDirection::next);
    EXPECT_EQ(desk_.now(), platform::Instant(2s));
}

TEST_F(SimDesktopTest, alertsAnswerTheirLastButtonUnlessToldBefore) {
    const platform::Alert alert{u"Sure?"_s, u""_s, {u"Yes"_s, u"No"_s}};
    std::vector<int> answers;
    const auto note = [&answers](int button) { answers.push_back(button); };
    desk_.pressAlertButton(u"Other"_s);
    desk_.pressAlertButton(u"Yes"_s);
    desk_.ports().alerts.show(alert, note);
    EXPECT_THAT(answers, IsEmpty());
    desk_.runPosted();
    desk_.ports().alerts.show(alert, note);
    desk_.runPosted();
    EXPECT_THAT(answers, ElementsAre(0, 1));

    desk_.alerts().setPatience(SimAlerts::Patience::waits);
    desk_.journal().clear();
    desk_.ports().alerts.show(alert, note);
    desk_.ports().alerts.show(alert, note);
    desk_.advance(1h);
    EXPECT_EQ(desk_.alerts().open().size(), 1U);
    EXPECT_EQ(desk_.journal().calls().size(), 1U);
    desk_.pressAlertButton(u"Yes"_s);
    EXPECT_THAT(answers, ElementsAre(0, 1, 0, 0));
}

TEST_F(SimDesktopTest, bookmarksFollowWhatTheyAreTold) {
    auto& bookmarks = desk_.ports().bookmarks;
    EXPECT_FALSE(bookmarks.create(u"/tmp/x"_s).ok());
    ASSERT_TRUE(desk_.addFile(u"/tmp/x"_s).ok());
    const auto bookmark = bookmarks.create(u"/tmp/x"_s);
    ASSERT_TRUE(bookmark.ok());
    EXPECT_EQ(*bookmarks.resolve(*bookmark), u"/tmp/x"_s);
    desk_.bookmarks().setTarget(u"/tmp/x"_s, u"/tmp/moved"_s);
    EXPECT_EQ(*bookmarks.resolve(*bookmark), u"/tmp/moved"_s);
    desk_.bookmarks().setTarget(u"/tmp/x"_s, std::nullopt);
    EXPECT_FALSE(bookmarks.resolve(*bookmark).ok());
    EXPECT_FALSE(bookmarks.resolve("rubbish").ok());
    {
        const auto access = bookmarks.startAccessing(u"/tmp/x"_s);
        EXPECT_EQ(desk_.bookmarks().heldAccesses(), 1);
    }
    EXPECT_EQ(desk_.bookmarks().heldAccesses(), 0);
}

class KeyCounter final : public platform::KeyEventListener {
public:
    void modifiersChanged(const platform::ModifierEvent& event) override {
        seen.push_back("modifiers " + std::to_string(event.keyCode));
    }
    void otherKeyPressed(platform::Instant) override { seen.emplace_back("key"); }

    std::vector<std::string> seen;
};

TEST_F(SimDesktopTest, everyListenerSeesAPressBeforeTheHotkeyAndOnlyWhileItListens) {
    KeyCounter counter;
    auto tap = desk_.ports().keyEvents.listen(counter);
    ASSERT_TRUE(tap.ok());
    desk_.changeModifiers(59, {platform::EventFlags::control});
    EXPECT_FALSE(desk_.pressHotkey({38, platform::CarbonModifiers::option}));
    EXPECT_EQ(desk_.ports().keyEvents.modifiersDown().bits, platform::EventFlags::alternate);
    EXPECT_THAT(counter.seen, ElementsAre("modifiers 59", "key"));
    { const platform::KeyTap dropped = std::move(tap).value(); }
    desk_.pressKey();
    EXPECT_EQ(counter.seen.size(), 2U);

    desk_.setTrust({.accessibility = false});
    EXPECT_FALSE(desk_.ports().keyEvents.listen(counter).ok());
    EXPECT_FALSE(desk_.ports().keyEvents.availability().remedy.isEmpty());
}

} // namespace
} // namespace skipnest::sim
