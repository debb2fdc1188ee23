// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/DesktopTest.h"
#include "tests/e2e/Waiting.h"

#include <optional>

namespace skipnest::e2e {
namespace {

class HotkeysTest : public DesktopTest {
protected:
    void openWithAgent() {
        ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
        bindBoth();
        ASSERT_NO_FATAL_FAILURE(startAgent());
    }
};

TEST_F(HotkeysTest, FireWhateverLocksAreOn) {
    ASSERT_NO_FATAL_FAILURE(openWithAgent());
    for (const QStringView lock : {u"capslock", u"numlock", u"capslock", u"numlock"}) {
        keyboard().tap(lock);
        EXPECT_TRUE(jumps(u"ctrl+alt+j", one)) << "after " << qPrintable(lock.toString());
        EXPECT_TRUE(jumps(u"ctrl+alt+k", two)) << "after " << qPrintable(lock.toString());
    }
}

TEST_F(HotkeysTest, AChordThatAnotherProgramHoldsIsReportedAndTakenWhenFree) {
    ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
    std::optional<TakenKey> other(std::in_place, session->display(), chord(u"ctrl+alt+k"));
    ASSERT_TRUE(other->held());
    bindBoth();
    ASSERT_NO_FATAL_FAILURE(startAgent());

    EXPECT_TRUE(agent->logs(QStringLiteral("hotkey registered Ctrl + Opt + J")));
    EXPECT_TRUE(agent->logs(
        QStringLiteral("hotkey REGISTER FAILED Ctrl + Opt + K mods=6144 key=40 status=10")));
    EXPECT_TRUE(jumps(u"ctrl+alt+j", one)) << "the others work on";
    EXPECT_EQ(agent->log().filter(QStringLiteral("registered Ctrl + Opt + K")).size(), 0);

    other.reset();
    keyboard().tap(u"shift"); // an idle X server tells of the end with the next key
    EXPECT_TRUE(agent->logs(QStringLiteral("hotkey registered Ctrl + Opt + K")));
    EXPECT_TRUE(jumps(u"ctrl+alt+k", two));
}

class ArrowsTest : public DesktopTest, public ::testing::WithParamInterface<WindowManager> {};

// Both window managers switch desktops with these chords and had them first.
TEST_P(ArrowsTest, TheWindowManagersOwnChordsAreRefused) {
    ASSERT_NO_FATAL_FAILURE(open(GetParam()));
    bindBoth();
    agent->set(QStringLiteral("windowCycling"), true);
    ASSERT_NO_FATAL_FAILURE(startAgent());

    EXPECT_TRUE(agent->logs(
        QStringLiteral("hotkey REGISTER FAILED Ctrl + Opt + → mods=6144 key=124 status=10")));
    EXPECT_TRUE(agent->logs(
        QStringLiteral("hotkey REGISTER FAILED Ctrl + Opt + ← mods=6144 key=123 status=10")));
    keyboard().tap(u"ctrl+alt+right");
    EXPECT_TRUE(eventually([&] { return windows().currentDesktop() == 1; }))
        << "the window manager keeps its chord";
}

INSTANTIATE_TEST_SUITE_P(WindowManagers, ArrowsTest,
                         ::testing::Values(WindowManager::openbox, WindowManager::xfwm4),
                         [](const auto& row) { return nameOf(row.param).toStdString(); });

// Z and Y change places on a German keyboard: a shortcut belongs to the key, not to its letter.
TEST_F(HotkeysTest, StayOnTheirPhysicalKeysWhenTheLayoutChanges) {
    ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
    agent->set(QStringLiteral("voiceSearch"), false);
    agent->bind({one, oneEntry, QStringLiteral("ctrl+alt+z")});
    agent->bind({two, twoEntry, QStringLiteral("ctrl+alt+y")});
    ASSERT_NO_FATAL_FAILURE(startAgent());
    for (const QString& layout :
         {QStringLiteral("us"), QStringLiteral("de"), QStringLiteral("us")}) {
        ASSERT_EQ(session->runToEnd({QStringLiteral("setxkbmap"), layout}).exitCode, 0);
        EXPECT_TRUE(jumps(u"ctrl+alt+z", one)) << qPrintable(layout);
        EXPECT_TRUE(jumps(u"ctrl+alt+y", two)) << qPrintable(layout);
    }
    EXPECT_EQ(agent->log().filter(QStringLiteral("REGISTER FAILED")).size(), 0);
}

TEST_F(HotkeysTest, FollowTheCommandLineAndAreLeftBehindByNobody) {
    ASSERT_NO_FATAL_FAILURE(openWithAgent());
    const Chord added = chord(u"ctrl+alt+o");
    ASSERT_EQ(agent->command({QStringLiteral("remove"), one}).exitCode, 0);
    EXPECT_FALSE(isTaken(session->connection(), chord(u"ctrl+alt+j")));

    const Answer answer = agent->command(
        {QStringLiteral("add"), oneEntry, QStringLiteral("--key"), QStringLiteral("ctrl+opt+o")});
    ASSERT_EQ(answer.exitCode, 0) << answer.errors.constData();
    EXPECT_TRUE(isTaken(session->connection(), added));
    EXPECT_TRUE(jumps(u"ctrl+alt+o", one));

    ASSERT_EQ(agent->command({QStringLiteral("quit")}).exitCode, 0);
    EXPECT_TRUE(agent->process().ends(patience));
    EXPECT_EQ(agent->process().waitStatus(), 0);
    EXPECT_FALSE(isTaken(session->connection(), added));
}

} // namespace
} // namespace skipnest::e2e
