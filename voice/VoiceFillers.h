// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::voice {

// Words that people say around the name of a thing, in the two languages, hesitations included.
[[nodiscard]] bool isVoiceFiller(const QString& lowerCaseWord);

// How a German request begins: "kannst du". No filler in the middle of a name.
[[nodiscard]] bool isAskingWord(const QString& lowerCaseWord);

// A spoken target or file name without them: lower-case words, one blank between two. Empty where
// nothing else was said.
[[nodiscard]] QString spokenTarget(const QString& spoken);

} // namespace skipnest::voice
