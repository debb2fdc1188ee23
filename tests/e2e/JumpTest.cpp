// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/DesktopTest.h"
#include "tests/e2e/Waiting.h"

#include <QDir>
#include <QFile>

namespace skipnest::e2e {
namespace {

enum class Place { sameDesktop, otherDesktop, minimised };

struct Whereabouts {
    const char* name;
    WindowManager windowManager;
    Place place;
};

void PrintTo(const Whereabouts& row, std::ostream* out) {
    *out << row.name;
}

class JumpPlaceTest : public DesktopTest, public ::testing::WithParamInterface<Whereabouts> {};

TEST_P(JumpPlaceTest, BringsTheRunningWindowToFront) {
    ASSERT_NO_FATAL_FAILURE(open(GetParam().windowManager));
    switch (GetParam().place) {
    case Place::sameDesktop:
        break;
    case Place::otherDesktop:
        ASSERT_TRUE(windows().moveToDesktop(oneWindow, 1));
        break;
    case Place::minimised:
        ASSERT_TRUE(windows().minimise(oneWindow));
        break;
    }
    const std::uint32_t desktop = windows().desktopOf(oneWindow);
    bindBoth();
    ASSERT_NO_FATAL_FAILURE(startAgent());

    EXPECT_TRUE(jumps(u"ctrl+alt+j", one));

    EXPECT_EQ(windows().active(), oneWindow);
    EXPECT_EQ(windows().currentDesktop(), desktop);
    EXPECT_EQ(windows().desktopOf(oneWindow), desktop) << "the window was pulled over";
    EXPECT_FALSE(windows().minimised(oneWindow));
    EXPECT_EQ(windows().ofClass(one).size(), 1U) << "a second copy was started";
}

INSTANTIATE_TEST_SUITE_P(
    WindowManagers, JumpPlaceTest,
    ::testing::Values(Whereabouts{"openboxSameDesktop", WindowManager::openbox, Place::sameDesktop},
                      Whereabouts{"openboxOtherDesktop", WindowManager::openbox,
                                  Place::otherDesktop},
                      Whereabouts{"openboxMinimised", WindowManager::openbox, Place::minimised},
                      Whereabouts{"xfwm4SameDesktop", WindowManager::xfwm4, Place::sameDesktop},
                      Whereabouts{"xfwm4OtherDesktop", WindowManager::xfwm4, Place::otherDesktop},
                      Whereabouts{"xfwm4Minimised", WindowManager::xfwm4, Place::minimised}),
    [](const auto& row) { return std::string(row.param.name); });

class JumpTest : public DesktopTest {};

TEST_F(JumpTest, StartsWhatDoesNotRunAndOnlyOnce) {
    const QString three = QStringLiteral("FixtureThree");
    ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
    bindBoth();
    agent->bind({three, installTerminal(*session, three), QStringLiteral("ctrl+alt+l")});
    ASSERT_NO_FATAL_FAILURE(startAgent());

    EXPECT_TRUE(jumps(u"ctrl+alt+l", three));
    EXPECT_TRUE(jumps(u"ctrl+alt+j", one));
    EXPECT_TRUE(jumps(u"ctrl+alt+l", three));

    EXPECT_EQ(windows().ofClass(three).size(), 1U);
}

TEST_F(JumpTest, OpensFilesAndFoldersInTheirApplications) {
    if (systemEntry(QStringLiteral("org.xfce.mousepad")).isEmpty() ||
        systemEntry(QStringLiteral("pcmanfm-qt")).isEmpty())
        FAIL() << "mousepad and pcmanfm-qt are needed";
    ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
    const QString folder = session->home() + QStringLiteral("/letters");
    const QString file = folder + QStringLiteral("/note to self.txt");
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile note(file);
    ASSERT_TRUE(note.open(QIODevice::WriteOnly) && note.write("remember\n") > 0 && note.flush());
    bindBoth();
    agent->bind({QStringLiteral("note"), file, QStringLiteral("ctrl+alt+n")});
    agent->bind({QStringLiteral("letters"), folder, QStringLiteral("ctrl+alt+l")});
    ASSERT_NO_FATAL_FAILURE(startAgent());

    EXPECT_TRUE(jumps(u"ctrl+alt+n", QStringLiteral("Mousepad")));
    EXPECT_TRUE(eventually([&] {
        return windows().title(windows().active()).contains(QStringLiteral("note to self.txt"));
    })) << qPrintable(windows().title(windows().active()));
    EXPECT_TRUE(jumps(u"ctrl+alt+l", QStringLiteral("pcmanfm-qt")));
    EXPECT_TRUE(eventually([&] {
        return windows().title(windows().active()).contains(QStringLiteral("letters"));
    })) << qPrintable(windows().title(windows().active()));
}

struct HideRow {
    const char* name;
    WindowManager windowManager;
    const char* hideCombo; // as configured; empty: derived from the jump's
    const char* pressed;
};

void PrintTo(const HideRow& row, std::ostream* out) {
    *out << row.name;
}

class HideTest : public DesktopTest, public ::testing::WithParamInterface<HideRow> {};

TEST_P(HideTest, HidesAndGivesFocusBack) {
    const HideRow& row = GetParam();
    ASSERT_NO_FATAL_FAILURE(open(row.windowManager));
    const xcb_window_t second = openTerminal(*session, two);
    ASSERT_NE(second, XCB_WINDOW_NONE);
    agent->bind({one, oneEntry, QStringLiteral("ctrl+alt+j")});
    agent->bind({two, twoEntry, QStringLiteral("ctrl+alt+k"), QString::fromLatin1(row.hideCombo)});
    ASSERT_NO_FATAL_FAILURE(startAgent());
    ASSERT_TRUE(jumps(u"ctrl+alt+j", one));
    ASSERT_TRUE(jumps(u"ctrl+alt+k", two));

    keyboard().tap(QString::fromLatin1(row.pressed));

    EXPECT_TRUE(eventually([&] {
        return windows().minimised(twoWindow) && windows().minimised(second);
    })) << "every window of the application is hidden";
    EXPECT_TRUE(windows().becomesActive(oneWindow));
    EXPECT_TRUE(jumps(u"ctrl+alt+k", two)) << "and it comes back";
}

INSTANTIATE_TEST_SUITE_P(
    Combos, HideTest,
    ::testing::Values(HideRow{"openboxOwn", WindowManager::openbox, "ctrl+alt+h", "ctrl+alt+h"},
                      HideRow{"openboxDerived", WindowManager::openbox, "", "ctrl+alt+shift+k"},
                      HideRow{"xfwm4Derived", WindowManager::xfwm4, "", "ctrl+alt+shift+k"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(JumpTest, CyclesThroughTheWindowsOfTheFrontApplication) {
    ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
    const xcb_window_t second = openTerminal(*session, two);
    ASSERT_NE(second, XCB_WINDOW_NONE);
    bindBoth();
    agent->set(QStringLiteral("windowCycling"), true);
    agent->set(QStringLiteral("nextWindowCombo"), QStringLiteral("ctrl+alt+n"));
    agent->set(QStringLiteral("prevWindowCombo"), QStringLiteral("ctrl+alt+p"));
    ASSERT_NO_FATAL_FAILURE(startAgent());
    const auto away = [&] {
        return int{windows().minimised(twoWindow)} + int{windows().minimised(second)};
    };

    keyboard().tap(u"ctrl+alt+n");
    EXPECT_TRUE(eventually([&] { return away() == 1; }));
    ASSERT_TRUE(jumps(u"ctrl+alt+k", two));
    keyboard().tap(u"ctrl+alt+p");
    EXPECT_TRUE(eventually([&] { return away() == 0; }));
    EXPECT_FALSE(windows().minimised(oneWindow)) << "another application's window was touched";
}

} // namespace
} // namespace skipnest::e2e
