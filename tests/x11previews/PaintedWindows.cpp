// SPDX-License-Identifier: Apache-2.0
#include "tests/x11previews/PaintedWindows.h"

#include "platform/linux/X11Display.h"

#include <QFile>

#include <sys/socket.h>
#include <xcb/composite.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace skipnest::tests {

using linuxdesktop::XcbPtr;

PaintedWindows::PaintedWindows()
    : connection_(xcb_connect(nullptr, nullptr)),
      root_(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root) {}

PaintedWindows::~PaintedWindows() {
    xcb_disconnect(connection_);
}

xcb_window_t PaintedWindows::open(std::uint32_t colour, std::uint16_t width, std::uint16_t height,
                                  Depth depth) {
    const xcb_window_t window = xcb_generate_id(connection_);
    const xcb_visualid_t visual = visualOf(depth);
    const xcb_colormap_t colours = xcb_generate_id(connection_);
    xcb_create_colormap(connection_, XCB_COLORMAP_ALLOC_NONE, colours, root_, visual);
    const std::uint32_t values[] = {colour, 0, colours};
    xcb_create_window(connection_, static_cast<std::uint8_t>(depth), window, root_, 50, 50, width,
                      height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_COLORMAP, values);
    constexpr char name[] = "painted\0Painted";
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, sizeof name, name);
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 7, name);
    xcb_map_window(connection_, window);
    xcb_flush(connection_);
    return window;
}

long PaintedWindows::serverMemory() const {
    ucred server{};
    socklen_t size = sizeof server;
    EXPECT_EQ(
        getsockopt(xcb_get_file_descriptor(connection_), SOL_SOCKET, SO_PEERCRED, &server, &size),
        0);
    QFile status(QStringLiteral("/proc/%1/status").arg(server.pid));
    EXPECT_TRUE(status.open(QIODevice::ReadOnly));
    const QByteArray text = status.readAll();
    const auto at = text.indexOf("VmRSS:");
    return text.mid(at + 6, text.indexOf("kB", at) - at - 6).trimmed().toLong();
}

void PaintedWindows::becomeCompositor(xcb_atom_t selection) {
    xcb_composite_redirect_subwindows(connection_, root_, XCB_COMPOSITE_REDIRECT_MANUAL);
    const xcb_window_t owner = xcb_generate_id(connection_);
    xcb_create_window(connection_, 0, owner, root_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(connection_, owner, selection, XCB_CURRENT_TIME);
    sync();
}

void PaintedWindows::close(xcb_window_t window) {
    xcb_destroy_window(connection_, window);
    sync();
}

void PaintedWindows::minimise(xcb_window_t window, xcb_atom_t changeState) {
    constexpr std::uint32_t iconic = 3;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = changeState;
    message.data.data32[0] = iconic;
    xcb_send_event(connection_, 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    sync();
}

void PaintedWindows::paint(xcb_window_t window, std::uint32_t colour) {
    xcb_change_window_attributes(connection_, window, XCB_CW_BACK_PIXEL, &colour);
    xcb_clear_area(connection_, 1, window, 0, 0, 0, 0);
    sync();
}

int PaintedWindows::frameHeight(xcb_window_t window) const {
    const XcbPtr<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, frame(window)), nullptr));
    return geometry->height;
}

bool PaintedWindows::isViewable(xcb_window_t window) const {
    const XcbPtr<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    return attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool PaintedWindows::isRedirected(xcb_window_t window) const {
    const xcb_pixmap_t pixmap = xcb_generate_id(connection_);
    const XcbPtr<xcb_generic_error_t> error(xcb_request_check(
        connection_, xcb_composite_name_window_pixmap_checked(connection_, frame(window), pixmap)));
    if (!error)
        xcb_free_pixmap(connection_, pixmap);
    return !error;
}

xcb_visualid_t PaintedWindows::visualOf(Depth depth) const {
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    for (auto depths = xcb_screen_allowed_depths_iterator(screen); depths.rem > 0;
         xcb_depth_next(&depths)) {
        if (depths.data->depth == static_cast<std::uint8_t>(depth))
            return xcb_depth_visuals(depths.data)->visual_id;
    }
    return screen->root_visual;
}

xcb_window_t PaintedWindows::frame(xcb_window_t window) const {
    for (xcb_window_t parent = window; parent != root_;) {
        const XcbPtr<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(connection_, xcb_query_tree(connection_, parent), nullptr));
        window = parent;
        parent = tree->parent;
    }
    return window;
}

void PaintedWindows::sync() const {
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

} // namespace skipnest::tests
