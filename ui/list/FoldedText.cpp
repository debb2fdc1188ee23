// SPDX-License-Identifier: Apache-2.0
#include "ui/list/FoldedText.h"

namespace skipnest::ui {

QString foldedText(const QString& text) {
    return text.normalized(QString::NormalizationForm_KD)
        .removeIf([](QChar c) { return c.isMark(); })
        .toCaseFolded();
}

} // namespace skipnest::ui
