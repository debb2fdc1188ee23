// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"

#include <QString>

#include <vector>

namespace skipnest::voice {

// The phrase with everything that the person corrected once read as they meant it. What was heard
// is found anywhere in the phrase, whole words only, letter case and the width of blanks aside; the
// longest comes first, and no part of a phrase is replaced twice.
[[nodiscard]] QString withAliases(const QString& phrase,
                                  const std::vector<model::VocabAlias>& aliases);

// From now on `heard` means `canonical`. One that was heard before is given its new meaning in its
// place. False where there is nothing to learn: an empty text, or one that is its own meaning.
bool learnAlias(std::vector<model::VocabAlias>& aliases, const QString& heard,
                const QString& canonical);

} // namespace skipnest::voice
