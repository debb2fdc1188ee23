// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace skipnest::macos {

// One keyboard event as the tap saw it. Text never crosses, and the key code of an ordinary key
// does not either.
struct TappedKey {
    enum class Kind { modifierChanged, otherKeyDown };
    Kind kind = Kind::otherKeyDown;
    std::uint16_t keyCode = 0; // of a modifier key; 0 for every other key
    std::uint64_t flags = 0;   // CGEventFlags, device-dependent bits included
    double ageSeconds = 0.0;
};

enum class TapHealth { running, disabled, invalid };

// A listening keyboard tap; destroying it removes it from the event stream.
class KeyboardTap {
public:
    virtual ~KeyboardTap() = default;
    [[nodiscard]] virtual TapHealth health() const = 0;
    virtual void enable() = 0;
};

// What the key events backend needs of Quartz. Main thread only; events arrive there too.
class KeyboardEventBridge {
public:
    // May destroy the tap that is calling it.
    using Tapped = std::function<void(const TappedKey&)>;

    virtual ~KeyboardEventBridge() = default;

    // Asks the system without prompting the person.
    [[nodiscard]] virtual bool mayListen() const = 0;
    [[nodiscard]] virtual bool mayPost() const = 0;
    // Null where the system refuses. Never calls `tapped` before it has returned.
    [[nodiscard]] virtual std::unique_ptr<KeyboardTap> tap(Tapped tapped) = 0;
    [[nodiscard]] virtual std::uint64_t flagsDown() const = 0;
    // Key down, then key up. False where the system could not make the events.
    [[nodiscard]] virtual bool post(std::uint16_t keyCode, std::uint64_t flags) = 0;
};

[[nodiscard]] std::unique_ptr<KeyboardEventBridge> quartzKeyboardEvents();

} // namespace skipnest::macos
