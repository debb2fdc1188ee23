// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"

#include <QString>

#include <vector>

namespace skipnest::app {

// Desktops that bind keys to commands in text that a person can paste.
enum class BindingsFor { gnome, kde, sway };

// The bindings of all shortcuts with a combo as that desktop takes them: a shell script of
// gsettings commands for GNOME, one of kwriteconfig commands and desktop files for KDE, lines of
// its configuration for sway. Each runs `skipnest jump NAME`. Names are quoted for where they
// stand.
[[nodiscard]] QString readyBindings(const std::vector<model::ShortcutItem>& shortcuts,
                                    BindingsFor desktop, const QString& program);

} // namespace skipnest::app
