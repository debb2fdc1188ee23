// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <cstdint>
#include <string>
#include <vector>

namespace skipnest::tests {

// X keycodes of a PC keyboard under the evdev rules.
namespace key {
constexpr xcb_keycode_t q = 24, z = 52, y = 29, a = 38, b = 56, j = 44, k = 45, w = 25;
constexpr xcb_keycode_t control = 37, shift = 50, alt = 64, super = 133, caps = 66, num = 77;
constexpr xcb_keycode_t left = 113;
} // namespace key

// Another client of the X server: somebody's fingers (XTEST), or another program with grabs and a
// window. Every call returns after the server has carried it out.
class XKeyboard {
public:
    explicit XKeyboard(const QByteArray& display);
    ~XKeyboard();
    XKeyboard(const XKeyboard&) = delete;
    XKeyboard& operator=(const XKeyboard&) = delete;

    void press(xcb_keycode_t keycode);
    void release(xcb_keycode_t keycode);
    void tap(xcb_keycode_t keycode);
    void chord(const std::vector<xcb_keycode_t>& modifiers, xcb_keycode_t keycode);

    // Moves the pointer there and clicks.
    void click(std::int16_t x, std::int16_t y, std::uint8_t button);
    [[nodiscard]] bool grabPointer();

    [[nodiscard]] bool isDown(xcb_keycode_t keycode) const;
    void lockGroup(std::uint8_t group);

    // The X error code, 0 when granted.
    [[nodiscard]] int grabKey(xcb_keycode_t keycode, std::uint16_t modifiers);
    [[nodiscard]] bool grabUnderAllLocks(xcb_keycode_t keycode, std::uint16_t modifiers);
    void ungrabKeys();
    [[nodiscard]] bool grabKeyboard();
    void ungrabKeyboard();

    // A window that has the focus from here on.
    void openFocusedWindow();
    // What was typed into it so far: "shift+control+38" for each press, in order.
    [[nodiscard]] const std::vector<std::string>& typed();
    [[nodiscard]] const std::vector<std::string>& releases(); // "38"
    // "out" and "in", as grabs take the keyboard away and give it back.
    [[nodiscard]] const std::vector<std::string>& focusChanges();

    void disconnect();

private:
    void sync() const;
    void fake(std::uint8_t type, xcb_keycode_t keycode);
    void readEvents();

    xcb_connection_t* connection_;
    xcb_window_t root_ = 0;
    std::vector<std::string> typed_, releases_, focusChanges_;
};

} // namespace skipnest::tests
