// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>

namespace skipnest::e2e {

// Real programs take real time here: this folder and bench/ are where the wall is looked at.
using Clock = std::chrono::steady_clock;

// Long enough for a loaded two-core machine under a sanitizer, short enough to sit through.
inline constexpr std::chrono::milliseconds patience{5000};

// Asks until the answer is yes or the limit is over, every two milliseconds. False: it never was.
[[nodiscard]] bool eventually(const std::function<bool()>& condition,
                              std::chrono::milliseconds limit = patience);

} // namespace skipnest::e2e
