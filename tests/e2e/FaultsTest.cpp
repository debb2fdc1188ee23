// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/DesktopTest.h"
#include "tests/e2e/Waiting.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <csignal>
#include <sys/wait.h>

namespace skipnest::e2e {
namespace {

using namespace std::chrono_literals;

class FaultsTest : public DesktopTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
        bindBoth();
    }

    void expectBothJumps() {
        EXPECT_TRUE(jumps(u"ctrl+alt+j", one));
        EXPECT_TRUE(jumps(u"ctrl+alt+k", two));
    }

    void expectRecordsDecode() {
        QFile file(agent->configurationPath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(QJsonDocument::fromJson(file.readAll())
                      .object()
                      .value(QStringLiteral("shortcuts"))
                      .toArray()
                      .size(),
                  2);
        static const QRegularExpression entry(
            QStringLiteral(R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}\S* .+$)"));
        for (const QString& line : agent->log())
            EXPECT_TRUE(entry.match(line).hasMatch()) << qPrintable(line);
    }
};

TEST_F(FaultsTest, TheWindowManagerIsRestarted) {
    ASSERT_NO_FATAL_FAILURE(startAgent());
    expectBothJumps();
    ASSERT_TRUE(session->restartWindowManager());
    expectBothJumps();
}

TEST_F(FaultsTest, TheDisplayServerDies) {
    ASSERT_NO_FATAL_FAILURE(startAgent());
    expectBothJumps();
    session->killDisplayServer();
    ASSERT_TRUE(agent->process().ends(2s));
    EXPECT_TRUE(WIFEXITED(*agent->process().waitStatus()))
        << "signal " << WTERMSIG(*agent->process().waitStatus());
    expectRecordsDecode();
}

TEST_F(FaultsTest, KilledWithoutWarningItStartsAgain) {
    ASSERT_NO_FATAL_FAILURE(startAgent());
    agent->process().send(SIGKILL);
    ASSERT_TRUE(agent->process().ends(patience));
    expectRecordsDecode();
    ASSERT_NO_FATAL_FAILURE(startAgent());
    expectBothJumps();
}

TEST_F(FaultsTest, ASecondStartTakesOverAndLosesNoKey) {
    ASSERT_NO_FATAL_FAILURE(startAgent());
    ChildProcess second = agent->startAnother();
    const auto typedUntil = Clock::now() + 500ms;
    while (Clock::now() < typedUntil)
        expectBothJumps();
    EXPECT_TRUE(agent->process().ends(1s));
    EXPECT_EQ(agent->process().waitStatus(), 0);
    EXPECT_TRUE(eventually([&] { return agent->answers(); }));
    EXPECT_TRUE(second.running());
    expectBothJumps();
}

TEST_F(FaultsTest, AnInstanceThatHangsIsEndedByTheNext) {
    ASSERT_NO_FATAL_FAILURE(startAgent());
    agent->process().send(SIGSTOP);
    ChildProcess second = agent->startAnother();
    EXPECT_TRUE(agent->process().ends(5s)); // asked first, ended by force after two seconds
    EXPECT_TRUE(eventually([&] { return agent->answers(); }));
    EXPECT_TRUE(second.running());
    expectBothJumps();
}

TEST_F(FaultsTest, ARecordingOfARealSessionReplays) {
    agent->writeConfiguration();
    const QString trace = session->home() + QStringLiteral("/trace.jsonl");
    ChildProcess recording = agent->startAnother({QStringLiteral("--record"), trace});
    ASSERT_TRUE(eventually([&] { return agent->answers(); }));
    expectBothJumps();
    keyboard().tap(u"s"); // into the terminal in front, which must not end up in the trace
    ASSERT_EQ(agent->command({QStringLiteral("quit")}).exitCode, 0);
    ASSERT_TRUE(recording.ends(patience));

    QFile file(trace);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().count("\"do\":\"hotkey\""), 2);
    const Answer replayed = agent->command({QStringLiteral("replay"), trace});
    EXPECT_EQ(replayed.exitCode, 0) << replayed.errors.toStdString();
}

TEST_F(FaultsTest, OfTwentyStartedAtOnceOneStays) {
    agent->writeConfiguration();
    std::vector<ChildProcess> instances;
    for (int count = 0; count < 20; ++count)
        instances.push_back(agent->startAnother());
    const auto running = [&] {
        return std::ranges::count_if(instances,
                                     [](ChildProcess& instance) { return instance.running(); });
    };
    EXPECT_TRUE(eventually([&] { return running() == 1; }, 30s)) << running() << " are running";
    EXPECT_TRUE(eventually([&] { return agent->answers(); }));
    EXPECT_EQ(running(), 1);
    expectBothJumps();
}

TEST_F(FaultsTest, AMissingTargetIsToldInAWindowThatCloses) {
    const QString gone = session->home() + QStringLiteral("/gone.txt");
    agent->bind({QStringLiteral("gone"), gone, QStringLiteral("ctrl+alt+g")});
    ASSERT_NO_FATAL_FAILURE(startAgent());
    const auto alerts = [&] { return windows().ofProcess(agent->process().pid()); };

    keyboard().tap(u"ctrl+alt+g");
    ASSERT_TRUE(eventually([&] { return !alerts().empty(); }));
    const xcb_window_t alert = alerts().front();
    EXPECT_TRUE(windows().becomesActive(alert));
    keyboard().tap(u"return");
    EXPECT_TRUE(eventually([&] { return alerts().empty(); }));
    expectBothJumps();
}

} // namespace
} // namespace skipnest::e2e
