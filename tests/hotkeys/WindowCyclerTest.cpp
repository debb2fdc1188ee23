// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/WindowCycler.h"

#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

namespace skipnest::hotkeys {
namespace {

using namespace std::chrono_literals;
using platform::CycleDirection;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

TEST(WindowCyclerTest, scriptTriesThreeSpellingsAndQuotesTheIdentifier) {
    EXPECT_EQ(WindowCycler::script(QStringLiteral("com.example.notes"), CycleDirection::next),
              QStringLiteral(
                  "tell application id \"com.example.notes\"\n"
                  "    try\n"
                  "        set minimized of (first window whose minimized is false) to true\n"
                  "    on error\n"
                  "        try\n"
                  "            set miniaturized of (first window whose miniaturized is false) to "
                  "true\n"
                  "        on error\n"
                  "            set collapsed of (first window whose collapsed is false) to true\n"
                  "        end try\n"
                  "    end try\n"
                  "end tell"));
    EXPECT_THAT(
        WindowCycler::script(QStringLiteral("a\"b\\c"), CycleDirection::previous).toStdString(),
        testing::AllOf(
            StartsWith("tell application id \"a\\\"b\\\\c\"\n"),
            HasSubstr("set collapsed of (last window whose collapsed is true) to false")));
}

TEST(WindowCyclerTest, minimisesInTurnAndFallsBackToReactivation) {
    sim::SimDesktop desk;
    WindowCycler cycler(desk.ports());
    cycler.cycle(CycleDirection::next); // nothing in front, nothing done
    EXPECT_TRUE(desk.journal().entries().empty());

    desk.installApp({.name = QStringLiteral("Notes"),
                     .bundleIdentifier = QStringLiteral("com.example.notes"),
                     .path = QStringLiteral("/Notes.app"),
                     .pid = {},
                     .running = sim::Running::yes,
                     .windows = {{QStringLiteral("A")}, {QStringLiteral("B")}}});
    desk.bringToFront(QStringLiteral("Notes"));
    cycler.cycle(CycleDirection::next);
    const auto minimised = [&desk] {
        std::string state;
        for (const auto& window : desk.applications().find(QStringLiteral("Notes"))->windows)
            state += window.minimized ? '-' : '+';
        return state;
    };
    EXPECT_EQ(minimised(), "-+");
    cycler.cycle(CycleDirection::previous);
    EXPECT_EQ(minimised(), "++");

    desk.scripts().setAnswer(QStringLiteral("com.example.notes"),
                             platform::ScriptError{-1743, QStringLiteral("not allowed")});
    desk.journal().clear();
    cycler.cycle(CycleDirection::next);
    desk.advance(1s);
    EXPECT_THAT(desk.journal().prints(),
                ElementsAre("[Skipnest] Window switching via Apple Events failed for "
                            "com.example.notes: not allowed"));
    EXPECT_THAT(desk.journal().timedCalls(),
                ElementsAre(StartsWith("0 script"),
                            "0 activate app=Skipnest options=ignoringOtherApps",
                            "0.1 activate app=Notes options=allWindows"));
}

} // namespace
} // namespace skipnest::hotkeys
