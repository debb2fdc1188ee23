// SPDX-License-Identifier: Apache-2.0
#include "voice/TargetScorer.h"

#include "voice/EditDistance.h"
#include "voice/FoldedText.h"
#include "voice/PhoneticKey.h"

#include <algorithm>
#include <cmath>

namespace skipnest::voice {
namespace {

using Kind = JumpTarget::Kind;
using View = std::u32string_view;

// Where in a target a word stands, and what a spoken word has in common with a target's words. The
// first four double as the low bits of an entry of the table of places.
enum Fact : std::uint32_t {
    startsTitle = 1,
    inTitle = 2,
    inSubtitle = 4,
    inOwner = 8,
    startsWord = 16,
    sameStem = 32,
    looked = 64, // at this target, for the present word
};
constexpr unsigned factBits = 4;

// Of one spoken word.
constexpr double titlePrefix = 6.0;
constexpr double wordPrefix = 5.0;
constexpr double contained = 2.0;
constexpr double containedInOwner = 2.5;
constexpr double sameStemElsewhere = 3.0;
constexpr double similarityWeight = 2.5;
// An application's name may be that different and still be meant.
constexpr double nameSimilarity = 0.8;
// Owners are searched for words longer than this: "go" is no browser.
constexpr std::size_t longestUntellingWord = 3;

// Targets that were jumped to more often are given the benefit of the doubt.
constexpr std::int64_t fewUses = 2;
double acceptedSimilarity(std::int64_t uses) {
    return uses > fewUses ? leastSimilarity : 0.72;
}
double nameWeight(std::int64_t uses) {
    return uses > fewUses ? 5.5 : 4.0;
}

constexpr double coverageWeight = 4.0;
constexpr double usageWeight = 0.8;
constexpr double mostUsage = 2.5;
constexpr double hotBonus = 1.0;
constexpr double applicationBonus = 1.2;
constexpr double wholeTitleBonus = 2.5;
constexpr double wholeTitleSimilarity = 0.85;
constexpr double penaltyPerCharacter = 0.02;

} // namespace

// What is known of one target while a phrase is looked at, word by word.
struct TargetScorer::Tally {
    double sum = 0;
    double best = 0; // the highest similarity of the present word
    std::int64_t uses = 0;
    std::uint32_t matched = 0;
    std::uint32_t facts = 0; // of the present word
};

struct TargetScorer::WholePhrase {
    std::size_t words;
    std::u32string text;
    std::u32string sound = phoneticKey(text);
    EditDistance distances = EditDistance(text);

    [[nodiscard]] bool names(const Name& name) const {
        static_assert(soundSimilarity >= wholeTitleSimilarity);
        const auto [shorter, longer] = std::minmax({text.size(), name.title.size()});
        if (shorter >= shortestTellingWord && !sound.empty() && sound == name.sound)
            return true;
        // Equal ones too: their distance is none.
        const std::size_t most = mostDistance(wholeTitleSimilarity, longer);
        return distances.to(name.title, most) <= most;
    }
};

TargetScorer::TargetScorer(const std::vector<JumpTarget>& targets) {
    const WordStems stems;
    struct Entry {
        WordTable::WordId word;
        std::uint32_t place;
    };
    std::vector<Entry> found;
    targets_.reserve(targets.size());
    nextOfSameTitle_.resize(targets.size());
    byTitle_.reserve(static_cast<qsizetype>(targets.size()));
    for (const JumpTarget& target : targets) {
        const auto index = static_cast<std::uint32_t>(targets_.size());
        const auto note = [&](View text, std::uint32_t where) {
            for (const View word : wordsOf(text)) {
                const bool isFirst = word.data() == text.data();
                const std::uint32_t facts =
                    where == inTitle && isFirst ? where | startsTitle : where;
                found.push_back({words_.add(word, stems), index << factBits | facts});
            }
        };
        const std::u32string title = foldedText(target.title);
        note(title, inTitle);
        note(foldedText(target.subtitle), inSubtitle);
        note(foldedText(target.owner), inOwner);

        Target& kept = targets_.emplace_back();
        kept.kind = target.kind;
        kept.hot = target.hot;
        kept.lengthPenalty =
            -penaltyPerCharacter * static_cast<double>(characterCount(target.title));
        if (target.kind == Kind::app) {
            kept.name = static_cast<std::uint32_t>(names_.size());
            names_.push_back({title, phoneticKey(title)});
        }
        const auto known = byTitle_.constFind(target.title.toLower());
        if (known == byTitle_.constEnd()) {
            byTitle_.insert(target.title.toLower(), index);
        } else {
            nextOfSameTitle_[index] = nextOfSameTitle_[*known];
            nextOfSameTitle_[*known] = index;
        }
    }

    starts_.resize(words_.size() + 1);
    for (const Entry& entry : found)
        ++starts_[entry.word + 1];
    for (std::size_t word = 0; word < words_.size(); ++word)
        starts_[word + 1] += starts_[word];
    std::vector<std::uint32_t> next(starts_);
    entries_.resize(found.size());
    for (const Entry& entry : found)
        entries_[next[entry.word]++] = entry.place;
}

std::vector<std::u32string> TargetScorer::phraseWords(const QString& phrase) {
    // Cut before it is folded: white space and words of more than that are no speech.
    const std::u32string folded =
        foldedText(phrase.left(static_cast<qsizetype>(mostWords * longestWord)));
    std::vector<std::u32string> words;
    for (const View word : wordsOf(folded)) {
        if (words.size() == mostWords)
            break;
        words.emplace_back(word.substr(0, longestWord));
    }
    return words;
}

void TargetScorer::tally(View word, const std::vector<WordTable::Likeness>& alike,
                         std::vector<Tally>& tallies) const {
    std::vector<std::uint32_t> touched;
    for (const WordTable::Likeness& likeness : alike) {
        for (std::uint32_t at = starts_[likeness.word]; at < starts_[likeness.word + 1]; ++at) {
            const std::uint32_t where = entries_[at] & ((1U << factBits) - 1);
            std::uint32_t facts = 0;
            if (likeness.contains)
                facts = likeness.starts ? where : where & ~startsTitle;
            if ((where & inTitle) != 0) {
                facts |= likeness.starts ? startsWord : 0U;
                facts |= likeness.sameStem ? sameStem : 0U;
            } else if (!likeness.contains) {
                continue; // nothing but a title is searched for words that are merely alike
            }
            const std::uint32_t index = entries_[at] >> factBits;
            Tally& tally = tallies[index];
            if (tally.facts == 0)
                touched.push_back(index);
            tally.facts |= facts | looked;
            tally.best = std::max(tally.best, likeness.similarity);
        }
    }
    for (const std::uint32_t index : touched) {
        Tally& tally = tallies[index];
        const double score = wordScore(targets_[index], tally, word.size());
        tally.facts = 0;
        tally.best = 0;
        if (score > 0) {
            tally.sum += score;
            ++tally.matched;
        }
    }
}

double TargetScorer::wordScore(const Target& target, const Tally& tally, std::size_t wordLength) {
    if ((tally.facts & startsTitle) != 0)
        return titlePrefix;
    if ((tally.facts & startsWord) != 0)
        return wordPrefix;
    if ((tally.facts & (inTitle | inSubtitle)) != 0)
        return contained;
    if ((tally.facts & inOwner) != 0 && wordLength > longestUntellingWord)
        return containedInOwner;

    const bool isApplication = target.kind == Kind::app;
    double score = 0;
    if ((tally.facts & sameStem) != 0)
        score = isApplication ? nameWeight(tally.uses) : sameStemElsewhere;
    if (tally.best >= acceptedSimilarity(tally.uses))
        score = std::max(tally.best * similarityWeight, score);
    if (tally.best >= nameSimilarity && isApplication)
        score = std::max(score, nameWeight(tally.uses));
    return score;
}

double TargetScorer::total(const Target& target, const Tally& tally,
                           const WholePhrase& phrase) const {
    const double coverage =
        static_cast<double>(tally.matched) / static_cast<double>(phrase.words) * coverageWeight;
    const double usage =
        tally.uses <= 0
            ? 0.0
            : std::min(std::log2(static_cast<double>(tally.uses) + 1) * usageWeight, mostUsage);
    const double hot = target.hot ? hotBonus : 0.0;
    double application = 0;
    if (target.kind == Kind::app)
        application =
            applicationBonus + (phrase.names(names_[target.name]) ? wholeTitleBonus : 0.0);
    return tally.sum + coverage + usage + hot + application + target.lengthPenalty;
}

std::vector<ScoredTarget> TargetScorer::score(const QString& phrase, const UseCounts& uses,
                                              std::size_t limit) const {
    const std::vector<std::u32string> words = phraseWords(phrase);
    if (words.empty() || targets_.empty())
        return {};
    std::vector<Tally> tallies(targets_.size());
    for (auto use = uses.begin(); use != uses.end(); ++use) {
        const auto known = byTitle_.constFind(use.key());
        if (known == byTitle_.constEnd())
            continue;
        std::uint32_t index = *known;
        do {
            tallies[index].uses = use.value();
            index = nextOfSameTitle_[index];
        } while (index != 0);
    }

    const WordStems stems;
    std::vector<WordTable::Likeness> alike;
    std::u32string text;
    for (const std::u32string& word : words) {
        words_.compare(word, stems, alike);
        tally(word, alike, tallies);
        text += text.empty() ? word : U' ' + word;
    }

    const WholePhrase whole{.words = words.size(), .text = std::move(text)};
    std::vector<ScoredTarget> ranked;
    for (std::size_t index = 0; index < tallies.size(); ++index) {
        if (tallies[index].matched > 0)
            ranked.push_back({index, total(targets_[index], tallies[index], whole)});
    }
    keepBest(ranked, limit);
    return ranked;
}

std::vector<ScoredTarget> score(const QString& phrase, const std::vector<JumpTarget>& targets,
                                const UseCounts& uses, std::size_t limit) {
    return TargetScorer(targets).score(phrase, uses, limit);
}

} // namespace skipnest::voice
