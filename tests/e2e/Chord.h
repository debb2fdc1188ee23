// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringView>

#include <xcb/xproto.h>

#include <cstdint>
#include <vector>

namespace skipnest::e2e {

// A physical key with modifiers, as the configuration stores it and as a keyboard sends it.
struct Chord {
    std::uint16_t keyCode = 0;   // kVK_* numbering
    std::uint32_t modifiers = 0; // command 1, option 2, control 4, shift 8
    xcb_keycode_t key = 0;       // X keycode: evdev code + 8

    // The X keycodes of the modifiers, in the order in which a hand presses them.
    [[nodiscard]] std::vector<xcb_keycode_t> modifierKeys() const;
    // Core protocol modifier bits, locks left out.
    [[nodiscard]] std::uint16_t modifierMask() const;
};

// "ctrl+alt+j": cmd, alt, ctrl, shift and a key of the US keyboard. Aborts on any other text: the
// texts are literals of the test.
[[nodiscard]] Chord chord(QStringView text);

// Letters and digits, in keyboard order.
[[nodiscard]] QString alphanumericKeys();

} // namespace skipnest::e2e
