// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/crash/CodePlaces.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace skipnest::linuxdesktop {

// The record of a crash as JSON, put together in a buffer that was there before: for a signal
// handler. Whatever it is given, the text is one valid object.
class CrashRecordText {
public:
    static constexpr std::size_t longestName = 255;

    // `reason` may be empty: then there is no such member.
    void write(std::string_view type, std::string_view name, std::string_view reason,
               std::span<const CodePlace> stack);
    [[nodiscard]] std::string_view text() const { return {bytes_.data(), size_}; }

private:
    void append(std::string_view text);
    void appendMember(std::string_view key, std::string_view value);
    void appendHexadecimal(std::uintptr_t number);

    // Each name and reason may be all escapes; a frame is its module, "+0x", 16 digits, and "\n".
    static constexpr std::size_t longestFrame = CodePlace::longestName + 3 + 16 + 2;
    std::array<char, 256 + 4 * longestName + CallStack::most * longestFrame> bytes_{};
    std::size_t size_ = 0;
};

} // namespace skipnest::linuxdesktop
