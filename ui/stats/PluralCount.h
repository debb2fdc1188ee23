// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace skipnest::ui {

// Texts with a number in them count in int.
[[nodiscard]] constexpr int pluralCount(std::int64_t count) {
    return static_cast<int>(std::clamp<std::int64_t>(count, 0, std::numeric_limits<int>::max()));
}

} // namespace skipnest::ui
