// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/previews/RedirectedWindows.h"

#include <xcb/composite.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace skipnest::linuxdesktop {
namespace {

// Of what the server tells of a window.
template <typename Geometry> QSize withBorder(const Geometry& geometry) {
    return {geometry.width + 2 * geometry.border_width,
            geometry.height + 2 * geometry.border_width};
}

} // namespace

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
    constexpr std::string_view selection = "_NET_WM_CM_S0";
    const XcbPtr<xcb_intern_atom_reply_t> compositor(xcb_intern_atom_reply(
        connection.get(),
        xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(selection.size()),
                        selection.data()),
        nullptr));
    if (!compositor)
        return nullptr;
    return std::unique_ptr<RedirectedWindows>(
        new RedirectedWindows(connection, compositor->atom, scheduler, std::move(events)));
}

RedirectedWindows::RedirectedWindows(Connection connection, xcb_atom_t compositor,
                                     platform::Scheduler& scheduler, Events events)
    : connection_(std::move(connection)), scheduler_(scheduler), events_(std::move(events)),
      root_(xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root),
      compositor_(compositor),
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
    if (found != windows_.end() && !found->second.whole)
        found->second.pixmap.reset();
}

void RedirectedWindows::follow(const std::vector<xcb_window_t>& clients) {
    const std::unordered_set<xcb_window_t> wanted(clients.begin(), clients.end());
    std::erase_if(windows_, [&](const auto& entry) {
        if (wanted.contains(entry.first))
            return false;
        leave(entry.first, entry.second);
        return true;
    });
    for (const xcb_window_t client : clients) {
        if (!windows_.contains(client))
            add(client);
    }
    xcb_flush(connection_.get());
    drainSoon();
}

// Of windows that have gone the server refuses this, which nobody hears of.
void RedirectedWindows::leave(xcb_window_t client, const Window& window) {
    constexpr std::uint32_t nothing = XCB_EVENT_MASK_NO_EVENT;
    for (const xcb_window_t left : {client, window.frame})
        xcb_change_window_attributes(connection_.get(), left, XCB_CW_EVENT_MASK, &nothing);
    if (window.live)
        xcb_composite_unredirect_window(connection_.get(), window.frame,
                                        XCB_COMPOSITE_REDIRECT_AUTOMATIC);
}

void RedirectedWindows::setLive(const std::unordered_set<xcb_window_t>& clients) {
    for (auto& [client, window] : windows_) {
        const bool live = clients.contains(client);
        if (live == window.live)
            continue;
        window.live = live;
        if (live)
            xcb_composite_redirect_window(connection_.get(), window.frame,
                                          XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        else
            xcb_composite_unredirect_window(connection_.get(), window.frame,
                                            XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        update(client, window);
    }
    xcb_flush(connection_.get());
}

bool RedirectedWindows::hasCompositor() const {
    const XcbPtr<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection_.get(), xcb_get_selection_owner(connection_.get(), compositor_), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
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
    for (const xcb_window_t followed : {client, frame})
        xcb_change_window_attributes(connection, followed, XCB_CW_EVENT_MASK, &events);
    // Asked after selecting: a change in between is in both.
    const auto clientCookie = xcb_get_geometry(connection, client);
    const auto frameCookie = xcb_get_geometry(connection, frame);
    const auto attributesCookie = xcb_get_window_attributes(connection, frame);
    const XcbPtr<xcb_get_geometry_reply_t> inner(
        xcb_get_geometry_reply(connection, clientCookie, nullptr));
    const XcbPtr<xcb_get_geometry_reply_t> outer(
        xcb_get_geometry_reply(connection, frameCookie, nullptr));
    const XcbPtr<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection, attributesCookie, nullptr));
    if (!inner || !outer || !attributes)
        return;
    Window& window = windows_[client];
    window.frame = frame;
    window.frameSize = withBorder(*outer);
    window.clientSize = withBorder(*inner);
    window.geometry = QRect(QPoint(outer->x, outer->y), window.frameSize);
    window.viewable = attributes->map_state == XCB_MAP_STATE_VIEWABLE;
    update(client, window);
}

void RedirectedWindows::update(xcb_window_t client, Window& window) {
    const bool fits = window.clientSize.boundedTo(window.frameSize) == window.clientSize;
    const bool resized = fits && window.geometry.size() != window.frameSize;
    if (fits)
        window.geometry.setSize(window.frameSize);
    const bool wasWhole = std::exchange(window.whole, fits && window.viewable && window.live);
    // A new size is a new pixmap, and so are being mapped and being live.
    if (window.whole && (resized || !wasWhole)) {
        const xcb_pixmap_t id = xcb_generate_id(connection_.get());
        xcb_composite_name_window_pixmap(connection_.get(), window.frame, id);
        window.pixmap = std::make_shared<const Pixmap>(connection_, id);
        xcb_flush(connection_.get());
    } else if (wasWhole && !window.whole) {
        events_.hidden(client);
    }
}

xcb_window_t RedirectedWindows::clientOf(xcb_window_t window) const {
    if (windows_.contains(window))
        return window;
    const auto found = std::ranges::find_if(
        windows_, [window](const auto& entry) { return entry.second.frame == window; });
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
    // What a client sent tells what somebody is to believe.
    const bool sent = event.response_type != type;
    switch (type) {
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
        if (sent || about.window != window.frame)
            break;
        window.viewable = type == XCB_MAP_NOTIFY;
        update(client, window);
        if (window.viewable && !window.live)
            events_.changed();
        break;
    case XCB_CONFIGURE_NOTIFY:
        if (sent)
            break;
        configure(client, window, reinterpret_cast<const xcb_configure_notify_event_t&>(event));
        update(client, window);
        break;
    default:
        leave(client, window);
        windows_.erase(client);
        events_.changed();
        break;
    }
}

void RedirectedWindows::configure(xcb_window_t client, Window& window,
                                  const xcb_configure_notify_event_t& event) {
    // One without a frame is both.
    if (event.window == client)
        window.clientSize = withBorder(event);
    if (event.window == window.frame) {
        window.frameSize = withBorder(event);
        window.geometry.moveTopLeft(QPoint(event.x, event.y));
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
