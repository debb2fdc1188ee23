// SPDX-License-Identifier: Apache-2.0
#include "stats/Milestones.h"
#include "stats/TimeSaved.h"

#include <gtest/gtest.h>

namespace skipnest::stats {
namespace {

StatsStore jumped(std::int64_t total, const QStringList& celebrated = {}) {
    StatsStore store;
    store.total = total;
    store.celebrated = celebrated;
    return store;
}

QStringList list(const char* words) {
    return QString::fromUtf8(words).split(u' ', Qt::SkipEmptyParts);
}

std::string text(const std::optional<Milestone>& milestone) {
    return milestone
               ? (milestone->id + u'|' + milestone->title + u'|' + milestone->sub).toStdString()
               : "none";
}

TEST(TimeSaved, isRoundedToMinutes) {
    struct Row {
        std::int64_t jumps;
        const char* text;
    };
    const Row rows[] = {{0, "<1 min"},
                        {5, "<1 min"},
                        {6, "1 min"},
                        {12, "1 min"},
                        {17, "1 min"},
                        {18, "2 min"},
                        {713, "59 min"},
                        {714, "1 h 0 min"},
                        {1500, "2 h 5 min"},
                        {50'000, "69 h 27 min"},
                        {largestCount, "12509998964918 h 3 min"}};
    for (const Row& row : rows)
        EXPECT_EQ(timeSavedText(row.jumps).toStdString(), row.text) << row.jumps;
}

TEST(Milestones, areOfferedInOrderAndOnce) {
    struct Row {
        std::int64_t total;
        const char* celebrated;
        const char* offered;
    };
    const Row rows[] = {
        {0, "", "none"},
        {1, "", "first|Your first jump! 🎉|One key, and you were there. That's the whole magic."},
        {5, "", "first|Your first jump! 🎉|One key, and you were there. That's the whole magic."},
        {6, "", "none"},
        {5, "first", "none"},
        {99, "", "none"},
        {100, "", "j100|100 jumps! 🎉|That's 8 min of hunting you never did."},
        {100, "j100", "none"},
        {719, "j100 j500", "none"},
        {720, "j100 j500", "h1|1 hour saved! 🎉|Reclaimed from window hunting - and counting."},
        {3600, "j100 j500 j1000 h1",
         "h5|5 hours saved! 🎉|Reclaimed from window hunting - and counting."},
        // An import: each has its turn, those of jumps before those of hours.
        {60'000, "", "j100|100 jumps! 🎉|That's 8 min of hunting you never did."},
        {60'000, "j100 j500", "j1000|1000 jumps! 🎉|That's 1 h 23 min of hunting you never did."},
        {60'000, "j100 j500 j1000 j5000 j10000",
         "j50000|50000 jumps! 🎉|That's 69 h 27 min of hunting you never did."},
        {72'000, "j100 j500 j1000 j5000 j10000 j50000 h1 h5 h10 h25 h50",
         "h100|100 hours saved! 🎉|Reclaimed from window hunting - and counting."},
        {71'999, "j100 j500 j1000 j5000 j10000 j50000 h1 h5 h10 h25 h50", "none"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(text(jumpMilestone(jumped(row.total, list(row.celebrated)))), row.offered)
            << row.total;
}

TEST(Milestones, aPlaceCountsOnlyAmongEnoughOthers) {
    struct Row {
        std::int64_t rank;
        std::int64_t of;
        const char* awarded;
        const char* offered;
    };
    const char* const all = "ch.join ch.100 ch.10 ch.3 ch.1";
    const Row rows[] = {
        {7, 12, "",
         "ch.join|You're on the world board! 🌍|The Global Jump Challenge counts your jumps now - "
         "rank #7"},
        {7, 12, "ch.join", "none"},
        {100, 150, "ch.join", "ch.100|Top 100 worldwide! 🌍|Rank #100 of 150 challengers."},
        {101, 150, "ch.join", "none"},
        {100, 149, "ch.join", "none"},
        {10, 30, "ch.join", "ch.10|Top 10 in the world! 🏆|Rank #10 of 30 - elite jumper."},
        {11, 30, "ch.join", "none"},
        {10, 29, "ch.join", "none"},
        {3, 15, "ch.join", "ch.3|You're on the podium! 🏅|Rank #3 worldwide."},
        {4, 15, "ch.join", "none"},
        {3, 14, "ch.join", "none"},
        {1, 10, "ch.join", "ch.1|#1 in the world! 🥇|Nobody on the planet jumps more. Respect."},
        {2, 10, "ch.join", "none"},
        {1, 9, "ch.join", "none"},
        {1, 150, "ch.join ch.100", "ch.10|Top 10 in the world! 🏆|Rank #1 of 150 - elite jumper."},
        {1, 150, all, "none"},
        // No rank yet, and ranks that cannot be.
        {0, 12, "", "none"},
        {-1, 200, "", "none"},
        {13, 12, "", "none"},
        {1, 0, "", "none"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(text(challengeMilestone({row.rank, row.of, list(row.awarded)})), row.offered)
            << row.rank << " of " << row.of;
}

TEST(Milestones, theRecapComesOncePerIsoWeek) {
    const std::pair<QDate, const char*> weeks[] = {
        {{2026, 2, 9}, "recap.2026-W7"},  {{2026, 2, 15}, "recap.2026-W7"},
        {{2026, 2, 16}, "recap.2026-W8"}, {{2024, 12, 30}, "recap.2025-W1"},
        {{2027, 1, 3}, "recap.2026-W53"}, {{2027, 1, 4}, "recap.2027-W1"},
        {{2022, 1, 1}, "recap.2021-W52"},
    };
    for (const auto& [day, id] : weeks)
        EXPECT_EQ(recapIdentifier(day).toStdString(), id);

    const QDate today(2026, 2, 11);
    StatsStore store;
    store.byDay = {{today, 14}, {today.addDays(-7), 100}, {today.addDays(1), 100}};
    EXPECT_EQ(text(recap(store, today)), "none");
    store.byDay[today.addDays(-6)] = 1;
    EXPECT_EQ(text(recap(store, today)), "recap.2026-W7|15 jumps this week ⚡|1 min. Nice week.");
    store.byDay[today.addDays(-1)] = 135;
    EXPECT_EQ(text(recap(store, today)),
              "recap.2026-W7|150 jumps this week ⚡|13 min. Nice week. 2-day streak 🔥");
    store.celebrated = {QStringLiteral("recap.2026-W7")};
    EXPECT_EQ(text(recap(store, today)), "none");
    EXPECT_EQ(recap(store, today.addDays(5))->id, QStringLiteral("recap.2026-W8"));
}

TEST(Milestones, tipsAreOfWhatWasNotTriedYet) {
    struct Row {
        std::int64_t total;
        const char* used;
        const char* celebrated;
        const char* offered;
    };
    const Row rows[] = {
        {20, "", "", "tip.hide"},
        {19, "", "", "tip.capture"},
        {20, "hide", "", "tip.capture"},
        {20, "", "tip.hide", "tip.capture"},
        {9, "", "", "tip.drop"},
        {2, "", "", "tip.voice"},
        {2, "voice", "", ""},
        {20, "hide capture drop", "tip.voice", ""},
        {20, "hide capture drop", "", "tip.voice"},
    };
    for (const Row& row : rows) {
        StatsStore store = jumped(row.total, list(row.celebrated));
        store.used = list(row.used);
        const auto offered = tip(store);
        EXPECT_EQ(offered ? offered->id.toStdString() : "", row.offered) << row.total << row.used;
    }
    EXPECT_EQ(tip(jumped(2))->text.toStdString(),
              "Double-tap ⌘ and speak - \"Downloads\", \"Slack\", anywhere you want to go.");
}

TEST(Figures, weekAndStreakFollowTheCalendar) {
    StatsStore store;
    const QDate newYear(2024, 1, 1);
    for (int back = 1; back <= 400; ++back)
        store.byDay[newYear.addDays(-back)] = 2;
    EXPECT_EQ(streakDays(store, newYear), 0);
    EXPECT_EQ(weekJumps(store, newYear), 12);
    store.byDay[newYear] = 3;
    EXPECT_EQ(streakDays(store, newYear), 401);
    EXPECT_EQ(weeks(store, newYear, 3), (std::vector<std::int64_t>{14, 14, 15}));
    store.byDay[newYear.addDays(-3)] = 0;
    store.byDay[newYear.addDays(1)] = 50;
    EXPECT_EQ(streakDays(store, newYear), 3);
    EXPECT_EQ(weekJumps(store, newYear), 13);
    EXPECT_TRUE(weeks(store, newYear, -1).empty());
    for (auto& [day, count] : store.byDay)
        count = largestCount;
    EXPECT_EQ(weekJumps(store, newYear), largestCount);
    EXPECT_EQ(streakDays(StatsStore(), newYear), 0);
}

} // namespace
} // namespace skipnest::stats
