// SPDX-License-Identifier: Apache-2.0
#include "ui/challenge/ChallengeRows.h"

#include "stats/ChallengeBoard.h"
#include "ui/challenge/Countries.h"
#include "ui/stats/PluralCount.h"
#include "ui/stats/StatisticsFigures.h"

#include <algorithm>

namespace skipnest::ui {

void ChallengeRows::show(const stats::ChallengeBoard& board) {
    std::vector<ChallengeRow> rows;
    rows.reserve(board.entries.size());
    for (const auto& entry : board.entries) {
        const QString country = countryName(entry.country);
        //: %1 and %2 are the texts for minutes and for days in a row.
        const QString figures = tr("%n jumps, %1, %2", "", pluralCount(entry.jumps))
                                    .arg(tr("%n minutes saved", "", pluralCount(entry.minutes)),
                                         tr("%n days in a row", "", pluralCount(entry.streak)));
        rows.push_back({entry.name, u'#' + shownNumber(entry.rank),
                        country.isEmpty() ? QString() : entry.country, country,
                        shownNumber(entry.jumps), shownNumber(entry.minutes),
                        shownNumber(entry.streak), figures, entry.isOwn});
    }
    setRows(rows);
}

int ChallengeRows::ownRow() const {
    const auto found = std::ranges::find(rows(), true, &ChallengeRow::isOwn);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

QVariant ChallengeRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ChallengeRow& row = at(index.row());
    switch (role) {
    case nameRole:
    case Qt::DisplayRole:
        return row.name;
    case rankRole:
        return row.rank;
    case codeRole:
        return row.code;
    case countryRole:
        return row.country;
    case jumpsRole:
        return row.jumps;
    case minutesRole:
        return row.minutes;
    case streakRole:
        return row.streak;
    case figuresRole:
        return row.figures;
    case isOwnRole:
        return row.isOwn;
    default:
        return {};
    }
}

QHash<int, QByteArray> ChallengeRows::roleNames() const {
    return {{nameRole, "name"},       {rankRole, "rank"},       {codeRole, "code"},
            {countryRole, "country"}, {jumpsRole, "jumps"},     {minutesRole, "minutes"},
            {streakRole, "streak"},   {figuresRole, "figures"}, {isOwnRole, "isOwn"}};
}

} // namespace skipnest::ui
