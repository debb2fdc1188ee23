// SPDX-License-Identifier: Apache-2.0
#include "stats/Milestones.h"

#include "stats/TimeSaved.h"

#include <algorithm>
#include <array>

namespace skipnest::stats {
namespace {

constexpr std::array<std::int64_t, 6> jumpCounts{100, 500, 1000, 5000, 10'000, 50'000};
constexpr std::array<std::int64_t, 6> hourCounts{1, 5, 10, 25, 50, 100};
constexpr std::int64_t jumpsPerHour = 3600 / 5;
constexpr std::int64_t fewestForRecap = 15;
constexpr std::int64_t fewestForStreak = 2;

// A place is worth a celebration only among enough others: tenth of twelve is none.
struct Place {
    const char* id;
    std::int64_t worst;  // rank
    std::int64_t fewest; // participants
    const char* title;
    const char* sub; // %1 is the rank, %2 the number of participants
};
constexpr auto places = std::to_array<Place>({
    {"ch.join", largestCount, 1, "You're on the world board! 🌍",
     "The Global Jump Challenge counts your jumps now - rank #%1"},
    {"ch.100", 100, 150, "Top 100 worldwide! 🌍", "Rank #%1 of %2 challengers."},
    {"ch.10", 10, 30, "Top 10 in the world! 🏆", "Rank #%1 of %2 - elite jumper."},
    {"ch.3", 3, 15, "You're on the podium! 🏅", "Rank #%1 worldwide."},
    {"ch.1", 1, 10, "#1 in the world! 🥇", "Nobody on the planet jumps more. Respect."},
});

struct TipRow {
    const char* id;
    const char* feature;
    std::int64_t fewest; // jumps
    const char* text;
};
// The one for those who know most first.
constexpr auto tips = std::to_array<TipRow>({
    {"tip.hide", "hide", 20,
     "Add ⇧ to any jump key and the window tucks away again. In, out, one hand."},
    {"tip.capture", "capture", 10,
     "Double-tap ⌃ while any app is in front, then press a letter - saved. Same double-tap, then "
     "⌫, removes it again."},
    {"tip.drop", "drop", 3, "Drop any file or folder onto the menu-bar icon to give it a key."},
    {"tip.voice", "voice", 0,
     "Double-tap ⌘ and speak - \"Downloads\", \"Slack\", anywhere you want to go."},
});

} // namespace

QString recapIdentifier(QDate day) {
    int year = 0;
    const int week = day.weekNumber(&year);
    return QStringLiteral("recap.%1-W%2").arg(year).arg(week);
}

std::optional<Milestone> jumpMilestone(const StatsStore& store) {
    const auto isNew = [&store](const QString& id) { return !store.celebrated.contains(id); };
    if (const auto id = QStringLiteral("first"); store.total >= 1 && store.total <= 5 && isNew(id))
        return Milestone{id, QStringLiteral("Your first jump! 🎉"),
                         QStringLiteral("One key, and you were there. That's the whole magic.")};
    for (const std::int64_t jumps : jumpCounts) {
        const QString id = u'j' + QString::number(jumps);
        if (store.total >= jumps && isNew(id))
            return Milestone{
                id, QStringLiteral("%1 jumps! 🎉").arg(jumps),
                QStringLiteral("That's %1 of hunting you never did.").arg(timeSavedText(jumps))};
    }
    for (const std::int64_t hours : hourCounts) {
        const QString id = u'h' + QString::number(hours);
        if (store.total / jumpsPerHour >= hours && isNew(id))
            return Milestone{id,
                             (hours == 1 ? QStringLiteral("%1 hour saved! 🎉")
                                         : QStringLiteral("%1 hours saved! 🎉"))
                                 .arg(hours),
                             QStringLiteral("Reclaimed from window hunting - and counting.")};
    }
    return std::nullopt;
}

std::optional<Milestone> challengeMilestone(const ChallengeStanding& standing) {
    if (standing.rank < 1 || standing.rank > standing.of)
        return std::nullopt;
    for (const Place& place : places) {
        const QString id = QString::fromLatin1(place.id);
        if (standing.rank > place.worst || standing.of < place.fewest ||
            standing.awarded.contains(id))
            continue;
        QString sub = QString::fromUtf8(place.sub);
        sub.replace(QStringLiteral("%1"), QString::number(standing.rank));
        sub.replace(QStringLiteral("%2"), QString::number(standing.of));
        return Milestone{id, QString::fromUtf8(place.title), sub};
    }
    return std::nullopt;
}

std::optional<Milestone> recap(const StatsStore& store, QDate today) {
    const std::int64_t week = weekJumps(store, today);
    const QString id = recapIdentifier(today);
    if (week < fewestForRecap || store.celebrated.contains(id))
        return std::nullopt;
    QString sub = timeSavedText(week) + QStringLiteral(". Nice week.");
    if (const std::int64_t streak = streakDays(store, today); streak >= fewestForStreak)
        sub += QStringLiteral(" %1-day streak 🔥").arg(streak);
    return Milestone{id, QStringLiteral("%1 jumps this week ⚡").arg(week), sub};
}

std::optional<Tip> tip(const StatsStore& store) {
    for (const TipRow& row : tips) {
        const QString id = QString::fromLatin1(row.id);
        if (store.total >= row.fewest && !store.used.contains(QLatin1String(row.feature)) &&
            !store.celebrated.contains(id))
            return Tip{id, QString::fromUtf8(row.text)};
    }
    return std::nullopt;
}

std::int64_t weekJumps(const StatsStore& store, QDate today) {
    return weeks(store, today, 1).front();
}

std::vector<std::int64_t> weeks(const StatsStore& store, QDate today, int weeks) {
    constexpr int length = 7;
    std::vector<std::int64_t> sums(static_cast<std::size_t>(std::max(weeks, 0)));
    const QDate first = today.addDays(1 - length * static_cast<qint64>(sums.size()));
    const auto end = store.byDay.upper_bound(today);
    for (auto it = store.byDay.lower_bound(first); it != end; ++it) {
        std::int64_t& sum = sums[static_cast<std::size_t>(first.daysTo(it->first) / length)];
        sum = sumOfCounts(sum, it->second);
    }
    return sums;
}

std::int64_t streakDays(const StatsStore& store, QDate today) {
    std::int64_t streak = 0;
    for (auto it = store.byDay.upper_bound(today); it != store.byDay.begin(); ++streak) {
        --it;
        if (it->first != today.addDays(-streak) || it->second < 1)
            break;
    }
    return streak;
}

} // namespace skipnest::stats
