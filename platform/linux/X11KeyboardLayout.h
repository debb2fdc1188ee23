// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyboardLayout.h"
#include "platform/linux/X11Keymap.h"

namespace skipnest::linuxdesktop {

// Key names in the active group of the X keyboard.
class X11KeyboardLayout final : public platform::KeyboardLayout {
public:
    explicit X11KeyboardLayout(X11Keymap& keymap);

    // A dead key is named by its accent.
    [[nodiscard]] std::optional<QString> character(std::uint16_t keyCode) const override;
    [[nodiscard]] platform::Observation observeChanges(std::function<void()> changed) override;

private:
    X11Keymap& keymap_;
    std::array<xkb_keysym_t, keyCodeLimit> symbols_;
    platform::Observers<> observers_;
    platform::Observation keymapChanges_;
};

} // namespace skipnest::linuxdesktop
