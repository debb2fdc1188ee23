// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/LinuxScreens.h"
#include "tests/x11/XSession.h"

#include <QProcess>
#include <QRasterWindow>

#include <gmock/gmock.h>

namespace skipnest::tests {
namespace {

TEST(LinuxScreensTest, TellsPointerAndTheActiveWindowOfOthers) {
    platform::QtScheduler scheduler;
    const auto display = linuxdesktop::X11Display::open(scheduler);
    const linuxdesktop::LinuxScreens screens(display.get());
    ASSERT_EQ(screens.screens().size(), 1U);
    EXPECT_EQ(screens.screens()[0],
              (platform::Screen{QRect(0, 0, 1280, 800), QRect(0, 0, 1280, 800), true}));
    ASSERT_TRUE(runTool("xdotool mousemove 321 123"));
    EXPECT_TRUE(waitUntil(scheduler, [&] { return screens.pointer() == QPoint(321, 123); }));

    QProcess terminal;
    terminal.start(QStringLiteral("xterm"),
                   {QStringLiteral("-geometry"), QStringLiteral("40x10+200+150"),
                    QStringLiteral("-e"), QStringLiteral("cat")});
    // The window manager places the frame, title bar included, where the window asked to be.
    EXPECT_TRUE(waitUntil(scheduler, [&] {
        const auto frame = screens.activeWindowFrame();
        return frame && frame->topLeft() == QPoint(200, 150) && frame->height() > 100;
    }));

    QRasterWindow own;
    own.resize(100, 100);
    own.show();
    own.requestActivate();
    EXPECT_TRUE(waitUntil(scheduler, [&] { return own.isActive(); }));
    EXPECT_TRUE(waitUntil(scheduler, [&] { return !screens.activeWindowFrame(); }));
    terminal.kill();
    terminal.waitForFinished();
}

} // namespace
} // namespace skipnest::tests
