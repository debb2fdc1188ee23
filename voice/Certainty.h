// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/TargetScorer.h"
#include "voice/VoiceCommand.h"

#include <QString>

#include <optional>

namespace skipnest::voice {

// How the targets of the index rank for a phrase: the two best scores.
struct TargetLead {
    std::optional<double> best;
    std::optional<double> runnerUp;

    // Such a target is jumped to without asking.
    [[nodiscard]] bool isClear() const {
        return best && *best >= TargetScorer::certainScore &&
               (!runnerUp || *runnerUp < TargetScorer::clearLead * *best);
    }
};

// Whether a phrase needs no language model: each word of it is accounted for by the tables of the
// keyword parser or by a target that is far ahead of all others. What only a reader of sentences
// can take apart is never certain: a contact and a message behind a target, a file to move, a name
// to look for inside an application, a window verb with words that name something ("close the
// second chrome window").
//
// `parsed` is what the keyword parser made of the transcript, `lead` the ranking of its target.
[[nodiscard]] bool isCertain(const QString& transcript, const VoiceCommand::Parsed& parsed,
                             const TargetLead& lead);

} // namespace skipnest::voice
