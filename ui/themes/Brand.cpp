// SPDX-License-Identifier: Apache-2.0
#include "ui/Theme.h"

namespace skipnest::ui {

const Palette brandPalette{
    .window = QColor(0x172a33),
    .surface = QColor(0x20394a),
    .hover = QColor(0x2b4a5c),
    .border = QColor(0x40647a),
    .text = QColor(0xf4f7f5),
    .secondaryText = QColor(0xb9cdd3),
    .accent = QColor(0xffc857),
    .accentText = QColor(0x1c1a10),
    .warning = QColor(0xffb08a),
    .danger = QColor(0xffa39a),
    .success = QColor(0x9be3a5),
};

} // namespace skipnest::ui
