// SPDX-License-Identifier: Apache-2.0
#include "ui/Theme.h"

namespace skipnest::ui {

const Palette darkPalette{
    .window = QColor(0x1c1f22),
    .surface = QColor(0x272b2f),
    .hover = QColor(0x33393e),
    .border = QColor(0x4a525a),
    .text = QColor(0xeef1f3),
    .secondaryText = QColor(0xb0bac1),
    .accent = QColor(0x62c6da),
    .accentText = QColor(0x06262d),
    .warning = QColor(0xffbe5c),
    .danger = QColor(0xff9c93),
    .success = QColor(0x83d998),
};

} // namespace skipnest::ui
