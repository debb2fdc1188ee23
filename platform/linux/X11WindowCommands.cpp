// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11WindowCommands.h"

namespace skipnest::linuxdesktop {
namespace {

// A request of a pager or taskbar, that is of the person: focus stealing prevention lets it pass.
constexpr std::uint32_t sourcePager = 2;
constexpr std::uint32_t iconicState = 3;
constexpr std::uint32_t addState = 1;

// Errors of requests about windows that have just gone are nobody's business; left alone they would
// end up as warnings of Qt's.
void ignoreErrors(xcb_connection_t* connection, xcb_void_cookie_t cookie) {
    xcb_discard_reply(connection, cookie.sequence);
}

} // namespace

X11WindowCommands::X11WindowCommands(X11Display& display, X11Windows& windows)
    : display_(display), windows_(windows), activeWindow_(display.atom("_NET_ACTIVE_WINDOW")),
      currentDesktop_(display.atom("_NET_CURRENT_DESKTOP")),
      windowState_(display.atom("_NET_WM_STATE")),
      stateHidden_(display.atom("_NET_WM_STATE_HIDDEN")),
      restackWindow_(display.atom("_NET_RESTACK_WINDOW")),
      changeState_(display.atom("WM_CHANGE_STATE")), protocols_(display.atom("WM_PROTOCOLS")),
      deleteWindow_(display.atom("WM_DELETE_WINDOW")) {}

void X11WindowCommands::activate(xcb_window_t window) {
    windows_.noteRequestedActive(window);
    if (!windows_.hasWindowManager()) {
        force(window);
        return;
    }
    const xcb_timestamp_t time = display_.requestTime();
    const X11Window* known = windows_.find(window);
    // One window manager ignores activation across desktops, another pulls the window over. Going
    // to its desktop first is what both get right.
    if (known != nullptr && windows_.needsDesktop(known->desktop)) {
        request(display_.root(), currentDesktop_, known->desktop, time);
        windows_.noteRequestedDesktop(known->desktop);
    }
    request(window, activeWindow_, sourcePager, time, XCB_WINDOW_NONE);
    xcb_flush(display_.connection());
}

void X11WindowCommands::force(xcb_window_t window) {
    xcb_connection_t* connection = display_.connection();
    const X11Window* known = windows_.find(window);
    if (windows_.hasWindowManager())
        activate(window);
    if (!windows_.hasWindowManager() || (known != nullptr && windows_.isHidden(*known)))
        ignoreErrors(connection, xcb_map_window_checked(connection, window));
    raise(window);
    // The server drops a focus change that is older than the last one; this one must not lose.
    ignoreErrors(connection, xcb_set_input_focus_checked(connection, XCB_INPUT_FOCUS_PARENT, window,
                                                         XCB_CURRENT_TIME));
    xcb_flush(connection);
}

void X11WindowCommands::raise(xcb_window_t window) {
    if (windows_.supports("_NET_RESTACK_WINDOW")) {
        request(window, restackWindow_, sourcePager, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE);
    } else {
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        ignoreErrors(display_.connection(),
                     xcb_configure_window_checked(display_.connection(), window,
                                                  XCB_CONFIG_WINDOW_STACK_MODE, &above));
    }
    xcb_flush(display_.connection());
}

void X11WindowCommands::iconify(xcb_window_t window) {
    const X11Window* known = windows_.find(window);
    // Openbox calls windows of other desktops iconic and then takes this request for one already
    // granted: they would show again with their desktop. The newer state it does set there.
    if (known != nullptr && known->iconic && !windows_.isHidden(*known))
        request(window, windowState_, addState, stateHidden_);
    request(window, changeState_, iconicState);
    windows_.noteRequestedActive(XCB_WINDOW_NONE);
    xcb_flush(display_.connection());
}

void X11WindowCommands::close(xcb_window_t window) {
    const X11Window* known = windows_.find(window);
    if (known != nullptr && !known->takesDelete) {
        disconnect(window);
        return;
    }
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = protocols_;
    message.data.data32[0] = deleteWindow_;
    message.data.data32[1] = display_.requestTime();
    xcb_connection_t* connection = display_.connection();
    ignoreErrors(connection, xcb_send_event_checked(connection, 0, window, XCB_EVENT_MASK_NO_EVENT,
                                                    reinterpret_cast<const char*>(&message)));
    xcb_flush(connection);
}

void X11WindowCommands::disconnect(xcb_window_t window) {
    ignoreErrors(display_.connection(), xcb_kill_client_checked(display_.connection(), window));
    xcb_flush(display_.connection());
}

void X11WindowCommands::request(xcb_window_t window, xcb_atom_t type, std::uint32_t first,
                                std::uint32_t second, std::uint32_t third) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    message.data.data32[0] = first;
    message.data.data32[1] = second;
    message.data.data32[2] = third;
    xcb_send_event(display_.connection(), 0, display_.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
}

} // namespace skipnest::linuxdesktop
