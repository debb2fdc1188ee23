// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11UnmanagedWindows.h"

namespace skipnest::linuxdesktop {

std::optional<UnmanagedWindows> findUnmanagedWindows(const X11Display& display,
                                                     xcb_atom_t icccmState) {
    xcb_connection_t* connection = display.connection();
    const auto focusCookie = xcb_get_input_focus(connection);
    const XcbPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, display.root()), nullptr));
    const XcbPtr<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(connection, focusCookie, nullptr));
    if (!tree)
        return std::nullopt;
    struct Candidate {
        xcb_window_t window;
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_property_cookie_t state;
        xcb_get_property_cookie_t name;
    };
    std::vector<Candidate> candidates;
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const xcb_window_t child = children[i];
        candidates.push_back(
            {child, xcb_get_window_attributes(connection, child),
             xcb_get_property(connection, 0, child, icccmState, XCB_ATOM_ANY, 0, 0),
             xcb_get_property(connection, 0, child, XCB_ATOM_WM_CLASS, XCB_ATOM_ANY, 0, 0)});
    }
    UnmanagedWindows found;
    found.focus = focus ? focus->focus : xcb_window_t{XCB_WINDOW_NONE};
    for (const Candidate& candidate : candidates) {
        const XcbPtr<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(connection, candidate.attributes, nullptr));
        const XcbPtr<xcb_get_property_reply_t> state(
            xcb_get_property_reply(connection, candidate.state, nullptr));
        const XcbPtr<xcb_get_property_reply_t> name(
            xcb_get_property_reply(connection, candidate.name, nullptr));
        if (!attributes || attributes->override_redirect != 0)
            continue;
        const bool managedOnce = state && state->type != XCB_ATOM_NONE;
        const bool shows =
            attributes->map_state == XCB_MAP_STATE_VIEWABLE && name && name->type != XCB_ATOM_NONE;
        if (managedOnce || shows)
            found.windows.push_back(candidate.window);
    }
    return found;
}

} // namespace skipnest::linuxdesktop
