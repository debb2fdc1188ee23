// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"

#include <QColor>

namespace skipnest::ui {

// The colours of one theme. Text on any of the surfaces it is used on has a contrast of at least
// 4.5 : 1, and so have accent, warning, danger and success as text on window and surface.
struct Palette {
    QColor window;  // behind everything
    QColor surface; // raised parts
    QColor hover;   // a row or button under the pointer
    QColor border;
    QColor text;
    QColor secondaryText;
    QColor accent;     // default button, focus ring, what is chosen
    QColor accentText; // on the accent
    QColor warning;
    QColor danger; // what removes, and what was refused
    QColor success;
};

extern const Palette lightPalette;
extern const Palette darkPalette;
extern const Palette brandPalette;

[[nodiscard]] const Palette& palette(model::Theme theme);

} // namespace skipnest::ui
