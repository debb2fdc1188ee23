// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPoint>
#include <QRect>

#include <optional>
#include <vector>

namespace skipnest::platform {

struct Screen {
    QRect frame;
    QRect available; // without panels and docks
    bool primary = false;

    bool operator==(const Screen&) const = default;
};

// Where things are, in the coordinates in which windows of ours are placed (device-independent
// pixels).
class Screens {
public:
    virtual ~Screens() = default;

    [[nodiscard]] virtual std::vector<Screen> screens() const = 0;
    // Nothing where the desktop does not tell.
    [[nodiscard]] virtual std::optional<QPoint> pointer() const = 0;
    // The frame of the active window of another program.
    [[nodiscard]] virtual std::optional<QRect> activeWindowFrame() const = 0;
};

// The screen that a panel belongs on: the active window's, else the pointer's, else the primary
// one. Windows count by their middle. An empty screen where there is none at all.
[[nodiscard]] Screen screenForPanel(const Screens& screens);

} // namespace skipnest::platform
