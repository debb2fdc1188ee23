// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DesktopShortcuts.h"
#include "platform/linux/X11Keymap.h"

#include <xkbcommon/xkbcommon.h>

#include <vector>

namespace skipnest::linuxdesktop {

// The combos that the keymap itself acts on: under Control and Alt the function keys mean
// XF86Switch_VT_1 and so on. The server eats such a press before it looks for grabs, on servers
// without virtual terminals too, and registering one succeeds all the same.
[[nodiscard]] std::vector<platform::DesktopShortcut>
virtualTerminalShortcuts(xkb_keymap* keymap, const KeyboardMap& map);

// The same of the server's keyboard as it is now. Some round trips.
[[nodiscard]] std::vector<platform::DesktopShortcut>
virtualTerminalShortcuts(const X11Display& display, const KeyboardMap& map);

} // namespace skipnest::linuxdesktop
