// SPDX-License-Identifier: Apache-2.0
#include "bench/OverlayWatch.h"

#include "tests/e2e/Waiting.h"

#include <poll.h>

#include <functional>
#include <string_view>

namespace skipnest::bench {

using e2e::XReply;

namespace {

// Tooltips and the like are none.
constexpr int smallest = 100;

} // namespace

OverlayWatch::OverlayWatch(const QString& display) : connection_(display) {
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.raw(), connection_.root(), XCB_CW_EVENT_MASK, &events);
    connection_.sync();
}

void OverlayWatch::takeEvent(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_MAP_NOTIFY: {
        const auto& mapped = reinterpret_cast<const xcb_map_notify_event_t&>(event);
        if (mapped.override_redirect == 0 || placeOf(mapped.window).width < smallest)
            return;
        up_.insert(mapped.window);
        last_ = mapped.window;
        return;
    }
    case XCB_UNMAP_NOTIFY:
        up_.erase(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
        return;
    case XCB_DESTROY_NOTIFY:
        up_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        return;
    default:
        return;
    }
}

bool OverlayWatch::waitUntil(bool isUp, std::chrono::milliseconds limit) {
    const auto until = e2e::Clock::now() + limit;
    while (e2e::Clock::now() < until) {
        while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.raw())})
            takeEvent(*event);
        if (up_.empty() != isUp)
            return true;
        pollfd readable{xcb_get_file_descriptor(connection_.raw()), POLLIN, 0};
        (void)poll(&readable, 1, 50);
    }
    return false;
}

std::optional<Overlay> OverlayWatch::waitForOne(std::chrono::milliseconds limit) {
    if (!waitUntil(true, limit))
        return std::nullopt;
    return placeOf(last_);
}

Overlay OverlayWatch::placeOf(xcb_window_t window) {
    const XReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
        connection_.raw(), xcb_get_geometry(connection_.raw(), window), nullptr));
    if (!geometry)
        return {};
    return {geometry->x, geometry->y, geometry->width, geometry->height};
}

bool OverlayWatch::waitForNone(std::chrono::milliseconds limit) {
    return waitUntil(false, limit);
}

std::optional<std::uint32_t> OverlayWatch::pixel(int x, int y) {
    const XReply<xcb_get_image_reply_t> image(xcb_get_image_reply(
        connection_.raw(),
        xcb_get_image(connection_.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, connection_.root(),
                      static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 1, 1, ~0U),
        nullptr));
    if (!image || xcb_get_image_data_length(image.get()) < 3)
        return std::nullopt;
    const std::uint8_t* data = xcb_get_image_data(image.get());
    return data[0] | data[1] << 8 | data[2] << 16;
}

std::size_t OverlayWatch::contentHash(const Overlay& place) {
    const XReply<xcb_get_image_reply_t> image(xcb_get_image_reply(
        connection_.raw(),
        xcb_get_image(connection_.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, connection_.root(),
                      static_cast<std::int16_t>(place.x), static_cast<std::int16_t>(place.y),
                      static_cast<std::uint16_t>(place.width),
                      static_cast<std::uint16_t>(place.height), ~0U),
        nullptr));
    if (!image)
        return 0;
    return std::hash<std::string_view>()(
        {reinterpret_cast<const char*>(xcb_get_image_data(image.get())),
         static_cast<std::size_t>(xcb_get_image_data_length(image.get()))});
}

xcb_window_t OverlayWatch::focus() {
    const XReply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        connection_.raw(), xcb_get_input_focus(connection_.raw()), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace skipnest::bench
