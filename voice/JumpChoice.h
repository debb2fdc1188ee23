// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/JumpTarget.h"
#include "voice/TargetScorer.h"

#include <QString>

#include <optional>
#include <vector>

namespace skipnest::voice {

// An application that has windows or tabs among the targets, named in a phrase together with
// something in it ("chrome pull requests").
struct NamedContainer {
    QString owner;
    QString rest; // what is looked for in it

    bool operator==(const NamedContainer&) const = default;
};

// Nothing where the application is all that was said, or where a target elsewhere has all the words
// of the phrase in its title: "meeting notes" is a file of that name, not a meeting in Notes.
[[nodiscard]] std::optional<NamedContainer> namedContainer(const QString& spoken,
                                                           const std::vector<JumpTarget>& targets);

// Where a phrase leads: to one target at once, to a list to choose from, or nowhere.
struct JumpChoice {
    enum class Kind : std::uint8_t { none, list, commit };

    static constexpr std::size_t mostListed = 6;

    Kind kind = Kind::none;
    std::vector<ScoredTarget> candidates; // best first; the one target where it is clear
    double top = 0;                       // the best score there was, below the floor too
    bool droppedCurrentTab = false;       // asking for a tab never lands on the one in front
    std::optional<NamedContainer> container;

    // A clear winner scores at least 6.5 and has nothing within 0.88 of it; a single candidate
    // above the floor needs no list either. `ranked` is best first.
    [[nodiscard]] static JumpChoice among(const std::vector<ScoredTarget>& ranked,
                                          const std::vector<JumpTarget>& targets);

    // The whole way for a target as it is spoken, without filler words. `scorer` was made from
    // `targets`. Where the target is the name of a site, only an application of exactly that name
    // or a tab with the name in its title stands for it.
    [[nodiscard]] static JumpChoice forSpoken(const QString& spoken,
                                              const std::optional<QString>& site,
                                              const std::vector<JumpTarget>& targets,
                                              const TargetScorer& scorer, const UseCounts& uses);
};

} // namespace skipnest::voice
