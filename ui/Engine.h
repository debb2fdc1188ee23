// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/ThemeColors.h"

#include <memory>

class QQmlEngine;

namespace skipnest::platform {
class IconSource;
}

namespace skipnest::ui {

// The one QML engine of the program, with what every view may use: the theme as `Theme`, drawn
// symbols as "image://symbols/NAME/RRGGBB", pictures of targets as "image://icons/PATH" (a path
// that has been percent-encoded; a null picture where the machine has none).
//
// `icons` must outlive the engine. The theme belongs to the engine.
[[nodiscard]] std::unique_ptr<QQmlEngine> makeEngine(platform::IconSource& icons,
                                                     model::Theme theme);
[[nodiscard]] ThemeColors& themeOf(QQmlEngine& engine);

} // namespace skipnest::ui
