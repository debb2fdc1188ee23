// SPDX-License-Identifier: Apache-2.0
#include "app/AppDelegate.h"
#include "app/LocationCheck.h"
#include "platform/sim/SimDesktop.h"
#include "tests/hotkeys/Combos.h"

#include <QProcess>

#include <gmock/gmock.h>

namespace skipnest::app {
namespace {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// A start of the whole program on a simulated desktop.
class LaunchTest : public testing::Test {
protected:
    // Keys over those of a person who has been through onboarding.
    void configure(const QByteArray& keys) {
        ASSERT_TRUE(desk.addFile(
            desk.appInfo().supportFolder + u"/config.json"_s,
            R"({"version":1,"shortcuts":[{"id":"00000000-0000-4000-8000-000000000001",)"
            R"("name":"Notes","targetPath":"/Applications/Notes.app","targetType":"application",)"
            R"("sortOrder":0,"createdAt":"2026-01-01T00:00:00Z","keyCombo":{"keyCode":38,)"
            R"("modifiers":6}}],"launchAtLogin":false,"menuBarIconName":"skipnest",)"
            R"("voiceSearch":false,"shiftToHide":false)" +
                keys + "}"));
    }
    void launch(AppDelegate::Options options = {}) {
        desk.setServiceAddress({});
        agent.emplace(desk.ports(), std::move(options));
        agent->launch({.hotkeysRegistered = [this] { noteStep("hotkeys"); },
                       .finished = [this] { noteStep("finished"); }});
        desk.runPosted();
    }
    // What stands at this step of the launch, as one line.
    void noteStep(const char* step) {
        steps.push_back(std::string(step) +
                        (agent->hotkeys().registered().empty() ? "" : " +keys") +
                        (desk.statusItem().isShown() ? " +icon" : "") +
                        (desk.panels().isPopoverCreated() ? " +popover" : "") +
                        (desk.servicesMenu().refreshes() > 0 ? " +services" : "") +
                        (desk.panels().isOnboardingShown() ? " +onboarding" : ""));
    }

    static constexpr const char* onboarded = R"(,"didOnboard":true,"seenOnboardingVersion":1)";
    sim::SimDesktop desk;
    std::optional<AppDelegate> agent;
    std::vector<std::string> steps;
};

TEST_F(LaunchTest, stepsComeInOrder) {
    configure("");
    launch();
    EXPECT_THAT(
        steps, ElementsAre("hotkeys +keys", "finished +keys +icon +popover +services +onboarding"));
    EXPECT_FALSE(desk.panels().isPopoverShown());
    agent->showPopoverAfterStart();
    EXPECT_FALSE(desk.panels().isPopoverShown()) << "onboarding comes first";
    agent->shell().finishOnboarding();
    agent->showPopoverAfterStart();
    EXPECT_THAT(desk.journal().panels(), ElementsAre("popover state=list"));
}

TEST_F(LaunchTest, aMisplacedProgramAsksBeforeAnyShortcutIsRegistered) {
    const struct {
        const char* path;
        const char* button;
        const char* text;
        std::vector<std::string> calls;
    } rows[] = {
        {"/Volumes/Skipnest/Skipnest.app", "Later", "downloaded disk image", {}},
        {"/private/var/AppTranslocation/X/d/Skipnest.app", "Later", "temporary macOS location", {}},
        {"/Volumes/It's/Skipnest.app",
         "Move to Applications & Relaunch",
         "downloaded disk image",
         {"launch"}},
    };
    for (const auto& row : rows) {
        sim::SimDesktop stage;
        const QString path = QString::fromUtf8(row.path);
        stage.setBundlePath(path);
        stage.setServiceAddress({});
        stage.alerts().setPatience(sim::SimAlerts::Patience::waits);
        AppDelegate delegate(stage.ports());
        bool hasFinished = false;
        delegate.launch({.hotkeysRegistered = {}, .finished = [&] { hasFinished = true; }});
        stage.runPosted();
        EXPECT_THAT(stage.journal().logLines(),
                    ElementsAre("location: misplaced at " + path.toStdString()));
        ASSERT_EQ(stage.alerts().open().size(), 1U);
        EXPECT_EQ(stage.alerts().open()[0].message, u"Move Skipnest to Applications");
        EXPECT_THAT(stage.alerts().open()[0].informativeText.toStdString(), HasSubstr(row.text));
        EXPECT_THAT(delegate.hotkeys().registered(), IsEmpty());
        EXPECT_FALSE(stage.statusItem().isShown());

        stage.journal().clear();
        stage.pressAlertButton(QString::fromUtf8(row.button));
        EXPECT_TRUE(hasFinished) << "it runs on, moved or not";
        EXPECT_THAT(delegate.hotkeys().registered(), Not(IsEmpty()));
        EXPECT_EQ(stage.journal().calls().size(), row.calls.size());
    }
}

// The path stands in a shell line, whatever it holds.
TEST(LocationCheckTest, theMoveCommandNamesExactlyTheBundle) {
    EXPECT_EQ(moveCommand(u"/Volumes/Skipnest/Skipnest.app"_s),
              u"rm -rf '/Applications/Skipnest.app' && ditto '/Volumes/Skipnest/Skipnest.app' "
              u"'/Applications/Skipnest.app' && sleep 1 && open '/Applications/Skipnest.app'"_s);
    const QString path = u"/Volumes/It's $HOME; `id` \"x\"\n/Skipnest.app"_s;
    QProcess shell;
    // The real command with every program in it replaced by one that prints its arguments.
    shell.start(u"/bin/sh"_s, {u"-c"_s, u"rm() { :; }; sleep() { :; }; open() { :; }; ditto() { "
                                        u"printf '%s|' \"$@\"; }; "_s +
                                            moveCommand(path)});
    ASSERT_TRUE(shell.waitForFinished());
    EXPECT_EQ(QString::fromUtf8(shell.readAllStandardOutput()),
              path + u"|/Applications/Skipnest.app|"_s);
}

TEST_F(LaunchTest, thePlaceDoesNotMatterWhereThereIsNoApplicationsFolder) {
    platform::AppInfo app = desk.appInfo();
    app.bundlePath = u"/Volumes/x/skipnest"_s;
    EXPECT_TRUE(misplacement(app));
    app.applicationsFolder.clear();
    EXPECT_FALSE(misplacement(app));
}

TEST_F(LaunchTest, onboardingIsShownUntilThisVersionWasSeen) {
    const struct {
        const char* keys;
        bool shown;
    } rows[] = {
        {"", true},
        {R"(,"didOnboard":false,"seenOnboardingVersion":1)", true},
        {R"(,"didOnboard":true)", true},
        {R"(,"didOnboard":true,"seenOnboardingVersion":0)", true},
        {R"(,"didOnboard":true,"seenOnboardingVersion":1)", false},
        {R"(,"didOnboard":true,"seenOnboardingVersion":7)", false},
    };
    for (const auto& row : rows) {
        configure(row.keys);
        launch();
        EXPECT_EQ(desk.panels().isOnboardingShown(), row.shown) << row.keys;
        agent->shell().finishOnboarding();
        EXPECT_FALSE(MenuBarShell::needsOnboarding(agent->viewModel().config())) << row.keys;
        EXPECT_FALSE(desk.panels().isOnboardingShown());
    }
    EXPECT_EQ(agent->viewModel().config().seenOnboardingVersion, 7) << "a newer program's mark";
    configure("");
    launch({.setup = AppDelegate::Options::Setup::countsAsDone, .quit = {}});
    EXPECT_FALSE(desk.panels().isOnboardingShown());
    EXPECT_FALSE(agent->viewModel().config().didOnboard);
}

TEST_F(LaunchTest, withoutTheMarkerFileNothingListens) {
    const QString hook = u"com.skipnest.debug.onboarding"_s;
    configure(onboarded);
    launch();
    EXPECT_FALSE(desk.distributedNotifications().isObserved(hook));
    EXPECT_THAT(desk.journal().logLines(), Not(Contains("debug hooks enabled")));

    ASSERT_TRUE(desk.addFile(u"/Users/person/Library/Logs/Skipnest-debughooks"_s));
    launch();
    EXPECT_THAT(desk.journal().logLines(), Contains("debug hooks enabled"));
    EXPECT_FALSE(desk.distributedNotifications().isObserved(u"com.skipnest.debug.voicebar"_s))
        << "a hook that does nothing must not be there";
    desk.distributedNotifications().post(hook);
    EXPECT_TRUE(desk.panels().isOnboardingShown());
    EXPECT_EQ(desk.journal().logLines().back(), "ONBOARDING: show requested");
}

TEST_F(LaunchTest, launchAtLoginFollowsTheSettingAndAFailureIsPrinted) {
    const auto set = [this](bool wanted) {
        desk.journal().clear();
        agent->viewModel().changeSettings(
            [wanted](model::AppConfiguration& config) { config.launchAtLogin = wanted; });
    };
    configure(onboarded);
    launch();
    EXPECT_THAT(desk.journal().calls(), IsEmpty());
    set(true);
    EXPECT_THAT(desk.journal().calls(), ElementsAre("registerLoginItem"));
    set(true);
    EXPECT_THAT(desk.journal().calls(), IsEmpty());
    desk.loginItem().failWith(u"the disk is full"_s);
    set(false);
    EXPECT_THAT(desk.journal().prints(),
                ElementsAre("[Skipnest] Failed to disable launch at login: the disk is full"));
    EXPECT_FALSE(agent->viewModel().config().launchAtLogin) << "the setting stays as chosen";
    set(true);
    EXPECT_THAT(desk.journal().prints(),
                ElementsAre("[Skipnest] Failed to enable launch at login: the disk is full"));

    // Once it works again, the next start brings the entry in line without a word.
    set(false);
    desk.loginItem().failWith({});
    desk.journal().clear();
    launch();
    EXPECT_THAT(desk.journal().calls(), ElementsAre("unregisterLoginItem"));
    EXPECT_THAT(desk.journal().prints(), IsEmpty());
}

TEST_F(LaunchTest, theLedgerKnowsTheKeysAndTheDesktops) {
    configure(onboarded);
    platform::DesktopShortcutReading reading;
    reading.shortcuts = {
        {.keyCode = 17, .carbonModifiers = 0x1800, .owner = u"openbox"_s, .action = u"terminal"_s}};
    desk.desktopShortcuts().set(reading);
    launch();
    ASSERT_EQ(agent->ledger().rows().size(), 2U);
    EXPECT_EQ(agent->ledger().rows()[0].shortcut, u"Notes"_s);
    agent->viewModel().remove(agent->viewModel().shortcuts().front().id);
    EXPECT_EQ(agent->ledger().rows().size(), 1U);
}

} // namespace
} // namespace skipnest::app
