// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "voice/SpokenWords.h"

#include <optional>

namespace skipnest::voice {

// The desktop that a phrase asks for, 1 to 9: one of the words for a desktop together with a number
// word or a digit of any script. A number beside that word counts before one elsewhere.
[[nodiscard]] std::optional<int> desktopNumber(const QString& phrase);

// Where the word and the number stand.
struct DesktopRequest {
    int number = 0;
    std::size_t wordAt = 0;
    std::size_t numberAt = 0;
};
// Among the words from `first` up to `end`.
[[nodiscard]] std::optional<DesktopRequest> desktopRequest(const std::vector<SpokenWord>& words,
                                                           std::size_t first, std::size_t end);

} // namespace skipnest::voice
