// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace skipnest::platform {

// Modifier keys as keyboard events carry them. The bits are those of CGEventFlags, because log
// lines print the value.
struct EventFlags {
    static constexpr std::uint64_t capsLock = 1ULL << 16;
    static constexpr std::uint64_t shift = 1ULL << 17;
    static constexpr std::uint64_t control = 1ULL << 18;
    static constexpr std::uint64_t alternate = 1ULL << 19;
    static constexpr std::uint64_t command = 1ULL << 20;
    static constexpr std::uint64_t function = 1ULL << 23;

    std::uint64_t bits = 0;

    [[nodiscard]] constexpr bool contains(std::uint64_t flags) const {
        return (bits & flags) == flags;
    }
    bool operator==(const EventFlags&) const = default;
};

// Modifier bits of the hotkey interface (Carbon's cmdKey, shiftKey, optionKey, controlKey), which
// the registration log lines print.
struct CarbonModifiers {
    static constexpr std::uint32_t command = 0x100;
    static constexpr std::uint32_t shift = 0x200;
    static constexpr std::uint32_t option = 0x800;
    static constexpr std::uint32_t control = 0x1000;
};

} // namespace skipnest::platform
