// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/LinuxScreens.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <array>

namespace skipnest::linuxdesktop {
namespace {

// Left, right, top, bottom; zeros where the window manager draws none.
std::array<int, 4> frameExtents(const xcb_get_property_reply_t* reply) {
    std::array<int, 4> extents{};
    if (reply == nullptr || reply->format != 32 || reply->value_len < extents.size())
        return extents;
    const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply));
    // No frame is as wide as a screen; a wrong value must not move the window elsewhere.
    std::transform(values, values + extents.size(), extents.begin(),
                   [](std::uint32_t value) { return value < 4096 ? static_cast<int>(value) : 0; });
    return extents;
}

} // namespace

std::optional<QRect> fromNativePixels(const QRect& native,
                                      const std::vector<ScaledScreen>& screens) {
    for (const ScaledScreen& screen : screens) {
        const QPoint corner = screen.frame.topLeft();
        const QRect nativeFrame(corner, (QSizeF(screen.frame.size()) * screen.ratio).toSize());
        if (!nativeFrame.contains(native.center()))
            continue;
        const QPointF offset = QPointF(native.topLeft() - corner) / screen.ratio;
        return QRect(corner + offset.toPoint(), (QSizeF(native.size()) / screen.ratio).toSize());
    }
    return std::nullopt;
}

std::vector<platform::Screen> LinuxScreens::screens() const {
    std::vector<platform::Screen> all;
    for (const QScreen* screen : QGuiApplication::screens())
        all.push_back({screen->geometry(), screen->availableGeometry(),
                       screen == QGuiApplication::primaryScreen()});
    return all;
}

std::optional<QPoint> LinuxScreens::pointer() const {
    return display_ != nullptr ? std::optional(QCursor::pos()) : std::nullopt;
}

xcb_window_t LinuxScreens::activeWindow() const {
    const XcbPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        display_->connection(),
        xcb_get_property(display_->connection(), 0, display_->root(),
                         display_->atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1),
        nullptr));
    if (!reply || reply->format != 32 || reply->value_len < 1)
        return XCB_WINDOW_NONE;
    return *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
}

bool LinuxScreens::isOurs(xcb_window_t window) const {
    const xcb_setup_t* setup = xcb_get_setup(display_->connection());
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
}

std::optional<QRect> LinuxScreens::activeWindowFrame() const {
    if (display_ == nullptr)
        return std::nullopt;
    const xcb_window_t window = activeWindow();
    if (window == XCB_WINDOW_NONE || isOurs(window))
        return std::nullopt;
    xcb_connection_t* connection = display_->connection();
    // All asked before the first answer is awaited.
    const auto geometryCookie = xcb_get_geometry(connection, window);
    const auto placeCookie = xcb_translate_coordinates(connection, window, display_->root(), 0, 0);
    const auto extentsCookie = xcb_get_property(
        connection, 0, window, display_->atom("_NET_FRAME_EXTENTS"), XCB_ATOM_CARDINAL, 0, 4);
    const XcbPtr<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, geometryCookie, nullptr));
    const XcbPtr<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(connection, placeCookie, nullptr));
    const XcbPtr<xcb_get_property_reply_t> extents(
        xcb_get_property_reply(connection, extentsCookie, nullptr));
    if (!geometry || !place)
        return std::nullopt;
    const auto [left, right, top, bottom] = frameExtents(extents.get());
    const QRect frame = QRect(place->dst_x, place->dst_y, geometry->width, geometry->height)
                            .adjusted(-left, -top, right, bottom);
    std::vector<ScaledScreen> scaled;
    for (const QScreen* screen : QGuiApplication::screens())
        scaled.push_back({screen->geometry(), screen->devicePixelRatio()});
    return fromNativePixels(frame, scaled);
}

} // namespace skipnest::linuxdesktop
