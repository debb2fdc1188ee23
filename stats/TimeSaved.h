// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <cstdint>

namespace skipnest::stats {

// In minutes, rounded. Every jump counts as 5 s; `jumps` is not negative.
[[nodiscard]] std::int64_t minutesSaved(std::int64_t jumps);
// "<1 min", "12 min", "2 h 5 min".
[[nodiscard]] QString timeSavedText(std::int64_t jumps);

} // namespace skipnest::stats
