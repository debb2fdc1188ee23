// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/CodePlaces.h"

#include <algorithm>
#include <string_view>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::string_view_literals;

constexpr auto nameless = "unknown"sv;

// Takes a number and the character that ends it.
std::uintptr_t takeHexadecimal(std::string_view& text) {
    std::uintptr_t value = 0;
    while (!text.empty()) {
        const char digit = text.front();
        text.remove_prefix(1);
        if (digit >= '0' && digit <= '9')
            value = value * 16 + static_cast<std::uintptr_t>(digit - '0');
        else if (digit >= 'a' && digit <= 'f')
            value = value * 16 + static_cast<std::uintptr_t>(digit - 'a' + 10);
        else
            break;
    }
    return value;
}

std::string_view takeWord(std::string_view& text) {
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    const std::string_view word = text.substr(begin, end - begin);
    text.remove_prefix(end);
    return word;
}

std::uint64_t digest(std::string_view text, std::uint64_t hash = 0xcbf29ce484222325) {
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return hash;
}

bool isNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           "._+-"sv.find(c) != std::string_view::npos;
}

void setModule(CodePlace& place, std::string_view path) {
    // After an update the running file is a removed one.
    constexpr auto removed = " (deleted)"sv;
    if (path.ends_with(removed))
        path.remove_suffix(removed.size());
    path.remove_prefix(path.find_last_of('/') + 1); // npos + 1 is 0
    std::size_t length = 0;
    for (const char c : path.empty() ? nameless : path) {
        if (isNameCharacter(c) && length < CodePlace::longestName)
            place.module[length++] = c;
    }
    place.module[length] = '\0';
}

} // namespace

void CodePlaces::begin(std::span<const std::uintptr_t> addresses) {
    addresses_ = addresses.first(std::min(addresses.size(), places_.size()));
    length_ = 0;
    file_ = 0;
    base_ = 0;
    for (std::size_t frame = 0; frame < addresses_.size(); ++frame) {
        setModule(places_[frame], nameless);
        places_[frame].offset = addresses_[frame];
    }
}

void CodePlaces::read(const char* bytes, std::size_t count) {
    for (; count > 0; --count, ++bytes) {
        if (*bytes == '\n') {
            takeLine();
            length_ = 0;
        } else if (length_ < line_.size()) {
            line_[length_++] = *bytes;
        }
    }
}

// "START-END rwxp OFFSET MAJOR:MINOR INODE PATH"
void CodePlaces::takeLine() {
    std::string_view rest(line_.data(), length_);
    const std::uintptr_t start = takeHexadecimal(rest);
    const std::uintptr_t end = takeHexadecimal(rest);
    const std::string_view rights = takeWord(rest);
    (void)takeWord(rest);
    const std::uint64_t device = digest(takeWord(rest));
    const std::uint64_t file = digest(takeWord(rest), device);
    const std::string_view path = rest.substr(std::min(rest.find_first_not_of(' '), rest.size()));
    if (path.empty() || rights.size() < 3)
        return;
    if (const std::uint64_t named = digest(path, file); named != file_) {
        file_ = named;
        base_ = start;
    }
    // What is mapped for reading only may be a file of the person's.
    if (rights[2] != 'x')
        return;
    for (std::size_t frame = 0; frame < addresses_.size(); ++frame) {
        const std::uintptr_t address = addresses_[frame];
        if (address < start || address >= end)
            continue;
        setModule(places_[frame], path);
        places_[frame].offset = address - base_;
    }
}

} // namespace skipnest::linuxdesktop
