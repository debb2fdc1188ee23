// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/InputDesk.h"
#include "tests/x11/XServer.h"

#include <QGuiApplication>

#include <iostream>

namespace skipnest::tests {

void InputDesk::SetUp() {
    ASSERT_TRUE(runTool("setxkbmap -rules evdev -model pc105 -layout us -option"));
    fingers.lockGroup(0);
    ASSERT_TRUE(runTool("xset r rate 660 25"));
    keymap = std::make_unique<linuxdesktop::X11Keymap>(*display, scheduler);
    hotkeys = std::make_unique<linuxdesktop::X11Hotkeys>(*display, *keymap, scheduler);
    layout = std::make_unique<linuxdesktop::X11KeyboardLayout>(*keymap);
    ASSERT_EQ(hotkeys->installHandler(this), 0);
}

void InputDesk::TearDown() {
    for (unsigned code = 8; code <= 0xff; ++code) {
        if (fingers.isDown(static_cast<xcb_keycode_t>(code)))
            fingers.release(static_cast<xcb_keycode_t>(code));
    }
}

platform::HotkeyGrab InputDesk::grabbed(std::uint32_t id, std::uint16_t keyCode,
                                        std::uint32_t carbonModifiers) {
    auto registrations = hotkeys->registerHotkeys({{{id}, keyCode, carbonModifiers}});
    EXPECT_EQ(registrations.at(0).status, 0);
    return std::move(registrations.at(0).grab);
}

bool InputDesk::pressesBecome(const std::vector<std::uint32_t>& expected) {
    const bool came = waitFor([&] { return presses.size() >= expected.size(); });
    EXPECT_EQ(presses, expected);
    return came && presses == expected;
}

platform::HotkeyHandling InputDesk::hotkeyPressed(platform::HotkeyIdentifier id,
                                                  platform::Instant time) {
    presses.push_back(id.value);
    pressTimes.push_back(time);
    return platform::HotkeyHandling::handled;
}

} // namespace skipnest::tests

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const auto server = skipnest::tests::XServer::start();
    if (!server) {
        std::cout << "SKIPPED SUITE: Xvfb is not installed or does not start\n";
        return 0;
    }
    qputenv("DISPLAY", server->display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qunsetenv("XDG_SESSION_TYPE");
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
