// SPDX-License-Identifier: Apache-2.0
#include "ui/stats/StatisticsFigures.h"

#include "stats/JumpStats.h"
#include "stats/TimeSaved.h"
#include "ui/stats/PluralCount.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace skipnest::ui {

StatisticsFigures readFigures(const stats::JumpStats& stats, QDate today) {
    return {stats.store().total,
            stats.weekJumps(),
            stats.streakDays(),
            stats.streakToKeep(),
            stats.weeks(StatisticsFigures::weekCount),
            today};
}

std::vector<double> barLengths(const std::vector<std::int64_t>& weeks) {
    const std::int64_t longest = weeks.empty() ? 0 : *std::ranges::max_element(weeks);
    std::vector<double> lengths;
    lengths.reserve(weeks.size());
    for (const std::int64_t jumps : weeks)
        lengths.push_back(longest > 0 ? static_cast<double>(jumps) / static_cast<double>(longest)
                                      : 0.0);
    return lengths;
}

QString shownNumber(std::int64_t number) {
    return QLocale().toString(static_cast<qlonglong>(number));
}

QString shownDay(QDate day) {
    return QLocale().toString(
        day, QCoreApplication::translate("Statistics", "d MMMM yyyy", "a day as QDate formats it"));
}

QString weekText(std::int64_t weekJumps) {
    return QCoreApplication::translate("Statistics", "%Ln jumps this week", nullptr,
                                       pluralCount(weekJumps));
}

QString streakText(const StatisticsFigures& figures) {
    if (figures.streakDays > 0)
        return QCoreApplication::translate("Statistics", "%n-day streak 🔥", nullptr,
                                           pluralCount(figures.streakDays));
    if (figures.streakToKeep > 0)
        return QCoreApplication::translate("Statistics", "%n days, keep it alive today", nullptr,
                                           pluralCount(figures.streakToKeep));
    return {};
}

QString savedText(std::int64_t jumps) {
    return QCoreApplication::translate("Statistics", "%1 saved").arg(stats::timeSavedText(jumps));
}

} // namespace skipnest::ui
