// SPDX-License-Identifier: Apache-2.0
#include "ui/Theme.h"

namespace skipnest::ui {

const Palette& palette(model::Theme theme) {
    switch (theme) {
    case model::Theme::light:
        return lightPalette;
    case model::Theme::dark:
        return darkPalette;
    case model::Theme::brand:
        return brandPalette;
    }
    Q_UNREACHABLE();
}

} // namespace skipnest::ui
