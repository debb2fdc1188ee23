// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <map>
#include <optional>

namespace skipnest::stats {

// Twenty years of days and 100,000 targets are 5 MB. A file above this is not looked into.
inline constexpr std::int64_t largestStats = 64LL << 20;
// No count goes beyond: readers of JSON that know no other numbers than doubles lose digits above.
inline constexpr std::int64_t largestCount = (1LL << 53) - 1;
// Of two counts; stays at largestCount.
[[nodiscard]] std::int64_t sumOfCounts(std::int64_t a, std::int64_t b);

// What is known of all jumps: the content of stats.json. Counts are from 0 to largestCount.
struct StatsStore {
    std::map<QDate, std::int64_t> byDay; // local calendar days
    QHash<QString, std::int64_t> byTarget;
    std::int64_t total = 0;
    std::int64_t voice = 0;
    std::int64_t switcher = 0;
    std::optional<QDateTime> firstUse; // UTC
    QStringList celebrated;            // milestones and tips that were shown
    QStringList used;                  // features
    QJsonObject unknown;               // members of a newer version, written back as they are

    // Not below 0, whatever an edited file says.
    [[nodiscard]] std::int64_t keyboard() const;
    bool operator==(const StatsStore&) const = default;
};

// The file as it is written, keys in the order above, `unknown` after them. Decoding it again
// yields an equal store and no problems.
[[nodiscard]] QByteArray encodeStats(const StatsStore& store);

struct DecodedStats {
    StatsStore store;
    // What could not be taken over, for the log: one line each, at most ten. The file is kept
    // beside where there is any.
    QStringList problems;
};
// Takes any bytes. Every part that is right is taken, whatever the others are: half the days are
// better than none. Fails only where the bytes are no JSON object at all.
//
// Days are "yyyy-MM-dd" and exist, counts are whole numbers, names are trimmed, `firstUse` is an
// ISO 8601 timestamp or a number of seconds since 2001 began. A part that is absent is no problem.
[[nodiscard]] platform::Result<DecodedStats> decodeStats(const QByteArray& bytes);

} // namespace skipnest::stats
