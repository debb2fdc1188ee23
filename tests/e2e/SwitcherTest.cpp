// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/DesktopTest.h"
#include "tests/e2e/Waiting.h"

#include <QFile>

#include <algorithm>
#include <iostream>

namespace skipnest::e2e {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

// Three terminals of Two: gamma in front, then beta, then alpha, which is titled as its class. Two
// is on Ctrl+Alt+K, One on Ctrl+Alt+J.
class SwitcherTest : public DesktopTest, public ::testing::WithParamInterface<WindowManager> {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(open(GetParam()));
        alpha = twoWindow;
        beta = openTitled(u"beta"_s);
        gamma = openTitled(u"gamma"_s);
        bindBoth();
        ASSERT_NO_FATAL_FAILURE(startAgent());
    }

    // What is typed into it lies in a file of its title.
    xcb_window_t openTitled(const QString& title) {
        session->startBackground({u"xterm"_s, u"-class"_s, two, u"-T"_s, title, u"-e"_s, u"sh"_s,
                                  u"-c"_s, u"stty -icanon; exec cat > "_s + title});
        xcb_window_t opened = XCB_WINDOW_NONE;
        EXPECT_TRUE(eventually([&] {
            for (const xcb_window_t window : windows().ofClass(two))
                if (windows().title(window) == title)
                    opened = window;
            return opened != XCB_WINDOW_NONE;
        }));
        EXPECT_TRUE(windows().activate(opened));
        return opened;
    }
    QByteArray typedInto(const QString& title) const {
        QFile file(session->home() + u'/' + title);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The bar is the only window of the agent that is on the screen without a window manager's say.
    bool isShown() {
        XConnection& connection = session->connection();
        xcb_connection_t* raw = connection.raw();
        const XReply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(raw, xcb_query_tree(raw, connection.root()), nullptr));
        if (!tree)
            return false;
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        return std::any_of(children, children + xcb_query_tree_children_length(tree.get()),
                           [&](xcb_window_t window) {
                               const auto owner = connection.numbers(window, "_NET_WM_PID");
                               const XReply<xcb_get_window_attributes_reply_t> attributes(
                                   xcb_get_window_attributes_reply(
                                       raw, xcb_get_window_attributes(raw, window), nullptr));
                               return !owner.empty() &&
                                      owner.front() == std::uint32_t(agent->process().pid()) &&
                                      attributes && attributes->override_redirect != 0 &&
                                      attributes->map_state == XCB_MAP_STATE_VIEWABLE;
                           });
    }
    [[nodiscard]] bool opens() {
        return eventually([this] { return isShown() && isKeyboardHeld(session->connection()); });
    }
    [[nodiscard]] bool closes() {
        return eventually([this] { return !isShown() && !isKeyboardHeld(session->connection()); });
    }
    // Opens the bar and leaves it up: "gamma" selected.
    [[nodiscard]] bool tapOpens() {
        keyboard().tap(u"ctrl+alt+k");
        return opens() && agent->logs(u"switcher: tap-open → interactive"_s);
    }
    void type(QStringView text) {
        for (const QChar key : text)
            keyboard().tap(QString(key));
    }

    xcb_window_t alpha = XCB_WINDOW_NONE;
    xcb_window_t beta = XCB_WINDOW_NONE;
    xcb_window_t gamma = XCB_WINDOW_NONE;
};

TEST_P(SwitcherTest, HoldingMovesOnAndLettingGoPicksWithoutTakingTheFocus) {
    const Chord keys = chord(u"ctrl+alt+k");
    keyboard().holdModifiers(keys);
    const auto pressed = Clock::now();
    keyboard().pressKey(keys);
    ASSERT_TRUE(opens());
    const auto shown = Clock::now() - pressed;
    EXPECT_EQ(windows().active(), gamma) << "the bar took the focus";
    // Past the first step, and well before the second.
    EXPECT_FALSE(eventually([&] { return windows().active() != gamma || !isShown(); }, 1050ms));
    keyboard().release(keys);
    EXPECT_TRUE(windows().becomesActive(beta)) << qPrintable(windows().title(windows().active()));
    EXPECT_TRUE(closes());
    EXPECT_TRUE(agent->logs(u"switcher: commit(modifier released)"_s));
    std::cout << "press to bar on the screen: "
              << std::chrono::duration<double, std::milli>(shown).count() << " ms\n";
}

TEST_P(SwitcherTest, ATapStaysForArrowsTabReturnAndEscape) {
    ASSERT_TRUE(tapOpens());
    EXPECT_EQ(windows().active(), gamma);
    keyboard().tap(u"right"); // beta
    keyboard().tap(u"tab");   // alpha
    keyboard().tap(u"right"); // gamma
    keyboard().tap(u"left");  // alpha
    keyboard().tap(u"return");
    EXPECT_TRUE(windows().becomesActive(alpha)) << qPrintable(windows().title(windows().active()));
    EXPECT_TRUE(closes());

    keyboard().tap(u"ctrl+alt+k");
    ASSERT_TRUE(opens());
    keyboard().tap(u"right");
    keyboard().tap(u"esc");
    EXPECT_TRUE(closes());
    EXPECT_EQ(windows().active(), alpha) << "leaving changes nothing";
    EXPECT_EQ(typedInto(u"gamma"_s), "") << "keys of the bar leaked";
}

TEST_P(SwitcherTest, TypingSearchesAndOtherKeysGoOn) {
    ASSERT_TRUE(tapOpens());
    type(u"ta");
    EXPECT_TRUE(agent->logs(u"switcher: query='ta' matches=1"_s));
    keyboard().tap(u"ctrl+g"); // typed by nobody: the terminal below gets it
    EXPECT_TRUE(eventually([this] { return typedInto(u"gamma"_s) == "\a"; }))
        << typedInto(u"gamma"_s).toHex().constData();
    EXPECT_TRUE(isShown());
    keyboard().tap(u"return");
    EXPECT_TRUE(windows().becomesActive(beta));
    EXPECT_TRUE(closes());
    type(u"x");
    EXPECT_TRUE(eventually([this] { return typedInto(u"beta"_s) == "x"; }))
        << "the keyboard is everybody's again";
}

TEST_P(SwitcherTest, AnotherShortcutClosesTheBarAndJumps) {
    ASSERT_TRUE(tapOpens());
    EXPECT_TRUE(jumps(u"ctrl+alt+j", one));
    EXPECT_TRUE(closes());
}

TEST_P(SwitcherTest, PicksOnAnotherDesktopAndOutOfAnIcon) {
    ASSERT_TRUE(windows().moveToDesktop(alpha, 1));
    ASSERT_TRUE(windows().minimise(beta));
    ASSERT_TRUE(windows().becomesActive(gamma));
    ASSERT_TRUE(tapOpens());
    type(u"bet");
    keyboard().tap(u"return");
    EXPECT_TRUE(windows().becomesActive(beta));
    EXPECT_FALSE(windows().minimised(beta));
    EXPECT_TRUE(closes());

    keyboard().tap(u"ctrl+alt+k");
    ASSERT_TRUE(opens());
    type(u"fix");
    keyboard().tap(u"return");
    EXPECT_TRUE(windows().becomesActive(alpha));
    EXPECT_EQ(windows().currentDesktop(), 1U);
    EXPECT_EQ(windows().desktopOf(alpha), 1U) << "the window was pulled over";
}

TEST_P(SwitcherTest, WindowsAndProgramsThatGoWhileTheBarIsUpHarmNothing) {
    ASSERT_TRUE(tapOpens());
    ASSERT_TRUE(windows().close(beta));
    keyboard().tap(u"right");
    keyboard().tap(u"return"); // beta, which is no more
    EXPECT_TRUE(closes());
    EXPECT_TRUE(agent->logs(u"raise 'beta': main=-25202 focus=-25202 raise=-25202 front=0"_s));
    EXPECT_TRUE(windows().becomesActive(two));

    keyboard().tap(u"ctrl+alt+k");
    ASSERT_TRUE(opens());
    ASSERT_TRUE(windows().close(alpha) && windows().close(gamma));
    EXPECT_TRUE(closes()) << "its application has ended";
    EXPECT_TRUE(jumps(u"ctrl+alt+j", one));
}

TEST_P(SwitcherTest, OneWindowIsNothingToChooseFrom) {
    ASSERT_TRUE(jumps(u"ctrl+alt+j", one));
    keyboard().tap(u"ctrl+alt+j");
    EXPECT_TRUE(agent->logs(u"switcher: only 1 window(s) total"_s));
    EXPECT_FALSE(isShown());
    EXPECT_EQ(windows().active(), oneWindow);
}

TEST_P(SwitcherTest, TheCommandLineOpensItOverAnyApplication) {
    ASSERT_TRUE(jumps(u"ctrl+alt+j", one));
    const Answer refused = agent->command({u"switcher"_s});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.errors.contains("no windows or tabs")) << refused.errors.constData();
    const Answer opened = agent->command({u"switcher"_s, two});
    EXPECT_EQ(opened.exitCode, 0) << opened.errors.constData();
    EXPECT_EQ(opened.json[u"windows"].toInt(), 3);
    ASSERT_TRUE(opens());
    EXPECT_EQ(windows().active(), oneWindow);
    type(u"fix");
    keyboard().tap(u"return");
    EXPECT_TRUE(windows().becomesActive(alpha));
    EXPECT_TRUE(closes());
}

INSTANTIATE_TEST_SUITE_P(WindowManagers, SwitcherTest,
                         ::testing::Values(WindowManager::openbox, WindowManager::xfwm4),
                         [](const auto& row) { return nameOf(row.param).toStdString(); });

// A document that only its program's Window menu knows.
class WindowMenuTest : public DesktopTest {};

TEST_F(WindowMenuTest, ItsEntriesAreListedAndRaised) {
    ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
    ASSERT_EQ(session
                  ->runToEnd({u"dbus-send"_s, u"--session"_s, u"--dest=org.a11y.Bus"_s,
                              u"--print-reply"_s, u"/org/a11y/bus"_s,
                              u"org.freedesktop.DBus.Properties.Set"_s, u"string:org.a11y.Status"_s,
                              u"string:IsEnabled"_s, u"variant:boolean:true"_s})
                  .exitCode,
              0);
    bindBoth();
    ASSERT_NO_FATAL_FAILURE(startAgent());
    session->startBackground({QStringLiteral(WINDOW_MENU_PROGRAM)});
    ASSERT_NE(windows().appears(u"FixtureMenu"_s), XCB_WINDOW_NONE);
    ASSERT_TRUE(windows().becomesActive(u"FixtureMenu"_s));
    ASSERT_TRUE(eventually([this] {
        // Opened again over the same application it would only step on.
        keyboard().tap(u"esc");
        const Answer answer = agent->command({u"switcher"_s});
        return answer.json[u"windows"].toInt() == 3;
    })) << "the menu's own window is not listed";
    for (const QChar key : u"notes"_s)
        keyboard().tap(QString(key));
    keyboard().tap(u"return");
    EXPECT_TRUE(eventually([this] { return windows().title(windows().active()) == u"Notes"; }))
        << qPrintable(windows().title(windows().active()));
    EXPECT_TRUE(agent->logs(u"menu-raise: press 'Notes' err=0"_s));
}

} // namespace
} // namespace skipnest::e2e
