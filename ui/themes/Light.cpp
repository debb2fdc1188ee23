// SPDX-License-Identifier: Apache-2.0
#include "ui/Theme.h"

namespace skipnest::ui {

const Palette lightPalette{
    .window = QColor(0xf4f6f7),
    .surface = QColor(0xffffff),
    .hover = QColor(0xe6ebed),
    .border = QColor(0xc3ccd1),
    .text = QColor(0x1a2226),
    .secondaryText = QColor(0x53616a),
    .accent = QColor(0x0b6478),
    .accentText = QColor(0xffffff),
    .warning = QColor(0x8a5200),
    .danger = QColor(0xad1f17),
    .success = QColor(0x1a6b36),
};

} // namespace skipnest::ui
