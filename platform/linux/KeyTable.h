// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <span>

namespace skipnest::linuxdesktop {

// One key of a PC keyboard under its three names: the kVK_* code that the program speaks, the name
// that XKB gives to the position, and the kernel's code. They name positions, never characters.
struct PhysicalKey {
    std::uint16_t keyCode;
    char name[5];
    std::uint16_t evdevCode;
};

// Every key that has a kVK_* code, each code and each name once.
[[nodiscard]] std::span<const PhysicalKey> physicalKeys();

// kVK_* codes are below this.
constexpr std::uint16_t keyCodeLimit = 128;

} // namespace skipnest::linuxdesktop
