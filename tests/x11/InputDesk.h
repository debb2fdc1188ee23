// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/EventFlags.h"
#include "platform/linux/X11Hotkeys.h"
#include "platform/linux/X11KeyEvents.h"
#include "platform/linux/X11KeyboardLayout.h"
#include "tests/x11/XKeyboard.h"
#include "tests/x11/XSession.h"

#include <gmock/gmock.h>

namespace skipnest::tests {

// The keyboard side of the backend on the X server of this process, and the fingers on its keys.
// Each test begins with the US layout, no lock on and no key down.
class InputDesk : public testing::Test, public platform::HotkeyEvents {
protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] bool waitFor(const std::function<bool()>& condition) {
        return waitUntil(scheduler, condition);
    }
    // Lets the program take in what has just happened, where nothing that it does tells.
    void takeIn() {
        const platform::Instant until = scheduler.now() + std::chrono::milliseconds(20);
        (void)waitFor([this, until] { return scheduler.now() >= until; });
    }
    // One combo that has to be granted.
    [[nodiscard]] platform::HotkeyGrab grabbed(std::uint32_t id, std::uint16_t keyCode,
                                               std::uint32_t carbonModifiers);
    // True when the hotkeys pressed so far become exactly these.
    [[nodiscard]] bool pressesBecome(const std::vector<std::uint32_t>& expected);

    platform::HotkeyHandling hotkeyPressed(platform::HotkeyIdentifier id,
                                           platform::Instant time) override;
    void refusedHotkeysMayBeFree() override {
        ++mayBeFree;
        onMayBeFree();
    }

    platform::QtScheduler scheduler;
    std::unique_ptr<linuxdesktop::X11Display> display = linuxdesktop::X11Display::open(scheduler);
    XKeyboard fingers{qgetenv("DISPLAY")};
    std::unique_ptr<linuxdesktop::X11Keymap> keymap;
    std::unique_ptr<linuxdesktop::X11Hotkeys> hotkeys;
    std::unique_ptr<linuxdesktop::X11KeyboardLayout> layout;

    std::vector<std::uint32_t> presses;
    std::vector<platform::Instant> pressTimes;
    int mayBeFree = 0;
    std::function<void()> onMayBeFree = [] {};
};

constexpr std::uint16_t kVKJ = 38, kVKK = 40, kVKZ = 6, kVKY = 16, kVKW = 13, kVKLeft = 123;

} // namespace skipnest::tests
