// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDate>
#include <QString>

#include <cstdint>
#include <vector>

namespace skipnest::stats {
class JumpStats;
}

namespace skipnest::ui {

// What the card says, as numbers.
struct StatisticsFigures {
    static constexpr int weekCount = 8;

    std::int64_t total = 0;
    std::int64_t weekJumps = 0; // of the last seven days
    std::int64_t streakDays = 0;
    std::int64_t streakToKeep = 0;   // days that a jump today would continue
    std::vector<std::int64_t> weeks; // spans of seven days, the oldest first
    QDate day;                       // for which this holds

    bool operator==(const StatisticsFigures&) const = default;
};

[[nodiscard]] StatisticsFigures readFigures(const stats::JumpStats& stats, QDate today);

// How long each bar of the chart is, from 0 to 1.
[[nodiscard]] std::vector<double> barLengths(const std::vector<std::int64_t>& weeks);

// "1,234": as the person's language writes numbers.
[[nodiscard]] QString shownNumber(std::int64_t number);
// "21 November 2026"
[[nodiscard]] QString shownDay(QDate day);
// "42 jumps this week"
[[nodiscard]] QString weekText(std::int64_t weekJumps);
// "5-day streak 🔥"; without a jump today "5 days, keep it alive today"; empty for neither.
[[nodiscard]] QString streakText(const StatisticsFigures& figures);
// "4 min saved"
[[nodiscard]] QString savedText(std::int64_t jumps);

} // namespace skipnest::ui
