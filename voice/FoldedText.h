// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace skipnest::voice {

// Text as it is compared: composed, without letter case ("Straße" and "STRASSE" are one), one
// element a code point. Any text folds, unpaired surrogates become U+FFFD.
[[nodiscard]] std::u32string foldedText(const QString& text);

// What stands between white space, in order; views into `text`.
[[nodiscard]] std::vector<std::u32string_view> wordsOf(std::u32string_view text);

// Characters of a title as people count them, a letter with its accent being one, but without
// looking at clusters: the code points of the composed text.
[[nodiscard]] std::size_t characterCount(const QString& text);

} // namespace skipnest::voice
