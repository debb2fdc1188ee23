// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "stats/ChallengeService.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>

#include <cstdint>
#include <optional>

namespace skipnest::stats {

// A whole number that a double carries exactly.
[[nodiscard]] std::optional<std::int64_t> wholeNumber(const QJsonValue& value);

[[nodiscard]] QJsonObject encodeChallenge(const ChallengeService::State& state);
// Dates are ISO 8601 texts, or numbers of seconds since the beginning of 2001. A value that is not
// right makes all of it count as not joined; what is kept then are the members that are not ours.
[[nodiscard]] ChallengeService::State decodeChallenge(const QJsonValue& value);

struct ChallengeRank {
    std::int64_t rank = 0; // from 1
    std::int64_t of = 0;   // participants; 0 where the service does not say

    bool operator==(const ChallengeRank&) const = default;
};
// Of the reply to a submission: {"ok":true,"rank":3,"of":120}.
[[nodiscard]] std::optional<ChallengeRank> decodeRank(const QByteArray& bytes);
// Of the reply to a name check: {"available":true}. Nothing where the reply does not say.
[[nodiscard]] std::optional<bool> decodeAvailable(const QByteArray& bytes);

} // namespace skipnest::stats
