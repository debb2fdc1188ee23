// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <vector>

namespace skipnest::linuxdesktop {

// Programs whose settings name combos and can be read.
enum class KeyDesktop { gnome, cinnamon, mate, xfce, kde, i3, sway, openbox };

// Those that run now: settings of desktops that are only installed hold no key. By
// XDG_CURRENT_DESKTOP ("ubuntu:GNOME") and by the name that the window manager gives itself, which
// counts beside it: LXQt runs openbox, and many sessions run a window manager alone.
[[nodiscard]] std::vector<KeyDesktop> runningDesktops(const QString& currentDesktop,
                                                      const QString& windowManager);

// As people know it.
[[nodiscard]] QString ownerName(KeyDesktop desktop);

} // namespace skipnest::linuxdesktop
