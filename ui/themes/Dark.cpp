// SPDX-License-Identifier: Apache-2.0
#include "ui/Theme.h"

namespace skipnest::ui {

const Palette darkPalette{
    .window = QColor(0x1d1f24),
    .surface = QColor(0x2a2d34),
    .border = QColor(0x43474f),
    .text = QColor(0xf1f2f5),
    .secondaryText = QColor(0xb3b8c4),
    .accent = QColor(0x7aa5ff),
    .accentText = QColor(0x10131a),
    .warning = QColor(0xffb454),
};

} // namespace skipnest::ui
