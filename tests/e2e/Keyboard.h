// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/Chord.h"
#include "tests/e2e/XConnection.h"

#include <chrono>
#include <optional>

namespace skipnest::e2e {

// The keyboard of the session: what it sends the server takes for a real one.
class Keyboard {
public:
    explicit Keyboard(XConnection& connection) : connection_(connection) {}

    // Modifiers down, key down, key up, modifiers up, in one burst.
    void tap(QStringView chord);
    void hold(const Chord& chord);
    void holdModifiers(const Chord& chord);
    void pressKey(const Chord& chord);
    void release(const Chord& chord);

    // From the key's press until the window is the active one; absent where it did not become it.
    // The modifiers go down before and everything comes up after.
    [[nodiscard]] std::optional<std::chrono::nanoseconds>
    pressUntilActive(const Chord& chord, xcb_window_t target,
                     std::chrono::milliseconds limit = std::chrono::seconds(1));

private:
    void send(std::uint8_t type, xcb_keycode_t key);

    XConnection& connection_;
};

} // namespace skipnest::e2e
