// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11Keymap.h"
#include "platform/linux/keys/KeySpelling.h"

#include <cstdint>
#include <optional>

namespace skipnest::linuxdesktop {

// Which physical key a setting means. Settings name what a key types; where the layout in use types
// no such character (Greek, Cyrillic), desktops take the key that does on a US keyboard, and so
// does this. A value: it may be used on any thread.
class DesktopKeyNames {
public:
    explicit DesktopKeyNames(const KeyboardMap& map) : map_(map) {}

    // The kVK_* code; nothing for names that no key here has.
    [[nodiscard]] std::optional<std::uint16_t> keyCode(const KeySpelling& spelling) const;

private:
    KeyboardMap map_;
};

} // namespace skipnest::linuxdesktop
