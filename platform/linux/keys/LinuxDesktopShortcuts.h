// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DesktopShortcuts.h"
#include "platform/Executor.h"
#include "platform/linux/keys/DesktopSettings.h"

namespace skipnest::linuxdesktop {

// The combos of the desktop that runs now, from its own settings: GNOME, Cinnamon, MATE, Xfce, KDE,
// i3, sway and openbox. On X11 also what the keymap keeps for the virtual terminals.
class LinuxDesktopShortcuts final : public platform::DesktopShortcuts {
public:
    // Without an X server both are null: key names are then those of a US keyboard.
    LinuxDesktopShortcuts(platform::Executor& executor, const X11Display* display,
                          const X11Keymap* keymap);

    [[nodiscard]] platform::Availability availability() const override;
    void read(std::function<void(platform::DesktopShortcutReading)> done) override;

private:
    [[nodiscard]] DesktopSession session() const;

    platform::Executor& executor_;
    const X11Display* display_;
    const X11Keymap* keymap_;
};

} // namespace skipnest::linuxdesktop
