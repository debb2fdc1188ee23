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

// What is known of all jumps: the content of stats.json. Counts are never negative.
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

// The file as it is written, keys in the order above.
[[nodiscard]] QByteArray encodeStats(const StatsStore& store);

struct DecodedStats {
    StatsStore store;
    // What could not be taken over, for the log: one line each, at most ten. The file is kept
    // beside where there is any.
    QStringList problems;
};
// Every part that is right is taken, whatever the others are. Fails only where the bytes are no
// JSON object at all.
[[nodiscard]] platform::Result<DecodedStats> decodeStats(const QByteArray& bytes);

} // namespace skipnest::stats
