// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11Display.h"
#include "platform/linux/X11Windows.h"

namespace skipnest::linuxdesktop {

// Requests to the window manager about single windows. Each is sent at once and answered by nobody:
// what came of it arrives as events. Requests about windows that have gone do nothing.
class X11WindowCommands {
public:
    X11WindowCommands(X11Display& display, X11Windows& windows);

    // In front, on its own desktop, out of its icon; past the window manager where there is none.
    void activate(xcb_window_t window);
    // The same without anybody's consent: raised and given the keyboard directly as well.
    void force(xcb_window_t window);
    // Above the others, without the keyboard.
    void raise(xcb_window_t window);
    void iconify(xcb_window_t window);
    // Asks the window's program to close it; a program that does not know that is disconnected.
    void close(xcb_window_t window);
    // Ends the window's program by its X connection.
    void disconnect(xcb_window_t window);

private:
    void request(xcb_window_t window, xcb_atom_t type, std::uint32_t first,
                 std::uint32_t second = 0, std::uint32_t third = 0);

    X11Display& display_;
    X11Windows& windows_;
    const xcb_atom_t activeWindow_;
    const xcb_atom_t currentDesktop_;
    const xcb_atom_t windowState_;
    const xcb_atom_t stateHidden_;
    const xcb_atom_t restackWindow_;
    const xcb_atom_t changeState_;
    const xcb_atom_t protocols_;
    const xcb_atom_t deleteWindow_;
};

} // namespace skipnest::linuxdesktop
