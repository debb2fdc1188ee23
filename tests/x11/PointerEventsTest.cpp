// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11PointerEvents.h"

#include "tests/x11/InputDesk.h"

#include <QWindow>

namespace skipnest::tests {
namespace {

TEST_F(InputDesk, ClicksOutsideOurWindowsAreToldWhileSomebodyObserves) {
    linuxdesktop::X11PointerEvents pointer(*display, scheduler);
    XKeyboard other(qgetenv("DISPLAY"));
    other.openFocusedWindow(); // at the corner
    QWindow ours;
    ours.setGeometry(400, 300, 200, 100);
    ours.show();
    ASSERT_TRUE(waitFor([&ours] { return ours.isExposed(); }));
    int clicks = 0;
    auto observing = pointer.observeClicksOutside([&clicks] { ++clicks; });

    fingers.click(450, 350, 1);
    takeIn();
    constexpr std::uint8_t wheelDown = 5;
    fingers.click(50, 50, wheelDown);
    takeIn();
    EXPECT_EQ(clicks, 0);
    fingers.click(50, 50, 1);
    EXPECT_TRUE(waitFor([&clicks] { return clicks == 1; }));
    // Nobody's window, and a menu that has the pointer.
    ASSERT_TRUE(other.grabPointer());
    fingers.click(900, 600, 3);
    EXPECT_TRUE(waitFor([&clicks] { return clicks == 2; }));

    observing.reset();
    fingers.click(50, 50, 1);
    takeIn();
    EXPECT_EQ(clicks, 2);
}

} // namespace
} // namespace skipnest::tests
