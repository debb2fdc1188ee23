// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/CrashRecordText.h"

#include <algorithm>

namespace skipnest::linuxdesktop {

using namespace std::string_view_literals;

void CrashRecordText::append(std::string_view text) {
    size_ = static_cast<std::size_t>(std::copy_n(text.data(),
                                                 std::min(text.size(), bytes_.size() - size_),
                                                 bytes_.data() + size_) -
                                     bytes_.data());
}

void CrashRecordText::appendMember(std::string_view key, std::string_view value) {
    append("\""sv);
    append(key);
    append("\":\""sv);
    for (const char& c : value.substr(0, longestName)) {
        if (c == '"' || c == '\\')
            append("\\"sv);
        append(c >= ' ' && c <= '~' ? std::string_view(&c, 1) : "?"sv);
    }
    append("\""sv);
}

void CrashRecordText::appendHexadecimal(std::uintptr_t number) {
    std::array<char, 2 * sizeof number> digits{};
    std::size_t first = digits.size();
    do {
        digits[--first] = "0123456789abcdef"[number % 16];
        number /= 16;
    } while (number != 0);
    append({digits.data() + first, digits.size() - first});
}

void CrashRecordText::write(std::string_view type, std::string_view name, std::string_view reason,
                            std::span<const CodePlace> stack) {
    size_ = 0;
    append("{"sv);
    appendMember("type"sv, type);
    append(","sv);
    appendMember("name"sv, name);
    append(","sv);
    if (!reason.empty()) {
        appendMember("reason"sv, reason);
        append(","sv);
    }
    append("\"stack\":\""sv);
    bool isFirst = true;
    for (const CodePlace& place : stack) {
        append(isFirst ? ""sv : "\\n"sv);
        append(place.module.data());
        append("+0x"sv);
        appendHexadecimal(place.offset);
        isFirst = false;
    }
    append("\"}\n"sv);
}

} // namespace skipnest::linuxdesktop
