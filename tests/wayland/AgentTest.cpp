// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/Waiting.h"
#include "tests/wayland/WaylandDesktop.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace skipnest::waylandtest {
namespace {

// The agent of this build in the session, with one shortcut: "Notes", on Ctrl+Opt+J.
class AgentTest : public testing::Test {
protected:
    void SetUp() override {
        if (desktop_.agentBinary().isEmpty())
            GTEST_SKIP() << "this build has no skipnest program";
        const QString target = desktop_.addEntry(QStringLiteral("notes"), QStringLiteral("Notes"),
                                                 QStringLiteral("foot --app-id=notes"));
        ASSERT_TRUE(QDir().mkpath(desktop_.path(QStringLiteral("config/Skipnest"))));
        QFile file(desktop_.path(QStringLiteral("config/Skipnest/config.json")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QStringLiteral(R"({"version":1,"didOnboard":true,"seenOnboardingVersion":1000,
            "launchAtLogin":false,"menuBarIconName":"skipnest","shortcuts":[{
            "id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","name":"Notes","targetPath":"%1",
            "targetType":"application","sortOrder":0,"createdAt":"2026-07-24T09:00:00Z",
            "keyCombo":{"keyCode":38,"modifiers":6}}]})")
                       .arg(target)
                       .toUtf8());
        file.close();
        agent_ = desktop_.start(
            {desktop_.agentBinary(), QStringLiteral("run"), QStringLiteral("--background")});
        ASSERT_TRUE(e2e::eventually([this] {
            return command({QStringLiteral("status")}).exitCode == 0;
        })) << "the agent does not answer";
    }
    void TearDown() override { desktop_.closeWindows(QStringLiteral("notes")); }

    e2e::Finished command(const QStringList& arguments) const {
        return desktop_.run(QStringList{desktop_.agentBinary()} + arguments);
    }
    bool notesIsFocused() const {
        return e2e::eventually(
            [this] { return desktop_.windows(QStringLiteral("notes")).focused; });
    }

    WaylandDesktop& desktop_ = WaylandDesktop::current();
    e2e::ChildProcess agent_;
};

TEST_F(AgentTest, statusSaysThatNothingIsBoundAndWhatToDo) {
    const QJsonObject status =
        QJsonDocument::fromJson(command({QStringLiteral("status")}).output).object();
    EXPECT_EQ(status.value(u"session").toString(), QStringLiteral("wayland"));
    EXPECT_EQ(status.value(u"shortcuts").toInt(), 1);
    EXPECT_TRUE(status.value(u"hotkeys").toArray().isEmpty());
    const QJsonObject notBound = status.value(u"notBound").toObject();
    EXPECT_TRUE(notBound.value(u"reason").toString().contains(u"Wayland"));
    EXPECT_TRUE(notBound.value(u"remedy").toString().contains(u"skipnest jump NAME"));
}

TEST_F(AgentTest, jumpOpensTheTargetInFront) {
    const e2e::Finished jump = command({QStringLiteral("jump"), QStringLiteral("notes")});
    EXPECT_EQ(jump.exitCode, 0) << jump.errors.toStdString();
    const QJsonObject answer = QJsonDocument::fromJson(jump.output).object();
    EXPECT_EQ(answer.value(u"item").toString(), QStringLiteral("Notes"));
    EXPECT_TRUE(answer.value(u"arrived").isNull()) << "nobody can know, so nobody claims it";
    EXPECT_TRUE(notesIsFocused());
    EXPECT_TRUE(agent_.running());
}

// The way a person jumps here: the compositor has the key, and starts the command line.
TEST_F(AgentTest, aKeyThatTheCompositorHasJumps) {
    if (QStandardPaths::findExecutable(QStringLiteral("wtype")).isEmpty())
        GTEST_SKIP() << "wtype is not installed";
    const QString binding =
        QStringLiteral("bindsym Mod4+j exec %1 jump Notes").arg(desktop_.agentBinary());
    ASSERT_EQ(desktop_.run({QStringLiteral("swaymsg"), binding}).exitCode, 0);
    ASSERT_EQ(desktop_
                  .run({QStringLiteral("wtype"), QStringLiteral("-M"), QStringLiteral("logo"),
                        QStringLiteral("-k"), QStringLiteral("j")})
                  .exitCode,
              0);
    EXPECT_TRUE(notesIsFocused());
}

} // namespace
} // namespace skipnest::waylandtest
