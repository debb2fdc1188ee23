// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/WordStems.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace skipnest::voice {

// Below this a word that is merely alike counts for nothing, however often its target was used.
inline constexpr double leastSimilarity = 0.58;
// Of two words that sound the same.
inline constexpr double soundSimilarity = 0.85;
// For stems and sounds.
inline constexpr std::size_t shortestTellingWord = 3;

// Each different word of many texts once, with its stems and its sound, so that a spoken word is
// compared with each only once.
class WordTable {
public:
    using WordId = std::uint32_t;

    // What a spoken word has in common with one of the table.
    struct Likeness {
        WordId word = 0;
        bool starts = false; // the word begins with the spoken one
        bool contains = false;
        bool sameStem = false;
        double similarity = 0; // 0 where below leastSimilarity, or where the word contains it
    };

    // Gives the word its number, the same for the same word.
    [[nodiscard]] WordId add(std::u32string_view word, const WordStems& stems);

    // All words that have anything in common with it, by number.
    void compare(std::u32string_view spoken, const WordStems& stems,
                 std::vector<Likeness>& alike) const;

    [[nodiscard]] std::size_t size() const { return places_.size(); }

private:
    struct Place {
        std::size_t begin = 0;
        std::uint32_t length = 0;
    };
    // Of a spoken word, in this table's terms; 0 where the table does not know it.
    struct Known {
        std::array<std::uint32_t, WordStems::languages> stems{};
        std::uint32_t sound = 0;
    };

    [[nodiscard]] std::u32string_view text(WordId word) const;

    std::unordered_map<std::u32string, WordId> ids_;
    std::array<std::unordered_map<std::string, std::uint32_t>, WordStems::languages> stemIds_;
    std::unordered_map<std::u32string, std::uint32_t> soundIds_;

    std::u32string text_;
    // One element a word, each alone in its array: a comparison looks at few of them.
    std::vector<Place> places_;
    std::vector<std::uint64_t> letters_; // a bit for each code point modulo 64
    std::vector<Known> known_;
};

} // namespace skipnest::voice
