// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Screens.h"
#include "platform/linux/X11Display.h"

namespace skipnest::linuxdesktop {

// A screen of Qt's: its corner is where the X server has it, its size is divided by the ratio of
// native to device-independent pixels.
struct ScaledScreen {
    QRect frame;
    double ratio = 1;
};

// A rectangle in the X server's pixels in those of Qt. The screen that has its middle decides; one
// outside of all screens is nowhere.
[[nodiscard]] std::optional<QRect> fromNativePixels(const QRect& native,
                                                    const std::vector<ScaledScreen>& screens);

class LinuxScreens final : public platform::Screens {
public:
    // `display` is null outside X11, where neither pointer nor windows are told.
    explicit LinuxScreens(const X11Display* display) : display_(display) {}

    [[nodiscard]] std::vector<platform::Screen> screens() const override;
    [[nodiscard]] std::optional<QPoint> pointer() const override;
    // Without a window manager nothing is active.
    [[nodiscard]] std::optional<QRect> activeWindowFrame() const override;

private:
    [[nodiscard]] xcb_window_t activeWindow() const;
    [[nodiscard]] bool isOurs(xcb_window_t window) const;

    const X11Display* display_;
};

} // namespace skipnest::linuxdesktop
