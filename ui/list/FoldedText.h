// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::ui {

// A text for comparing what a person typed with what a thing is called: without case and
// diacritics, so that "uber" finds "Über".
[[nodiscard]] QString foldedText(const QString& text);

} // namespace skipnest::ui
