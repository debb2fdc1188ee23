// SPDX-License-Identifier: Apache-2.0
#include "tests/service/Leaderboard.h"

#include <QJsonArray>

#include <algorithm>
#include <functional>

namespace skipnest::tests {

using namespace Qt::StringLiterals;

void Leaderboard::submit(const Entry& entry) {
    const auto known = std::ranges::find(entries_, entry.id, &Entry::id);
    if (known == entries_.end())
        entries_.push_back(entry);
    else
        *known = entry;
    std::ranges::stable_sort(entries_, std::greater(), &Entry::jumps);
}

void Leaderboard::remove(const QString& id) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.id == id; });
}

bool Leaderboard::isFree(const QString& name, const QString& id) const {
    return std::ranges::none_of(entries_, [&](const Entry& entry) {
        return entry.id != id && entry.name.compare(name, Qt::CaseInsensitive) == 0;
    });
}

std::int64_t Leaderboard::rank(const QString& id) const {
    const auto found = std::ranges::find(entries_, id, &Entry::id);
    return found == entries_.end() ? 0 : found - entries_.begin() + 1;
}

QJsonObject Leaderboard::board(const QString& id) const {
    constexpr std::int64_t shown = 100;
    QJsonArray rows;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const Entry& entry = entries_[i];
        const auto place = static_cast<std::int64_t>(i) + 1;
        if (place > shown && entry.id != id)
            continue;
        rows.append(QJsonObject{{u"rank"_s, qint64{place}},
                                {u"n"_s, entry.name},
                                {u"c"_s, entry.country},
                                {u"j"_s, qint64{entry.jumps}},
                                {u"m"_s, qint64{entry.minutes}},
                                {u"s"_s, qint64{entry.streak}},
                                {u"me"_s, entry.id == id}});
    }
    return {{u"ok"_s, true}, {u"of"_s, static_cast<qint64>(entries_.size())}, {u"board"_s, rows}};
}

} // namespace skipnest::tests
