// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::ui {

// A name from outside as one line inside a sentence of ours: line breaks and runs of white space
// are one blank each, and characters that turn the direction of what follows are left out, since a
// name must not reorder the words around it. The name itself may read from right to left.
[[nodiscard]] QString plainLine(const QString& name);

// A path as people read it: the home folder is "~", and one line.
[[nodiscard]] QString shownPath(const QString& path, const QString& home);
// The same of the folder that the path lies in.
[[nodiscard]] QString shownFolder(const QString& path, const QString& home);

} // namespace skipnest::ui
