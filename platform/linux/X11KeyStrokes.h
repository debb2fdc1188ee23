// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyEvents.h"
#include "platform/linux/X11Keymap.h"

namespace skipnest::linuxdesktop {

// Presses keys as if a person did, by XTEST.
class X11KeyStrokes {
public:
    // What becomes of an AltGr that a person holds: it changes what a key types.
    enum class LevelKeys { release, leave };

    X11KeyStrokes(X11Display& display, X11Keymap& keymap);

    [[nodiscard]] bool available() const;
    // Presses and releases the key with exactly these modifiers. Gives up a keyboard grab of this
    // program's own, which would otherwise get the keys itself: a hotkey's lasts as long as its key
    // is down. Other modifiers that a person holds are released for the stroke and pressed again.
    platform::Outcome press(xcb_keycode_t keycode, platform::EventFlags flags, LevelKeys levelKeys);

private:
    X11Display& display_;
    X11Keymap& keymap_;
};

} // namespace skipnest::linuxdesktop
