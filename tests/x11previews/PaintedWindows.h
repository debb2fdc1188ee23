// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace skipnest::tests {

// Windows of a second client, each of one colour, and what that client sees of the server. Every
// call but open() returns after the server has carried it out.
class PaintedWindows {
public:
    PaintedWindows();
    ~PaintedWindows();
    PaintedWindows(const PaintedWindows&) = delete;
    PaintedWindows& operator=(const PaintedWindows&) = delete;

    enum class Depth : std::uint8_t { ofScreen = 24, withAlpha = 32 };

    xcb_window_t open(std::uint32_t colour, std::uint16_t width = 600, std::uint16_t height = 400,
                      Depth depth = Depth::ofScreen);
    void close(xcb_window_t window);
    void minimise(xcb_window_t window, xcb_atom_t changeState);
    void paint(xcb_window_t window, std::uint32_t colour);
    // Until this object ends. What it would have to draw nobody looks at.
    void becomeCompositor(xcb_atom_t selection);

    [[nodiscard]] bool isViewable(xcb_window_t window) const;
    [[nodiscard]] int frameHeight(xcb_window_t window) const;
    // Whether somebody redirects the root's child that has the window in it.
    [[nodiscard]] bool isRedirected(xcb_window_t window) const;
    // What the server takes of the machine's memory, in kilobytes.
    [[nodiscard]] long serverMemory() const;

private:
    [[nodiscard]] xcb_visualid_t visualOf(Depth depth) const;
    [[nodiscard]] xcb_window_t frame(xcb_window_t window) const;
    void sync() const;

    xcb_connection_t* connection_;
    const xcb_window_t root_;
};

} // namespace skipnest::tests
