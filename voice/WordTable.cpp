// SPDX-License-Identifier: Apache-2.0
#include "voice/WordTable.h"

#include "voice/EditDistance.h"
#include "voice/PhoneticKey.h"

#include <algorithm>
#include <bit>

namespace skipnest::voice {
namespace {

std::uint64_t lettersOf(std::u32string_view word) {
    std::uint64_t letters = 0;
    for (const char32_t character : word)
        letters |= std::uint64_t{1} << (character % 64);
    return letters;
}

template <typename Key>
std::uint32_t numberFor(std::unordered_map<Key, std::uint32_t>& numbers, Key key) {
    const auto next = static_cast<std::uint32_t>(numbers.size() + 1);
    return numbers.try_emplace(std::move(key), next).first->second;
}

template <typename Key>
std::uint32_t numberOf(const std::unordered_map<Key, std::uint32_t>& numbers, const Key& key) {
    const auto known = numbers.find(key);
    return known == numbers.end() ? 0 : known->second;
}

} // namespace

std::u32string_view WordTable::text(WordId word) const {
    return std::u32string_view(text_).substr(places_[word].begin, places_[word].length);
}

WordTable::WordId WordTable::add(std::u32string_view word, const WordStems& stems) {
    const auto next = static_cast<WordId>(places_.size());
    const auto [known, isNew] = ids_.try_emplace(std::u32string(word), next);
    if (!isNew)
        return known->second;
    places_.push_back({text_.size(), static_cast<std::uint32_t>(word.size())});
    text_ += word;
    letters_.push_back(lettersOf(word));
    Known facts;
    if (word.size() >= shortestTellingWord) {
        WordStems::Stems own = stems.of(word);
        for (std::size_t language = 0; language < own.size(); ++language)
            facts.stems[language] = numberFor(stemIds_[language], std::move(own[language]));
        if (std::u32string sound = phoneticKey(word); !sound.empty())
            facts.sound = numberFor(soundIds_, std::move(sound));
    }
    known_.push_back(facts);
    return next;
}

void WordTable::compare(std::u32string_view spoken, const WordStems& stems,
                        std::vector<Likeness>& alike) const {
    alike.clear();
    Known own;
    if (spoken.size() >= shortestTellingWord) {
        const WordStems::Stems ownStems = stems.of(spoken);
        for (std::size_t language = 0; language < ownStems.size(); ++language)
            own.stems[language] = numberOf(stemIds_[language], ownStems[language]);
        own.sound = numberOf(soundIds_, phoneticKey(spoken));
    }
    const EditDistance distances(spoken);
    const std::uint64_t ownLetters = lettersOf(spoken);
    const std::size_t length = spoken.size();
    // Words outside these lengths are too far away whatever their letters are.
    const auto mostFor = [length](std::size_t other) {
        return mostDistance(leastSimilarity, std::max(length, other));
    };
    std::size_t shortest = length;
    while (shortest > 0 && length - (shortest - 1) <= mostFor(shortest - 1))
        --shortest;
    std::vector<std::size_t> most; // by length, from `shortest` on
    for (std::size_t other = shortest; other <= length || other - length <= mostFor(other); ++other)
        most.push_back(mostFor(other));

    for (WordId word = 0; word < places_.size(); ++word) {
        const std::uint32_t wordLength = places_[word].length;
        const std::uint64_t lacking = ownLetters & ~letters_[word];
        if (lacking == 0 && wordLength >= length) {
            const std::size_t at = text(word).find(spoken);
            if (at != std::u32string_view::npos) {
                alike.push_back({.word = word, .starts = at == 0, .contains = true});
                continue;
            }
        }
        const Known& facts = known_[word];
        Likeness likeness{.word = word};
        for (std::size_t language = 0; language < facts.stems.size(); ++language)
            likeness.sameStem |=
                own.stems[language] != 0 && own.stems[language] == facts.stems[language];
        if (own.sound != 0 && own.sound == facts.sound)
            likeness.similarity = soundSimilarity;
        if (wordLength - shortest < most.size()) {
            const std::size_t limit = most[wordLength - shortest];
            // A letter that the other word has not takes an edit, on either side.
            const std::uint64_t further = letters_[word] & ~ownLetters;
            if (static_cast<std::size_t>(std::popcount(lacking)) <= limit &&
                static_cast<std::size_t>(std::popcount(further)) <= limit) {
                const std::size_t distance = distances.to(text(word), limit);
                if (distance <= limit)
                    likeness.similarity =
                        std::max(likeness.similarity,
                                 similarityOf(distance, std::max<std::size_t>(length, wordLength)));
            }
        }
        if (likeness.sameStem || likeness.similarity > 0)
            alike.push_back(likeness);
    }
}

} // namespace skipnest::voice
