// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::ui {

// One line of text as markup for a styled text, with every place that matches the query in bold and
// underlined. The text itself is never read as markup. Where the first match lies far to the right,
// the text begins a little before it, after an ellipsis, so that the match is in view. What no row
// is wide enough for is left out.
[[nodiscard]] QString markedMatch(const QString& text, const QString& query);

// Both ends of a title that is longer than any row: to lay it out in full, only to leave most of it
// out again, would take as long as a page of a book.
[[nodiscard]] QString boundedTitle(const QString& title);

// The title of a window without the name of its application at the end, which the bar says once for
// all: "Minutes - Writer" is "Minutes".
[[nodiscard]] QString shortTitle(const QString& title, const QString& application);

} // namespace skipnest::ui
