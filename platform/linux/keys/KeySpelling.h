// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/EventFlags.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace skipnest::linuxdesktop {

// A combo as a desktop's settings name it: modifiers, and a key by its X keysym name ("Left", "t")
// or by its X keycode.
struct KeySpelling {
    std::uint32_t carbonModifiers = 0;
    QString keysym;
    std::uint8_t keycode = 0; // in place of the name

    bool operator==(const KeySpelling&) const = default;

    // The Super key alone, which desktops bind to a tap.
    [[nodiscard]] bool isSuperTap() const;
};

// Each takes any text and answers nothing where it names no combo of the four modifiers:
// "disabled", "none", mouse buttons, Hyper.

// "<Primary><Alt>Left": GNOME, Cinnamon, MATE, Xfce.
[[nodiscard]] std::optional<KeySpelling> gtkSpelling(const QString& text);
// "Meta+Ctrl+PgUp": KDE. "Meta" alone is a tap.
[[nodiscard]] std::optional<KeySpelling> kdeSpelling(const QString& text);
// "Mod4+Shift+q", variables replaced: i3 and sway.
[[nodiscard]] std::optional<KeySpelling> i3Spelling(const QString& text);
// "C-A-Left": openbox.
[[nodiscard]] std::optional<KeySpelling> openboxSpelling(const QString& text);

} // namespace skipnest::linuxdesktop
