// SPDX-License-Identifier: Apache-2.0
#include "ui/Theme.h"

namespace skipnest::ui {

const Palette brandPalette{
    .window = QColor(0x172a33),
    .surface = QColor(0x20394a),
    .border = QColor(0x3b5a6b),
    .text = QColor(0xf4f7f5),
    .secondaryText = QColor(0xb9cdd3),
    .accent = QColor(0xffc857),
    .accentText = QColor(0x1c1a10),
    .warning = QColor(0xffb08a),
};

} // namespace skipnest::ui
