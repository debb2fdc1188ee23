// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace skipnest::macos {

// What the keyboard layout needs of the text input sources. Main thread only.
class KeyboardLayoutBridge {
public:
    virtual ~KeyboardLayoutBridge() = default;

    // What the key types without modifiers, as the layout has it; empty where it has nothing. Keys
    // without a character give a control character.
    [[nodiscard]] virtual std::u16string translate(std::uint16_t keyCode) const = 0;
    // At most one; told on the main thread whenever another input source was selected.
    virtual void observe(std::function<void()> changed) = 0;
};

[[nodiscard]] std::unique_ptr<KeyboardLayoutBridge> keyboardLayoutSource();

} // namespace skipnest::macos
