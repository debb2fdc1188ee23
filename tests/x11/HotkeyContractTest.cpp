// SPDX-License-Identifier: Apache-2.0
#include "tests/contract/HotkeyContract.h"
#include "platform/linux/X11Hotkeys.h"
#include "tests/x11/XKeyboard.h"
#include "tests/x11/XSession.h"

#include <QCoreApplication>

namespace skipnest::tests {
namespace {

using platform::CarbonModifiers;

class X11Desk {
public:
    X11Desk() {
        EXPECT_TRUE(runTool("setxkbmap -rules evdev -model pc105 -layout us -option"));
        owner_.openFocusedWindow();
        keymap_ = std::make_unique<linuxdesktop::X11Keymap>(*display_, scheduler_);
        hotkeys_ = std::make_unique<linuxdesktop::X11Hotkeys>(*display_, *keymap_, scheduler_);
    }
    platform::HotkeyBackend& hotkeys() { return *hotkeys_; }
    void press(std::uint16_t keyCode, std::uint32_t modifiers) {
        std::vector<xcb_keycode_t> held;
        for (const auto& [carbon, keycode] : {std::pair{CarbonModifiers::control, key::control},
                                              std::pair{CarbonModifiers::option, key::alt},
                                              std::pair{CarbonModifiers::shift, key::shift}}) {
            if ((modifiers & carbon) != 0)
                held.push_back(keycode);
        }
        fingers_.chord(held, keycode(keyCode));
        // What the server had to tell is on our side after a round trip.
        xcb_connection_t* connection = display_->connection();
        const linuxdesktop::XcbPtr<xcb_get_input_focus_reply_t> answered(
            xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
        QCoreApplication::processEvents();
    }
    void takeAway(std::uint16_t keyCode, std::uint32_t) {
        EXPECT_TRUE(
            owner_.grabUnderAllLocks(keycode(keyCode), XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1));
    }

private:
    static xcb_keycode_t keycode(std::uint16_t keyCode) {
        constexpr std::uint16_t kVKJ = 38;
        return keyCode == kVKJ ? key::j : key::k;
    }

    platform::QtScheduler scheduler_;
    std::unique_ptr<linuxdesktop::X11Display> display_ = linuxdesktop::X11Display::open(scheduler_);
    XKeyboard fingers_{qgetenv("DISPLAY")};
    XKeyboard owner_{qgetenv("DISPLAY")};
    std::unique_ptr<linuxdesktop::X11Keymap> keymap_;
    std::unique_ptr<linuxdesktop::X11Hotkeys> hotkeys_;
};

} // namespace
} // namespace skipnest::tests

namespace skipnest::test {
INSTANTIATE_TYPED_TEST_SUITE_P(X11, HotkeyContract, tests::X11Desk);
}
