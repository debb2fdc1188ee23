// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#include <array>

namespace skipnest::platform {

// One drawing that the status item can show. `name` is what the configuration holds; `title` is
// what a person chooses by, translated in the context "MenuBarIcons".
struct MenuBarIcon {
    const char* name;
    const char* title;
};

// The first one is the program's own mark. It stands in for names that are not listed: the
// configuration may come from a newer program.
inline constexpr std::array<MenuBarIcon, 5> menuBarIcons{{
    {"skipnest", QT_TRANSLATE_NOOP("MenuBarIcons", "Nest")},
    {"arrow", QT_TRANSLATE_NOOP("MenuBarIcons", "Hop")},
    {"bolt", QT_TRANSLATE_NOOP("MenuBarIcons", "Bolt")},
    {"key", QT_TRANSLATE_NOOP("MenuBarIcons", "Key")},
    {"dot", QT_TRANSLATE_NOOP("MenuBarIcons", "Dot")},
}};

} // namespace skipnest::platform
