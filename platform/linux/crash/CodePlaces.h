// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/crash/CallStack.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace skipnest::linuxdesktop {

// Where an address lies: in which file of code, without its folder, and how far from the place that
// the file was loaded to. That is what a symbol table of the file knows, and tells nothing of the
// machine. Code that belongs to no file is "unknown", with the address as it stands.
struct CodePlace {
    static constexpr std::size_t longestName = 63;

    std::array<char, longestName + 1> module{}; // letters, digits and "._+-"
    std::uintptr_t offset = 0;
};

// The places of addresses, from the kernel's list of this process's mappings: unlike the
// loader's own list it is read without a lock, and knows the plugins of this moment. May run in a
// signal handler, and is as large as the longest path, so it does not belong on its stack.
class CodePlaces {
public:
    // The addresses stay where they are meanwhile; those beyond the longest stack are left out.
    void begin(std::span<const std::uintptr_t> addresses);
    // The next piece of the list, of any length.
    void read(const char* bytes, std::size_t count);

    // One for each address, in the same order.
    [[nodiscard]] std::span<const CodePlace> places() const {
        return {places_.data(), addresses_.size()};
    }

private:
    void takeLine();

    static constexpr std::size_t longestLine = 4096 + 128;

    std::span<const std::uintptr_t> addresses_;
    std::array<CodePlace, CallStack::most> places_{};
    std::array<char, longestLine> line_{};
    std::size_t length_ = 0;
    // The file that the last line was about. Its mappings follow each other, the first one with the
    // place that its own addresses count from.
    std::uint64_t file_ = 0;
    std::uintptr_t base_ = 0;
};

} // namespace skipnest::linuxdesktop
