// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <vector>

namespace skipnest::voice {

struct ScoredTarget {
    std::size_t target = 0; // its place among the targets
    double score = 0;

    bool operator==(const ScoredTarget&) const = default;
};

// Leaves the `limit` best ones, best first, equal ones in the order of their places, in which they
// have to come.
void keepBest(std::vector<ScoredTarget>& scored, std::size_t limit);

} // namespace skipnest::voice
