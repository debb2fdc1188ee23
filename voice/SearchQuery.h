// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/Clauses.h"

namespace skipnest::voice {

// The words of a search clause without the site that it names ("search amazon for headphones",
// "suche nach Kaffeemaschinen auf Amazon").
struct SearchQuery {
    QString text;
    std::optional<VoiceCommand::Site> site; // named here, and one that can be searched

    // By the tables the text has no filler words; as meant it keeps those inside.
    [[nodiscard]] static SearchQuery read(const std::vector<SpokenWord>& words,
                                          const Clause& clause, Reading reading);
};

} // namespace skipnest::voice
