// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/Keyboard.h"

#include "tests/e2e/Waiting.h"

#include <xcb/xtest.h>

#include <ranges>

namespace skipnest::e2e {

void Keyboard::send(std::uint8_t type, xcb_keycode_t key) {
    xcb_test_fake_input(connection_.raw(), type, key, XCB_CURRENT_TIME, connection_.root(), 0, 0,
                        0);
}

void Keyboard::tap(QStringView text) {
    const Chord keys = chord(text);
    hold(keys);
    release(keys);
}

void Keyboard::hold(const Chord& chord) {
    holdModifiers(chord);
    pressKey(chord);
}

void Keyboard::holdModifiers(const Chord& chord) {
    for (const xcb_keycode_t key : chord.modifierKeys())
        send(XCB_KEY_PRESS, key);
    connection_.sync();
}

void Keyboard::pressKey(const Chord& chord) {
    send(XCB_KEY_PRESS, chord.key);
    xcb_flush(connection_.raw());
}

void Keyboard::release(const Chord& chord) {
    send(XCB_KEY_RELEASE, chord.key);
    for (const xcb_keycode_t key : chord.modifierKeys())
        send(XCB_KEY_RELEASE, key);
    connection_.sync();
}

std::optional<std::chrono::nanoseconds>
Keyboard::pressUntilActive(const Chord& chord, xcb_window_t target,
                           std::chrono::milliseconds limit) {
    holdModifiers(chord);
    connection_.drain();
    const auto pressed = Clock::now();
    pressKey(chord);
    const auto isActive = [&] {
        const auto active = connection_.numbers(connection_.root(), "_NET_ACTIVE_WINDOW");
        return !active.empty() && active.front() == target;
    };
    const bool arrived = connection_.waitForRootProperty("_NET_ACTIVE_WINDOW", isActive, limit);
    const auto elapsed = Clock::now() - pressed;
    release(chord);
    if (!arrived)
        return std::nullopt;
    return elapsed;
}

} // namespace skipnest::e2e
