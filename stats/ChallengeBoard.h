// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

namespace skipnest::stats {

// The world board as the service shows it.
struct ChallengeBoard {
    struct Entry {
        std::int64_t rank = 0; // from 1
        QString name;          // one line, control characters taken out
        QString country;       // two lower-case letters, or empty
        std::int64_t jumps = 0;
        std::int64_t minutes = 0;
        std::int64_t streak = 0;
        bool isOwn = false;

        bool operator==(const Entry&) const = default;
    };
    std::vector<Entry> entries; // best first, at most 1000
    std::int64_t of = 0;        // participants, at least the number of entries

    bool operator==(const ChallengeBoard&) const = default;
};

// {"ok":true,"of":N,"board":[{"rank":1,"n":"Ada","c":"gb","j":120,"m":10,"s":5,"me":true}]}: the
// fields named as in a submission. Entries that are not right are left out; fails where the whole
// is not.
[[nodiscard]] platform::Result<ChallengeBoard> decodeBoard(const QByteArray& bytes);

} // namespace skipnest::stats
