// SPDX-License-Identifier: Apache-2.0
#include "ui/Theme.h"

namespace skipnest::ui {

const Palette lightPalette{
    .window = QColor(0xf7f7f9),
    .surface = QColor(0xffffff),
    .border = QColor(0xd0d2d9),
    .text = QColor(0x1b1d23),
    .secondaryText = QColor(0x555a66),
    .accent = QColor(0x2458d3),
    .accentText = QColor(0xffffff),
    .warning = QColor(0xa85b00),
};

} // namespace skipnest::ui
