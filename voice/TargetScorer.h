// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/JumpTarget.h"
#include "voice/ScoredTarget.h"
#include "voice/WordTable.h"

#include <QHash>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace skipnest::voice {

// How often a target was jumped to by voice, by its lower-cased title.
using UseCounts = QHash<QString, std::int64_t>;

// Ranks targets by how well a phrase names them. Made once from many targets, it asks each spoken
// word once of each different word and then looks only at the targets that have a word in common
// with the phrase. Keeps nothing of the targets but their words; safe to be made on one thread and
// used on another.
class TargetScorer {
public:
    // Below it a phrase names nothing.
    static constexpr double floor = 3.0;
    // Where the best target is that good and the next one that far behind, nobody need be asked.
    static constexpr double certainScore = 6.5;
    static constexpr double clearLead = 0.88;
    // What follows is not looked at: nobody says more in one breath, and each word costs a look at
    // the whole table.
    static constexpr std::size_t mostWords = 128;
    static constexpr std::size_t longestWord = 1024;
    static constexpr std::size_t noLimit = std::numeric_limits<std::size_t>::max();

    TargetScorer() = default;
    explicit TargetScorer(const std::vector<JumpTarget>& targets);

    // The targets that have anything to do with the phrase, best first; equal ones in their order.
    [[nodiscard]] std::vector<ScoredTarget> score(const QString& phrase, const UseCounts& uses,
                                                  std::size_t limit = noLimit) const;

    // The words of a phrase as they are compared.
    [[nodiscard]] static std::vector<std::u32string> phraseWords(const QString& phrase);

private:
    // Small, as all of them are passed for a phrase of one letter.
    struct Target {
        double lengthPenalty = 0;
        std::uint32_t name = 0; // in names_, of applications only
        JumpTarget::Kind kind = JumpTarget::Kind::app;
        bool hot = false;
    };
    struct Name {
        std::u32string title;
        std::u32string sound;
    };
    struct Tally;
    struct WholePhrase;

    void tally(std::u32string_view word, const std::vector<WordTable::Likeness>& alike,
               std::vector<Tally>& tallies) const;
    [[nodiscard]] static double wordScore(const Target& target, const Tally& tally,
                                          std::size_t wordLength);
    [[nodiscard]] double total(const Target& target, const Tally& tally,
                               const WholePhrase& phrase) const;

    std::vector<Target> targets_;
    std::vector<Name> names_;
    WordTable words_;
    // Where each word stands: its entries are those from starts_[word] to starts_[word + 1].
    std::vector<std::uint32_t> starts_;
    std::vector<std::uint32_t> entries_;
    QHash<QString, std::uint32_t> byTitle_;      // the first target of each lower-cased title
    std::vector<std::uint32_t> nextOfSameTitle_; // by target; 0: none
};

// For a handful of targets, as in a list of choices.
[[nodiscard]] std::vector<ScoredTarget> score(const QString& phrase,
                                              const std::vector<JumpTarget>& targets,
                                              const UseCounts& uses = {},
                                              std::size_t limit = TargetScorer::noLimit);

} // namespace skipnest::voice
