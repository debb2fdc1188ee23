// SPDX-License-Identifier: Apache-2.0
#include "tests/x11workspace/Desk.h"

#include <QFile>
#include <QSysInfo>

#include <csignal>

namespace skipnest::tests {
namespace {

using namespace std::chrono_literals;
using platform::ActivationOption;
using platform::CycleDirection;
using platform::ScriptError;
using platform::Termination;

TEST_F(Desk, HidesEveryWindowOnAnyDesktop) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    spawn("xterm -class FixtureOne -e cat");
    ASSERT_TRUE(waitFor([&] { return windowCount("FixtureOne") == 2; }));
    moveToDesktop(application("FixtureOne")->windows.back(), 1);
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    EXPECT_FALSE(ports->control.state(pid("FixtureOne")).hidden);
    EXPECT_TRUE(ports->control.state(pid("FixtureTwo")).active);
    ASSERT_TRUE(ports->control.hide(pid("FixtureOne")));
    ASSERT_TRUE(waitFor([&] { return ports->control.state(pid("FixtureOne")).hidden; }));
    EXPECT_EQ(windowCount("FixtureOne"), 2U);
    EXPECT_EQ(front(), "FixtureTwo");
}

TEST_F(Desk, ActivatesInEachWay) {
    ASSERT_TRUE(openAndWait("FixtureOne"));
    const xcb_window_t older = application("FixtureOne")->windows.front();
    spawn("xterm -class FixtureOne -e cat");
    ASSERT_TRUE(waitFor([&] { return windowCount("FixtureOne") == 2; }));
    for (const auto option : {ActivationOption::none, ActivationOption::allWindows,
                              ActivationOption::ignoringOtherApps}) {
        ASSERT_TRUE(openAndWait("FixtureTwo"));
        const xcb_window_t covering = application("FixtureTwo")->windows.front();
        ASSERT_TRUE(waitFor([&] {
            ports->windows.settle();
            return ports->windows.stacking().back() == covering;
        }));
        const xcb_window_t recent = application("FixtureOne")->windows.front();
        ASSERT_TRUE(ports->control.activate(pid("FixtureOne"), option));
        EXPECT_TRUE(waitFor([&] {
            return front() == "FixtureOne" && ports->windows.stacking().back() == recent;
        })) << int(option);
        if (option == ActivationOption::allWindows) {
            EXPECT_EQ(ports->windows.stacking().front(), covering);
        }
    }
    EXPECT_TRUE(ports->windows.find(older) != nullptr);
    EXPECT_FALSE(ports->control.activate({999999999}, ActivationOption::none));
    EXPECT_TRUE(ports->control.state({999999999}).terminated);
}

TEST_F(Desk, EndsApplicationsPolitelyOrNot) {
    for (const Termination termination : {Termination::polite, Termination::forced}) {
        ASSERT_TRUE(openAndWait("FixtureTwo"));
        ASSERT_TRUE(openAndWait("FixtureOne"));
        const platform::ProcessIdentifier ended = pid("FixtureOne");
        ASSERT_TRUE(ports->control.terminate(ended, termination));
        EXPECT_TRUE(waitFor([&] { return ports->control.state(ended).terminated; }));
        EXPECT_EQ(windowCount("FixtureTwo"), 1U);
    }
}

bool waitsForSignal(pid_t process, int signal) {
    QFile status(QStringLiteral("/proc/%1/status").arg(process));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("ShdPnd:"))
            return ((line.mid(7).trimmed().toULongLong(nullptr, 16) >> (signal - 1)) & 1U) != 0;
    }
    return false;
}

// The window that stays may be a question about unsaved work.
TEST_F(Desk, APoliteEndSignalsNoProgramWhoseWindowStays) {
    spawn("xterm -class FixtureOne -e cat");
    ASSERT_TRUE(waitFor([&] { return windowCount("FixtureOne") == 1; }));
    const auto process = static_cast<pid_t>(pid("FixtureOne").value);
    ASSERT_EQ(::kill(process, SIGSTOP), 0);
    ASSERT_TRUE(ports->control.terminate(pid("FixtureOne"), Termination::polite));
    bool passed = false;
    const platform::Timer wait = scheduler.after(2500ms, "test", [&] { passed = true; });
    EXPECT_TRUE(waitFor([&] { return passed; }));
    EXPECT_FALSE(waitsForSignal(process, SIGTERM));
    ::kill(process, SIGCONT);
    EXPECT_TRUE(waitFor([&] { return spawned.back()->state() == QProcess::NotRunning; }));
}

TEST_F(Desk, APoliteEndSignalsAProgramThatLivesOnWithoutAWindow) {
    QProcess program;
    program.start(QStringLiteral("sleep"), {QStringLiteral("600")});
    ASSERT_TRUE(program.waitForStarted());
    const QByteArray here = QSysInfo::machineHostName().toUtf8();
    ToyWindows toys;
    toys.show({"Background", static_cast<std::uint32_t>(program.processId()),
               "_NET_WM_WINDOW_TYPE_NORMAL", here.constData()});
    ASSERT_TRUE(waitFor([&] { return windowCount("Background") == 1; }));
    ASSERT_TRUE(ports->control.terminate(pid("Background"), Termination::polite));
    EXPECT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitStatus(), QProcess::CrashExit) << "not by a signal";
}

TEST_F(Desk, NoSignalGoesToAProcessOfAnotherMachine) {
    QProcess bystander;
    bystander.start(QStringLiteral("sleep"), {QStringLiteral("600")});
    ASSERT_TRUE(bystander.waitForStarted());
    ToyWindows toys;
    const auto number = static_cast<std::uint32_t>(bystander.processId());
    toys.show({"Elsewhere", number, "_NET_WM_WINDOW_TYPE_NORMAL", "another.host"});
    ASSERT_TRUE(waitFor([&] { return windowCount("Elsewhere") == 1; }));
    EXPECT_LT(pid("Elsewhere").value, 0);
    ASSERT_TRUE(ports->control.terminate(pid("Elsewhere"), Termination::forced));
    EXPECT_TRUE(waitFor([&] { return windowCount("Elsewhere") == 0; })) << "not disconnected";
    EXPECT_FALSE(bystander.waitForFinished(0));
    EXPECT_EQ(bystander.state(), QProcess::Running);
    bystander.kill();
    bystander.waitForFinished();
}

// A number from inside a sandbox leads to no process here, or to one that has nothing to do with
// it.
TEST_F(Desk, AWindowWhoseProcessCannotBeFoundStillRuns) {
    ToyWindows toys;
    constexpr std::uint32_t beyondEveryProcess = 0x7FFFFFF0;
    toys.show({"Sandboxed", beyondEveryProcess});
    ASSERT_TRUE(waitFor([&] { return windowCount("Sandboxed") == 1; }));
    EXPECT_FALSE(ports->control.state(pid("Sandboxed")).terminated);
}

TEST_F(Desk, CyclesThroughTheWindowsOfOneApplication) {
    const auto cycle = [&](const char* name, CycleDirection direction) {
        const auto answer = ports->scripts.run(
            {QString(), platform::CycleWindows{QString::fromLatin1(name), direction}}, 1s);
        const auto* error = std::get_if<ScriptError>(&answer);
        return error == nullptr ? 0 : error->number;
    };
    EXPECT_EQ(cycle("FixtureOne", CycleDirection::next), -600);
    ASSERT_TRUE(openAndWait("FixtureTwo"));
    ASSERT_TRUE(openAndWait("FixtureOne"));
    EXPECT_EQ(cycle("FixtureOne", CycleDirection::previous), -1719);
    spawn("xterm -class FixtureOne -e cat");
    ASSERT_TRUE(waitFor([&] {
        return windowCount("FixtureOne") == 2 &&
               application("FixtureOne")->windows.front() == ports->windows.active();
    }));
    const xcb_window_t newer = application("FixtureOne")->windows[0];
    const xcb_window_t older = application("FixtureOne")->windows[1];
    const auto showing = [&](xcb_window_t window) {
        ports->windows.settle();
        const auto* known = ports->windows.find(window);
        return known != nullptr && !ports->windows.isHidden(*known);
    };
    EXPECT_EQ(cycle("FixtureOne", CycleDirection::next), 0);
    ASSERT_TRUE(waitFor([&] { return !showing(newer) && ports->windows.active() == older; }));
    EXPECT_EQ(front(), "FixtureOne");
    EXPECT_EQ(cycle("FixtureOne", CycleDirection::next), 0);
    ASSERT_TRUE(waitFor([&] { return !showing(older); }));
    EXPECT_EQ(cycle("FixtureOne", CycleDirection::next), -1719);
    EXPECT_EQ(cycle("FixtureOne", CycleDirection::previous), 0);
    ASSERT_TRUE(waitFor([&] { return showing(older); })) << "the last one minimised comes first";
    EXPECT_FALSE(showing(newer));
    EXPECT_EQ(cycle("FixtureOne", CycleDirection::previous), 0);
    EXPECT_TRUE(waitFor([&] { return showing(newer); }));
}

} // namespace
} // namespace skipnest::tests
