// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/XConnection.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>

namespace skipnest::bench {

// Where a window that is not managed lies on the screen.
struct Overlay {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

// Windows that come up over the others without the window manager, as bars and menus do.
class OverlayWatch {
public:
    explicit OverlayWatch(const QString& display);

    // Returns at once where one is up.
    [[nodiscard]] std::optional<Overlay> waitForOne(std::chrono::milliseconds limit);
    [[nodiscard]] bool waitForNone(std::chrono::milliseconds limit);
    [[nodiscard]] xcb_window_t lastWindow() const { return last_; }

    // Of the screen.
    [[nodiscard]] std::optional<std::uint32_t> pixel(int x, int y);
    [[nodiscard]] std::size_t contentHash(const Overlay& place);
    [[nodiscard]] xcb_window_t focus();

private:
    [[nodiscard]] Overlay placeOf(xcb_window_t window);
    void takeEvent(const xcb_generic_event_t& event);
    [[nodiscard]] bool waitUntil(bool isUp, std::chrono::milliseconds limit);

    e2e::XConnection connection_;
    std::set<xcb_window_t> up_;
    xcb_window_t last_ = XCB_WINDOW_NONE;
};

} // namespace skipnest::bench
