// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "platform/UsKeyboardLayout.h"

#include <QString>

#include <vector>

namespace skipnest::app {

// Desktops that bind keys to commands in text that a person can paste.
enum class BindingsFor { gnome, kde, sway };

// The bindings of all shortcuts with a combo as that desktop takes them: a shell script of
// gsettings commands for GNOME, one of kwriteconfig commands and desktop files for KDE, lines of
// its configuration for sway. Running or pasting it again replaces what was there. Each binding
// runs `skipnest jump NAME`; names are quoted for where they stand, and where a name cannot stand
// there at all, or two shortcuts share it, the record's id takes its place.
//
// `program` is the command's path or name. A combo whose key has no name is left out and said in a
// comment.
[[nodiscard]] QString
readyBindings(const std::vector<model::ShortcutItem>& shortcuts, BindingsFor desktop,
              const QString& program,
              const platform::KeyboardLayout& layout = platform::UsKeyboardLayout());

} // namespace skipnest::app
