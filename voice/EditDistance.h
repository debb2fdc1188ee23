// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace skipnest::voice {

// Levenshtein distances from one pattern to many texts: a column of the table is one bit vector of
// 64 rows a block, so that a text costs a few operations for each of its characters and block
// (Myers 1999, Hyyrö 2003).
class EditDistance {
public:
    explicit EditDistance(std::u32string_view pattern);

    // `most + 1` where the distance is greater than `most`.
    [[nodiscard]] std::size_t to(std::u32string_view text, std::size_t most) const;

private:
    using Bits = std::uint64_t;
    static constexpr std::size_t directCharacters = 128;

    [[nodiscard]] const Bits* rowsWith(char32_t character) const;
    [[nodiscard]] std::size_t toWithOneBlock(std::u32string_view text, std::size_t most) const;
    [[nodiscard]] std::size_t toWithBlocks(std::u32string_view text, std::size_t most) const;

    std::size_t length_;
    std::size_t blocks_;
    // For each character the rows that have it, `blocks_` words each.
    std::array<std::uint32_t, directCharacters> direct_{};
    std::unordered_map<char32_t, std::uint32_t> others_;
    std::vector<Bits> rows_; // the first ones are those of a character that does not occur
};

// 1 for equal texts, 0 for texts that have nothing in common, by the longer of the two.
[[nodiscard]] double similarityOf(std::size_t distance, std::size_t longerLength);
// The greatest distance that still gives `similarity`, by that same arithmetic.
[[nodiscard]] std::size_t mostDistance(double similarity, std::size_t longerLength);

} // namespace skipnest::voice
