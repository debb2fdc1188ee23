// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/JumpTarget.h"
#include "voice/TargetScorer.h"

#include <QHash>
#include <QString>

#include <vector>

namespace skipnest::voice {

// Everything that a phrase can lead to at one moment.
struct TargetList {
    enum class State {
        withoutTabs, // browsers have not all answered yet: another list follows
        complete,
    };
    State state = State::complete;
    std::vector<JumpTarget> targets;
    TargetScorer scorer;

    // As the scorer ranks them; of a place that has two names only the better one.
    [[nodiscard]] std::vector<ScoredTarget> rank(const QString& phrase, const UseCounts& uses,
                                                 std::size_t limit = TargetScorer::noLimit) const;
};

// Puts targets together so that each place is there once: what a later source says of a place that
// is known only adds its other name.
class TargetCollector {
public:
    // Folders may have two entries of their own, one a name.
    enum class Names { one, several };

    // `place` is the same for the same place; empty for one that no other entry can be.
    void add(JumpTarget target, const QString& place, Names names = Names::one);
    [[nodiscard]] std::vector<JumpTarget> take() && { return std::move(targets_); }

private:
    std::vector<JumpTarget> targets_;
    QHash<QString, std::size_t> places_;
};

} // namespace skipnest::voice
