// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"

#include <QColor>

namespace skipnest::ui {

// The colours of one theme. Text on any of the surfaces it is used on has a contrast of at least
// 4.5 : 1.
struct Palette {
    QColor window;  // behind everything
    QColor surface; // raised parts
    QColor border;
    QColor text;
    QColor secondaryText;
    QColor accent;     // default button, focus ring
    QColor accentText; // on the accent
    QColor warning;
};

extern const Palette lightPalette;
extern const Palette darkPalette;
extern const Palette brandPalette;

[[nodiscard]] const Palette& palette(model::Theme theme);

} // namespace skipnest::ui
