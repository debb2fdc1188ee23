// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11Display.h"

#include <memory>

namespace skipnest::linuxdesktop {

// Whether somebody has a hotkey on a chord, as a passive grab on the root window.
//
// The server answers no such question, but refuses the same grab to a second client. So the grab is
// asked for and given back at once, on a connection of its own, where our own hotkeys are somebody
// else's too. Grabs of the core protocol and of XInput2 do not exclude each other: both are tried.
class X11KeyClaims {
public:
    // Null where the server takes no further connection.
    [[nodiscard]] static std::unique_ptr<X11KeyClaims> open();

    // `modifiers` is the state of an X event, locks included. One round trip.
    [[nodiscard]] bool isClaimed(xcb_keycode_t keycode, std::uint16_t modifiers) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

    explicit X11KeyClaims(Connection connection);

    Connection connection_;
    xcb_window_t root_ = XCB_WINDOW_NONE;
    bool hasXInput_ = false;
};

} // namespace skipnest::linuxdesktop
