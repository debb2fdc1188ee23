// SPDX-License-Identifier: Apache-2.0
#include "tests/x11workspace/Desk.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <iostream>
#include <unistd.h>

namespace skipnest::tests {
namespace {

using platform::Failure;
using platform::Outcome;
using testing::ElementsAre;

TEST_F(Desk, StartsAnApplicationOnceHoweverOftenItsKeyIsPressed) {
    int taken = 0;
    for (int press = 0; press < 3; ++press)
        ports->workspace.openApplication(path("FixtureOne"),
                                         [&](const Outcome& outcome) { taken += outcome ? 1 : 0; });
    EXPECT_EQ(taken, 0) << "answered from inside the call";
    ASSERT_TRUE(waitFor([&] { return front() == "FixtureOne" && taken == 3; }));
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    ASSERT_TRUE(openAndWait("FixtureOne"));
    EXPECT_EQ(windowCount("FixtureOne"), 1U);
    EXPECT_EQ(windowCount("FixtureTwo"), 1U);
    const auto running = ports->workspace.runningApplications();
    ASSERT_EQ(running.size(), 2U);
    EXPECT_EQ(running[0].bundlePath, path("FixtureOne"));
    EXPECT_EQ(running[0].name, QStringLiteral("FixtureOne"));
}

TEST_F(Desk, AStartedProgramHasASessionOfItsOwnAndNotOurOutput) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    const auto process = static_cast<pid_t>(pid("FixtureOne").value);
    EXPECT_NE(::getsid(process), ::getsid(0));
    EXPECT_EQ(QFile::symLinkTarget(QStringLiteral("/proc/%1/fd/1").arg(process)),
              QStringLiteral("/dev/null"));
    QFile status(QStringLiteral("/proc/%1/stat").arg(process));
    ASSERT_TRUE(status.open(QIODevice::ReadOnly));
    const QByteArray parent = status.readAll().split(')').last().split(' ').value(2);
    EXPECT_NE(parent.toInt(), ::getpid()) << "it would stay behind as a zombie";
}

QByteArray startupIdOf(platform::ProcessIdentifier process) {
    QFile environment(QStringLiteral("/proc/%1/environ").arg(process.value));
    EXPECT_TRUE(environment.open(QIODevice::ReadOnly));
    for (const QByteArray& variable : environment.readAll().split('\0')) {
        if (variable.startsWith("DESKTOP_STARTUP_ID="))
            return variable;
    }
    return {};
}

TEST_F(Desk, OnlyAProgramThatTakesAStartupIdGetsOne) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    const QByteArray id = startupIdOf(pid("FixtureOne"));
    EXPECT_TRUE(id.startsWith("DESKTOP_STARTUP_ID=skipnest-")) << id.constData();
    EXPECT_GT(id.mid(id.indexOf("_TIME") + 5).toLongLong(), 0) << "it would not get the focus";
    // The id of a terminal would be that of all that is ever started in it.
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    EXPECT_EQ(startupIdOf(pid("FixtureTwo")), QByteArray());
}

TEST_F(Desk, BringsBackAWindowFromAnotherDesktopAndFromItsIcon) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    const xcb_window_t window = application("FixtureOne")->windows.front();
    moveToDesktop(window, 2);
    ASSERT_TRUE(openAndWait("FixtureOne"));
    EXPECT_TRUE(waitFor([&] {
        ports->windows.settle();
        return ports->windows.currentDesktop() == 2;
    }));
    EXPECT_EQ(ports->windows.find(window)->desktop, 2U) << "the window was pulled over";
    ASSERT_TRUE(openAndWait("FixtureTwo"));

    ASSERT_TRUE(ports->control.hide(pid("FixtureOne")));
    ASSERT_TRUE(waitFor([&] { return ports->control.state(pid("FixtureOne")).hidden; }));
    ASSERT_TRUE(openAndWait("FixtureOne"));
    EXPECT_TRUE(waitFor([&] { return !ports->control.state(pid("FixtureOne")).hidden; }));
}

// The second key follows before the first switch of desktops is confirmed.
TEST_F(Desk, TwoQuickJumpsEndAtTheSecond) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    moveToDesktop(application("FixtureOne")->windows.front(), 2);
    const auto ignore = [](const Outcome&) {};
    ports->workspace.openApplication(path("FixtureOne"), ignore);
    ports->workspace.openApplication(path("FixtureTwo"), ignore);
    ASSERT_TRUE(waitFor([&] {
        return front() == "FixtureTwo" && ports->windows.currentDesktop() == 0 &&
               !ports->windows.needsDesktop(0);
    }));
}

TEST_F(Desk, TheMostRecentWindowOfAnApplicationComesToTheFront) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    const xcb_window_t first = application("FixtureOne")->windows.front();
    spawn("xterm -class FixtureOne -e cat");
    ASSERT_TRUE(waitFor([&] { return windowCount("FixtureOne") == 2; }));
    ports->commands.activate(first);
    ASSERT_TRUE(waitFor([&] {
        ports->windows.settle();
        return ports->windows.active() == first;
    }));
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    ASSERT_TRUE(openAndWait("FixtureOne"));
    EXPECT_EQ(ports->windows.active(), first);
}

TEST_F(Desk, TellsWhichApplicationCameToTheFront) {
    std::vector<std::string> told;
    const auto observation =
        ports->workspace.observeActivations([&](const platform::RunningApplication& application) {
            told.push_back(application.bundleIdentifier.toStdString());
        });
    ASSERT_TRUE(openAndWait("FixtureOne"));
    spawn("xterm -class FixtureOne -e cat");
    ASSERT_TRUE(waitFor([&] { return windowCount("FixtureOne") == 2; }));
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    ASSERT_TRUE(openAndWait("FixtureOne"));
    ASSERT_TRUE(waitFor([&] { return told.size() >= 3; }));
    EXPECT_THAT(told, ElementsAre("FixtureOne", "FixtureTwo", "FixtureOne"));
}

TEST_F(Desk, WindowsThatNobodySwitchesToAreNoApplications) {
    ToyWindows toys;
    toys.show({"Panel", 0, "_NET_WM_WINDOW_TYPE_DOCK"});
    toys.show({"Wallpaper", 0, "_NET_WM_WINDOW_TYPE_DESKTOP"});
    toys.show({"Asking", 0, "_NET_WM_WINDOW_TYPE_DIALOG"});
    ASSERT_TRUE(waitFor([&] { return windowCount("Asking") == 1; }));
    EXPECT_EQ(windowCount("Panel"), 0U);
    EXPECT_EQ(windowCount("Wallpaper"), 0U);
}

TEST_F(Desk, FailuresSayWhatIsMissing) {
    std::map<QString, QString> reasons;
    const auto note = [&](const QString& target) {
        return [&reasons, target](const Outcome& outcome) {
            reasons[target] = outcome ? QString() : outcome.failure().detail;
        };
    };
    const QString nowhere = QStringLiteral("/nowhere/a.desktop");
    const QString noFile = QStringLiteral("/nowhere/a.txt");
    ports->workspace.openApplication(path("Missing"), note(path("Missing")));
    ports->workspace.openApplication(nowhere, note(nowhere));
    ports->workspace.openFile(noFile, note(noFile));
    ASSERT_TRUE(waitFor([&] { return reasons.size() == 3; }));
    EXPECT_THAT(reasons[path("Missing")].toStdString(), testing::HasSubstr("no-such-program"));
    EXPECT_THAT(reasons[nowhere].toStdString(), testing::HasSubstr("does not exist"));
    EXPECT_THAT(reasons[noFile].toStdString(), testing::HasSubstr("does not exist"));
}

TEST_F(Desk, AFileOpensWithItsDefaultApplicationAndAnEntryAnywhereIsOne) {
    const QTemporaryDir folder;
    const QString text = folder.filePath(QStringLiteral("notes.txt"));
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_EQ(ports->workspace.defaultApplication(text), path("FixtureTwo"));
    ports->workspace.openFile(text, [](const Outcome& outcome) { EXPECT_TRUE(outcome); });
    ASSERT_TRUE(waitFor([&] { return front() == "FixtureTwo"; }));

    const QString own = folder.filePath(QStringLiteral("Own.desktop"));
    QFile entry(own);
    ASSERT_TRUE(entry.open(QIODevice::WriteOnly));
    entry.write("[Desktop Entry]\nType=Application\nName=My own\nExec=xterm -class Own -e cat\n");
    entry.close();
    EXPECT_EQ(ports->workspace.displayName(own), QStringLiteral("My own"));
    for (int press = 0; press < 2; ++press) {
        ports->workspace.openApplication(own, [](const Outcome& outcome) { EXPECT_TRUE(outcome); });
        ASSERT_TRUE(waitFor([&] { return front() == "Own"; }));
        ASSERT_TRUE(openAndWait("FixtureTwo"));
    }
    EXPECT_EQ(windowCount("Own"), 1U);
    EXPECT_EQ(application("Own")->identity.path, own);
}

TEST_F(Desk, AppsOfOneProcessAndWindowsWithoutOneHaveNumbersOfTheirOwn) {
    ToyWindows toys;
    const auto ours = static_cast<std::uint32_t>(::getpid());
    toys.show({"ShareA", ours});
    toys.show({"ShareB", ours});
    toys.show({"NoProcess"});
    ASSERT_TRUE(waitFor([&] { return ports->workspace.runningApplications().size() == 3; }));
    EXPECT_NE(pid("ShareA"), pid("ShareB"));
    EXPECT_LT(pid("NoProcess").value, 0);
    for (const char* name : {"ShareA", "ShareB", "NoProcess"})
        EXPECT_EQ(ports->applications.withPid(pid(name)), application(name)) << name;
    EXPECT_FALSE(ports->control.terminate(pid("ShareA"), platform::Termination::forced))
        << "it would end the other application";
}

TEST_F(Desk, SurvivesTheWindowManager) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    killWindowManager();
    ASSERT_TRUE(waitFor([&] {
        return ports->workspace.availability().state == platform::Availability::State::limited;
    }));
    EXPECT_EQ(ports->workspace.runningApplications().size(), 2U);
    const Outcome hidden = ports->control.hide(pid("FixtureOne"));
    ASSERT_FALSE(hidden);
    EXPECT_EQ(hidden.failure().kind, Failure::Kind::unavailable);
    EXPECT_TRUE(openAndWait("FixtureOne"));
    EXPECT_TRUE(openAndWait("FixtureTwo"));

    startWindowManager();
    ASSERT_TRUE(waitFor([&] {
        return ports->workspace.availability().state == platform::Availability::State::available &&
               ports->workspace.runningApplications().size() == 2;
    }));
    EXPECT_TRUE(openAndWait("FixtureOne"));
    EXPECT_TRUE(openAndWait("FixtureTwo"));
    EXPECT_EQ(windowCount("FixtureOne"), 1U);
}

TEST_F(Desk, WhatAKeyPressCosts) {
    ToyWindows toys;
    std::vector<QByteArray> names;
    for (int i = 0; i < 30; ++i)
        names.push_back("Toy" + QByteArray::number(i));
    for (const QByteArray& name : names)
        toys.show({name.constData()});
    ASSERT_TRUE(waitFor([&] { return ports->workspace.runningApplications().size() == 30; }));
    ASSERT_TRUE(openAndWait("FixtureOne"));
    constexpr int rounds = 1000;
    platform::Duration asked{};
    platform::Duration opened{};
    for (int i = 0; i < rounds; ++i) {
        const platform::Instant begin = scheduler.now();
        const auto running = ports->workspace.runningApplications();
        const auto front = ports->workspace.frontmostApplication();
        const platform::Instant between = scheduler.now();
        ports->workspace.openApplication(path("FixtureOne"), [](const Outcome&) {});
        opened += scheduler.now() - between;
        asked += between - begin;
        ASSERT_EQ(running.size(), 31U);
        ASSERT_TRUE(front);
    }
    std::cout << "asking " << double(asked.count()) / rounds / 1000 << " us, opening "
              << double(opened.count()) / rounds / 1000 << " us\n";
}

} // namespace
} // namespace skipnest::tests
