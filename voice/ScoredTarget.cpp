// SPDX-License-Identifier: Apache-2.0
#include "voice/ScoredTarget.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

namespace skipnest::voice {
namespace {

// From there on comparing costs more than counting: a phrase of one letter has 60,000 candidates
// among 100,000 targets, and sorting those by comparison takes longer than all the rest.
constexpr std::size_t worthCounting = 2000;

constexpr std::size_t digits = sizeof(double);
constexpr std::size_t digitValues = 256;

// Greater scores have lower keys.
std::uint64_t keyOf(const ScoredTarget& scored) {
    constexpr std::uint64_t sign = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(scored.score + 0.0); // one zero
    return (bits & sign) != 0 ? bits : ~(bits | sign);
}

std::size_t digitOf(std::uint64_t key, std::size_t digit) {
    return key >> (8 * digit) & (digitValues - 1);
}

// By one byte of the keys after the other, the least first; each pass keeps the order of equals.
void sortByCounting(std::vector<ScoredTarget>& scored) {
    std::array<std::array<std::size_t, digitValues>, digits> counts{};
    for (const ScoredTarget& one : scored) {
        const std::uint64_t key = keyOf(one);
        for (std::size_t digit = 0; digit < digits; ++digit)
            ++counts[digit][digitOf(key, digit)];
    }
    std::vector<ScoredTarget> sorted(scored.size());
    for (std::size_t digit = 0; digit < digits; ++digit) {
        auto& places = counts[digit];
        if (places[digitOf(keyOf(scored.front()), digit)] == scored.size())
            continue;
        std::size_t next = 0;
        for (std::size_t& place : places) {
            const std::size_t count = place;
            place = next;
            next += count;
        }
        for (const ScoredTarget& one : scored)
            sorted[places[digitOf(keyOf(one), digit)]++] = one;
        scored.swap(sorted);
    }
}

} // namespace

void keepBest(std::vector<ScoredTarget>& scored, std::size_t limit) {
    const auto isBetter = [](const ScoredTarget& a, const ScoredTarget& b) {
        return a.score != b.score ? a.score > b.score : a.target < b.target;
    };
    if (limit < scored.size()) {
        const auto end = scored.begin() + static_cast<std::ptrdiff_t>(limit);
        std::ranges::partial_sort(scored, end, isBetter);
        scored.erase(end, scored.end());
    } else if (scored.size() < worthCounting) {
        std::ranges::sort(scored, isBetter);
    } else {
        sortByCounting(scored);
    }
}

} // namespace skipnest::voice
