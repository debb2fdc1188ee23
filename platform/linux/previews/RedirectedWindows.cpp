// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/previews/RedirectedWindows.h"

#include <xcb/composite.h>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace skipnest::linuxdesktop {

RedirectedWindows::Pixmap::~Pixmap() {
    if (const auto connection = connection_.lock()) {
        xcb_free_pixmap(connection.get(), id_);
        xcb_flush(connection.get());
    }
}

std::unique_ptr<RedirectedWindows> RedirectedWindows::open(platform::Scheduler& scheduler,
                                                           Events events) {
    const Connection connection(xcb_connect(nullptr, nullptr), Disconnect{});
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(connection.get(), &xcb_composite_id);
    if (extension == nullptr || extension->present == 0)
        return nullptr;
    // From 0.2 on pixmaps have names.
    const XcbPtr<xcb_composite_query_version_reply_t> version(xcb_composite_query_version_reply(
        connection.get(), xcb_composite_query_version(connection.get(), 0, 4), nullptr));
    if (!version || (version->major_version == 0 && version->minor_version < 2))
        return nullptr;
    return std::unique_ptr<RedirectedWindows>(
        new RedirectedWindows(connection, scheduler, std::move(events)));
}

RedirectedWindows::RedirectedWindows(Connection connection, platform::Scheduler& scheduler,
                                     Events events)
    : connection_(std::move(connection)), scheduler_(scheduler), events_(std::move(events)),
      root_(xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root),
      notifier_(xcb_get_file_descriptor(connection_.get()), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { drain(); });
}

RedirectedWindows::~RedirectedWindows() {
    // The notifier must not see a descriptor that the connection has closed.
    notifier_.setEnabled(false);
}

const RedirectedWindows::Window* RedirectedWindows::find(xcb_window_t client) const {
    const auto found = windows_.find(client);
    return found == windows_.end() ? nullptr : &found->second;
}

void RedirectedWindows::forgetPixmap(xcb_window_t client) {
    const auto found = windows_.find(client);
    if (found != windows_.end() && !found->second.viewable)
        found->second.pixmap.reset();
}

void RedirectedWindows::follow(const std::vector<xcb_window_t>& clients) {
    const std::unordered_set<xcb_window_t> wanted(clients.begin(), clients.end());
    std::erase_if(windows_, [&](const auto& entry) {
        if (wanted.contains(entry.first))
            return false;
        constexpr std::uint32_t nothing = XCB_EVENT_MASK_NO_EVENT;
        xcb_change_window_attributes(connection_.get(), entry.second.frame, XCB_CW_EVENT_MASK,
                                     &nothing);
        xcb_composite_unredirect_window(connection_.get(), entry.second.frame,
                                        XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        return true;
    });
    for (const xcb_window_t client : clients) {
        if (!windows_.contains(client))
            add(client);
    }
    xcb_flush(connection_.get());
    drainSoon();
}

xcb_window_t RedirectedWindows::frameOf(xcb_window_t client) const {
    xcb_window_t window = client;
    while (true) {
        const XcbPtr<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
            connection_.get(), xcb_query_tree(connection_.get(), window), nullptr));
        if (!tree)
            return XCB_WINDOW_NONE;
        if (tree->parent == root_)
            return window;
        window = tree->parent;
    }
}

void RedirectedWindows::add(xcb_window_t client) {
    xcb_connection_t* connection = connection_.get();
    const xcb_window_t frame = frameOf(client);
    if (frame == XCB_WINDOW_NONE)
        return;
    constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, frame, XCB_CW_EVENT_MASK, &events);
    xcb_composite_redirect_window(connection, frame, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    // Asked after selecting: a change in between is in both.
    const auto geometryCookie = xcb_get_geometry(connection, frame);
    const auto attributesCookie = xcb_get_window_attributes(connection, frame);
    const XcbPtr<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, geometryCookie, nullptr));
    const XcbPtr<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, attributesCookie, nullptr));
    if (!geometry || !attributes)
        return;
    Window& window = windows_[client];
    window.frame = frame;
    window.geometry = QRect(geometry->x, geometry->y, geometry->width + 2 * geometry->border_width,
                            geometry->height + 2 * geometry->border_width);
    window.viewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    if (window.viewable)
        name(window);
}

void RedirectedWindows::name(Window& window) {
    const xcb_pixmap_t id = xcb_generate_id(connection_.get());
    xcb_composite_name_window_pixmap(connection_.get(), window.frame, id);
    window.pixmap = std::make_shared<const Pixmap>(connection_, id);
    xcb_flush(connection_.get());
}

xcb_window_t RedirectedWindows::clientOf(xcb_window_t frame) const {
    const auto found = std::ranges::find_if(
        windows_, [frame](const auto& entry) { return entry.second.frame == frame; });
    return found == windows_.end() ? xcb_window_t{XCB_WINDOW_NONE} : found->first;
}

void RedirectedWindows::handle(const xcb_generic_event_t& event) {
    // All of these begin with the window that they are about, behind the one that heard of it.
    const auto& about = reinterpret_cast<const xcb_map_notify_event_t&>(event);
    const std::uint8_t type = event.response_type & 0x7f;
    if (type != XCB_MAP_NOTIFY && type != XCB_UNMAP_NOTIFY && type != XCB_CONFIGURE_NOTIFY &&
        type != XCB_DESTROY_NOTIFY && type != XCB_REPARENT_NOTIFY)
        return;
    const xcb_window_t client = clientOf(about.window);
    if (client == XCB_WINDOW_NONE)
        return;
    Window& window = windows_.at(client);
    switch (type) {
    case XCB_MAP_NOTIFY:
        window.viewable = true;
        name(window);
        break;
    case XCB_UNMAP_NOTIFY:
        window.viewable = false;
        events_.unmapped(client);
        break;
    case XCB_CONFIGURE_NOTIFY: {
        // One that a client sent tells what the window manager wants it to believe.
        if (event.response_type != type)
            break;
        const auto& configured = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        const QRect geometry(configured.x, configured.y,
                             configured.width + 2 * configured.border_width,
                             configured.height + 2 * configured.border_width);
        const bool resized = geometry.size() != window.geometry.size();
        window.geometry = geometry;
        // A new size is a new pixmap.
        if (resized && window.viewable)
            name(window);
        break;
    }
    default:
        windows_.erase(client);
        events_.reparented();
        break;
    }
}

void RedirectedWindows::drain() {
    const auto alive = std::weak_ptr(alive_);
    while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        handle(*event);
        if (alive.expired())
            return;
    }
    // A dead socket is readable for ever.
    if (xcb_connection_has_error(connection_.get()) != 0)
        notifier_.setEnabled(false);
}

// Events that came together with an answer wait in memory, where no socket announces them.
void RedirectedWindows::drainSoon() {
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired())
            drain();
    });
}

} // namespace skipnest::linuxdesktop
