// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "stats/StatsStore.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace skipnest::stats {

// Something to celebrate: a title and a second line, in English as they stand in the catalogue.
struct Milestone {
    QString id;
    QString title;
    QString sub;

    bool operator==(const Milestone&) const = default;
};

struct Tip {
    QString id;
    QString text;

    bool operator==(const Tip&) const = default;
};

// The person's place on the world board.
struct ChallengeStanding {
    std::int64_t rank = 0; // from 1; 0: none yet
    std::int64_t of = 0;   // participants
    QStringList awarded;   // challenge milestones shown already
};

// Of the ISO week that the day lies in: "recap.2026-W7".
[[nodiscard]] QString recapIdentifier(QDate day);

// The first that is due and was not celebrated yet. After an import several may be: each has its
// turn.
[[nodiscard]] std::optional<Milestone> jumpMilestone(const StatsStore& store);
// None for a rank below 1 or beyond the number of participants.
[[nodiscard]] std::optional<Milestone> challengeMilestone(const ChallengeStanding& standing);
[[nodiscard]] std::optional<Milestone> recap(const StatsStore& store, QDate today);
[[nodiscard]] std::optional<Tip> tip(const StatsStore& store);

// The figures, for any day; JumpStats says what they are.
[[nodiscard]] std::int64_t weekJumps(const StatsStore& store, QDate today);
[[nodiscard]] std::vector<std::int64_t> weeks(const StatsStore& store, QDate today, int weeks);
[[nodiscard]] std::int64_t streakDays(const StatsStore& store, QDate today);

} // namespace skipnest::stats
