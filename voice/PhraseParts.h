// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/Clauses.h"

namespace skipnest::voice {

// A phrase taken apart, with what the words alone leave to the targets that there are.
struct PhraseParts {
    std::vector<SpokenWord> words;
    std::optional<MoveCommand> move;
    Clauses clauses;
    VoiceCommand::Parsed parsed;
    // The site that the target names ("youtube"): opened where no application or tab has its name.
    std::optional<QString> targetSite;
};

[[nodiscard]] PhraseParts takeApart(const QString& phrase, Reading reading);

} // namespace skipnest::voice
