// SPDX-License-Identifier: Apache-2.0
#include "voice/EditDistance.h"

#include <algorithm>

namespace skipnest::voice {
namespace {

constexpr std::size_t blockRows = 64;

} // namespace

EditDistance::EditDistance(std::u32string_view pattern)
    : length_(pattern.size()), blocks_(std::max<std::size_t>(1, (length_ + 63) / blockRows)),
      rows_(blocks_) {
    for (std::size_t row = 0; row < length_; ++row) {
        const char32_t character = pattern[row];
        std::uint32_t& at = character < directCharacters ? direct_[character] : others_[character];
        if (at == 0) {
            at = static_cast<std::uint32_t>(rows_.size());
            rows_.resize(rows_.size() + blocks_);
        }
        rows_[at + row / blockRows] |= Bits{1} << (row % blockRows);
    }
}

const EditDistance::Bits* EditDistance::rowsWith(char32_t character) const {
    if (character < directCharacters)
        return rows_.data() + direct_[character];
    const auto known = others_.find(character);
    return rows_.data() + (known == others_.end() ? 0 : known->second);
}

std::size_t EditDistance::to(std::u32string_view text, std::size_t most) const {
    const std::size_t longer = std::max(length_, text.size());
    const std::size_t shorter = std::min(length_, text.size());
    if (longer - shorter > most)
        return most + 1;
    if (shorter == 0)
        return longer;
    return blocks_ == 1 ? toWithOneBlock(text, most) : toWithBlocks(text, most);
}

std::size_t EditDistance::toWithOneBlock(std::u32string_view text, std::size_t most) const {
    const Bits last = Bits{1} << (length_ - 1);
    Bits up = ~Bits{0}; // rows one greater than the row above
    Bits down = 0;      // rows one smaller
    std::size_t distance = length_;
    std::size_t left = text.size();
    for (const char32_t character : text) {
        const Bits equal = *rowsWith(character);
        const Bits diagonal = (((equal & up) + up) ^ up) | equal | down;
        Bits right = down | ~(diagonal | up);
        Bits back = up & diagonal;
        distance += (right & last) != 0 ? 1U : 0U;
        distance -= (back & last) != 0 ? 1U : 0U;
        // Each character still to come takes away one at the most.
        if (distance > most + --left)
            return most + 1;
        right = right << 1 | 1;
        back <<= 1;
        up = back | ~(diagonal | right);
        down = right & diagonal;
    }
    return distance; // no character is left: not greater than `most`
}

std::size_t EditDistance::toWithBlocks(std::u32string_view text, std::size_t most) const {
    struct Column {
        Bits up = ~Bits{0};
        Bits down = 0;
    };
    std::vector<Column> columns(blocks_);
    const Bits last = Bits{1} << ((length_ - 1) % blockRows);
    std::size_t distance = length_;
    std::size_t left = text.size();
    for (const char32_t character : text) {
        const Bits* equals = rowsWith(character);
        Bits carriedRight = 1; // what the block above hands down: +1 above the first row
        Bits carriedBack = 0;
        for (std::size_t block = 0; block < blocks_; ++block) {
            auto& [up, down] = columns[block];
            const Bits equal = equals[block] | carriedBack;
            const Bits diagonal = (((equal & up) + up) ^ up) | equal | down;
            Bits right = down | ~(diagonal | up);
            Bits back = up & diagonal;
            const bool isLast = block + 1 == blocks_;
            if (isLast) {
                distance += (right & last) != 0 ? 1U : 0U;
                distance -= (back & last) != 0 ? 1U : 0U;
            }
            const Bits rightOut = right >> (blockRows - 1);
            const Bits backOut = back >> (blockRows - 1);
            right = right << 1 | carriedRight;
            back = back << 1 | carriedBack;
            up = back | ~(diagonal | right);
            down = right & diagonal;
            carriedRight = rightOut;
            carriedBack = backOut;
        }
        if (distance > most + --left)
            return most + 1;
    }
    return distance;
}

double similarityOf(std::size_t distance, std::size_t longerLength) {
    return 1.0 - static_cast<double>(distance) /
                     static_cast<double>(std::max<std::size_t>(longerLength, 1));
}

std::size_t mostDistance(double similarity, std::size_t longerLength) {
    const double share = (1.0 - similarity) * static_cast<double>(longerLength);
    std::size_t most = std::min(static_cast<std::size_t>(share) + 1, longerLength);
    while (most > 0 && similarityOf(most, longerLength) < similarity)
        --most;
    return most;
}

} // namespace skipnest::voice
