// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11KeyStrokes.h"

#include "platform/linux/X11RawInput.h"

#include <xcb/xtest.h>

namespace skipnest::linuxdesktop {

using platform::EventFlags;
using platform::Failure;
using platform::Outcome;

X11KeyStrokes::X11KeyStrokes(X11Display& display, X11Keymap& keymap)
    : display_(display), keymap_(keymap) {
    xcb_prefetch_extension_data(display_.connection(), &xcb_test_id);
}

bool X11KeyStrokes::available() const {
    const xcb_query_extension_reply_t* data =
        xcb_get_extension_data(display_.connection(), &xcb_test_id);
    return data != nullptr && data->present != 0;
}

Outcome X11KeyStrokes::press(xcb_keycode_t keycode, EventFlags flags, LevelKeys levelKeys) {
    xcb_connection_t* connection = display_.connection();
    if (!available())
        return Failure{Failure::Kind::unavailable,
                       QStringLiteral("The X server has no XTEST extension.")};
    const KeyboardMap& map = keymap_.current();
    constexpr std::uint64_t modifierFlags =
        EventFlags::shift | EventFlags::control | EventFlags::alternate | EventFlags::command;
    std::uint64_t missing = flags.bits & modifierFlags;
    bool keyIsDown = false;
    std::vector<xcb_keycode_t> inTheWay;
    for (const xcb_keycode_t down : queryKeysDown(connection)) {
        const ModifierKey* key = map.modifierKey(down);
        // A person may be holding the very key; a second press of it would be none.
        keyIsDown = keyIsDown || down == keycode;
        if (key != nullptr && !key->choosesLevel && (flags.bits & key->flag) != 0)
            missing &= ~key->flag;
        else if (key != nullptr && key->flag != 0 &&
                 !(key->choosesLevel && levelKeys == LevelKeys::leave))
            inTheWay.push_back(down);
    }
    std::vector<xcb_keycode_t> added;
    for (const ModifierKey& key : map.modifierKeys) {
        if (key.choosesLevel || (missing & key.flag) == 0)
            continue;
        added.push_back(key.keycode);
        missing &= ~key.flag;
    }
    if (missing != 0)
        return Failure{Failure::Kind::notFound,
                       QStringLiteral("This keyboard lacks a modifier of the key stroke.")};

    const auto fake = [&](std::uint8_t type, xcb_keycode_t code) {
        xcb_test_fake_input(connection, type, code, XCB_CURRENT_TIME, display_.root(), 0, 0, 0);
    };
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    for (const xcb_keycode_t code : inTheWay)
        fake(XCB_KEY_RELEASE, code);
    for (const xcb_keycode_t code : added)
        fake(XCB_KEY_PRESS, code);
    if (keyIsDown)
        fake(XCB_KEY_RELEASE, keycode);
    fake(XCB_KEY_PRESS, keycode);
    fake(XCB_KEY_RELEASE, keycode);
    for (auto code = added.rbegin(); code != added.rend(); ++code)
        fake(XCB_KEY_RELEASE, *code);
    for (const xcb_keycode_t code : inTheWay)
        fake(XCB_KEY_PRESS, code);
    xcb_flush(connection);
    return platform::Done{};
}

} // namespace skipnest::linuxdesktop
