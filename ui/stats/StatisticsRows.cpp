// SPDX-License-Identifier: Apache-2.0
#include "ui/stats/StatisticsRows.h"

#include "ui/editor/PlainLine.h"
#include "ui/stats/PluralCount.h"

#include <QLocale>

#include <algorithm>

namespace skipnest::ui {

void WeekBars::update(const StatisticsFigures& figures) {
    const std::vector<double> lengths = barLengths(figures.weeks);
    const QLocale locale;
    std::vector<WeekBar> bars;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const int weeksAgo = static_cast<int>(lengths.size() - 1 - i);
        const QDate last = figures.day.addDays(-7 * weeksAgo);
        const QString day = locale.toString(last, tr("d MMM", "a day as QDate formats it"));
        const QString jumps = tr("%Ln jumps", nullptr, pluralCount(figures.weeks[i]));
        bars.push_back({weeksAgo, lengths[i], shownNumber(figures.weeks[i]),
                        weeksAgo == 0 ? tr("today") : day,
                        weeksAgo == 0 ? tr("%1 in the seven days to today").arg(jumps)
                                      : tr("%1 in the seven days to %2").arg(jumps, day)});
    }
    setRows(bars);
}

QVariant WeekBars::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const WeekBar& bar = at(index.row());
    switch (role) {
    case lengthRole:
        return bar.length;
    case countRole:
        return bar.count;
    case labelRole:
        return bar.label;
    case spokenRole:
        return bar.spoken;
    case isCurrentRole:
        return bar.weeksAgo == 0;
    default:
        return {};
    }
}

QHash<int, QByteArray> WeekBars::roleNames() const {
    return {{lengthRole, "length"},
            {countRole, "count"},
            {labelRole, "label"},
            {spokenRole, "spoken"},
            {isCurrentRole, "isCurrent"}};
}

void MostUsedTargets::update(const QHash<QString, std::int64_t>& byTarget) {
    using Counted = std::pair<std::int64_t, QString>;
    std::vector<Counted> all;
    all.reserve(static_cast<std::size_t>(byTarget.size()));
    for (auto each = byTarget.begin(); each != byTarget.end(); ++each)
        all.emplace_back(each.value(), each.key());
    const auto shown = all.begin() + static_cast<std::ptrdiff_t>(std::min(count, all.size()));
    std::partial_sort(all.begin(), shown, all.end(), [](const Counted& a, const Counted& b) {
        return a.first != b.first ? a.first > b.first : a.second < b.second;
    });
    std::vector<MostUsedTarget> rows;
    for (auto each = all.begin(); each != shown && each->first > 0; ++each)
        rows.push_back({plainLine(each->second), shownNumber(each->first),
                        static_cast<double>(each->first) / static_cast<double>(all.front().first)});
    const bool wasEmpty = isEmpty();
    setRows(rows);
    if (wasEmpty != isEmpty())
        Q_EMIT emptyChanged();
}

QVariant MostUsedTargets::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MostUsedTarget& target = at(index.row());
    switch (role) {
    case nameRole:
        return target.name;
    case countRole:
        return target.count;
    case lengthRole:
        return target.length;
    default:
        return {};
    }
}

QHash<int, QByteArray> MostUsedTargets::roleNames() const {
    return {{nameRole, "name"}, {countRole, "count"}, {lengthRole, "length"}};
}

} // namespace skipnest::ui
