// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace skipnest::macos {

// A combo the system delivers to us; destroying it gives the combo back.
class RegisteredHotkey {
public:
    virtual ~RegisteredHotkey() = default;
};

struct HotkeyAnswer {
    std::int32_t status = 0; // OSStatus
    std::unique_ptr<RegisteredHotkey> hotkey;
};

// What the hotkey backend needs of the Carbon event manager. Main thread only.
class HotkeyBridge {
public:
    // A registered combo went down, `ageSeconds` ago. Says whether the press was wanted: one that
    // was not goes on to the next handler. May remove the handler that is calling it.
    using Pressed = std::function<bool(std::uint32_t id, double ageSeconds)>;

    virtual ~HotkeyBridge() = default;

    // The status of the system, 0 when presses arrive from now on. At most one handler at a time.
    [[nodiscard]] virtual std::int32_t installHandler(Pressed pressed) = 0;
    virtual void removeHandler() = 0;
    [[nodiscard]] virtual HotkeyAnswer registerHotkey(std::uint32_t id, std::uint32_t keyCode,
                                                      std::uint32_t carbonModifiers) = 0;
};

[[nodiscard]] std::unique_ptr<HotkeyBridge> carbonHotkeys();

} // namespace skipnest::macos
