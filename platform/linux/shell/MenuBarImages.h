// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QIcon>

namespace skipnest::linuxdesktop {

// The drawing of platform/MenuBarIcons.h with that name in every size that panels ask for, in one
// colour. An unknown name gives the program's mark.
[[nodiscard]] QIcon menuBarImage(const QString& name, const QColor& color);

// What nobody tells the colour of panels for: at least 3 : 1 against black, white and the usual
// dark greys, so that the icon is seen on every panel.
[[nodiscard]] QColor anyPanelColor();

// The program's own icon, for windows and for desktops where it is not installed.
[[nodiscard]] QIcon programIcon();

} // namespace skipnest::linuxdesktop
