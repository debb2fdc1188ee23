// SPDX-License-Identifier: Apache-2.0
#include "app/PopoverPlacement.h"

#include "platform/sim/SimShell.h"

#include <gmock/gmock.h>

namespace skipnest::app {
namespace {

const platform::Screen laptop{QRect(0, 0, 1440, 900), QRect(0, 24, 1440, 876), true};
const platform::Screen bottomBar{QRect(1440, 0, 1920, 1080), QRect(1440, 0, 1920, 1040), false};
const platform::Screen small{QRect(0, 0, 400, 300), QRect(0, 20, 400, 280), true};

struct PlacementRow {
    const char* what;
    std::vector<platform::Screen> screens;
    std::optional<QRect> item;
    std::optional<QPoint> pointer;
    std::optional<QRect> window;
    QRect frame;
};

TEST(PopoverPlacement, belongsWhereThePersonLooks) {
    const QSize size(440, 600);
    const PlacementRow rows[] = {
        {"centred under the icon",
         {laptop},
         QRect(700, 0, 24, 24),
         QPoint(10, 800),
         {},
         QRect(QPoint(711 - 220, 28), size)},
        {"clamped at the right edge",
         {laptop},
         QRect(1410, 0, 24, 24),
         {},
         {},
         QRect(QPoint(1000, 28), size)},
        {"above a bar at the bottom, on the icon's screen",
         {laptop, bottomBar},
         QRect(3000, 1045, 24, 24),
         {},
         QRect(10, 10, 100, 100),
         QRect(QPoint(3011 - 220, 1040 - 600), size)},
        {"an icon on no screen is none: the pointer counts",
         {laptop},
         QRect(5000, 0, 24, 24),
         QPoint(720, 100),
         {},
         QRect(QPoint(500, 104), size)},
        {"an empty icon place is none",
         {laptop},
         QRect(),
         QPoint(720, 100),
         {},
         QRect(QPoint(500, 104), size)},
        {"above the pointer where below is no room",
         {laptop},
         {},
         QPoint(720, 800),
         {},
         QRect(QPoint(500, 800 - 4 - 599), size)},
        {"a pointer on another screen than the active window does not count",
         {laptop, bottomBar},
         {},
         QPoint(10, 10),
         QRect(2000, 200, 300, 300),
         QRect(QPoint(1440 + 740, (1040 - 600) / 3), size)},
        {"no pointer known", {laptop}, {}, {}, {}, QRect(QPoint(500, 24 + (876 - 600) / 3), size)},
        {"cut to a small screen", {small}, QRect(380, 0, 20, 20), {}, {}, QRect(0, 20, 400, 280)},
        {"no screen at all", {}, QRect(0, 0, 24, 24), {}, {}, QRect(QPoint(), size)},
    };
    for (const PlacementRow& row : rows) {
        sim::SimScreens screens;
        screens.setScreens(row.screens);
        screens.setPointer(row.pointer);
        screens.setActiveWindowFrame(row.window);
        EXPECT_EQ(popoverFrame(screens, row.item, size), row.frame) << row.what;
    }
}

} // namespace
} // namespace skipnest::app
