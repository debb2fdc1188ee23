// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/ContentNames.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <memory>

namespace skipnest::linuxdesktop {
namespace {

constexpr std::string_view unknownType = "application/octet-stream";

// Known types that programs write for themselves. Entries of applications too: those in the
// application folders are listed with their names, one elsewhere would run what it says.
constexpr std::array<std::string_view, 19> machineTypes{
    "application/vnd.microsoft.portable-executable",
    "application/vnd.sqlite3",
    "application/x-archive", // static libraries
    "application/x-core",
    "application/x-desktop",
    "application/x-executable",
    "application/x-gettext-translation",
    "application/x-java",
    "application/x-ms-dos-executable",
    "application/x-msdownload",
    "application/x-object",
    "application/x-partial-download",
    "application/x-pie-executable",
    "application/x-python-bytecode",
    "application/x-shared-library-la",
    "application/x-sharedlib",
    "application/x-sqlite3",
    "application/x-trash", // backups of editors
    "application/x-wine-extension-msp",
};

// "Angebot Nr. 12" has none.
constexpr std::size_t longestExtension = 12;
// People's disks have some thousand; generated ones must not fill the memory.
constexpr std::size_t mostExtensions = 20'000;

std::string typeOf(const std::string& name) {
    const std::unique_ptr<char, decltype(&g_free)> type(
        g_content_type_guess(name.c_str(), nullptr, 0, nullptr), &g_free);
    return type.get();
}

std::string_view extensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
        return {};
    const std::string_view extension = name.substr(dot + 1);
    const auto isPart = [](char c) {
        return g_ascii_isalnum(c) || c == '-' || c == '_' || c == '+';
    };
    return extension.size() <= longestExtension && std::ranges::all_of(extension, isPart)
               ? extension
               : std::string_view();
}

} // namespace

ContentNames::ContentNames() : knowsTypes_(typeOf("x.pdf") != unknownType) {}

ContentNames::Verdict ContentNames::verdict(std::string_view name) {
    if (name.ends_with('~'))
        return Verdict::notContent;
    const std::string_view extension = extensionOf(name);
    if (extension.empty())
        return Verdict::contentUnlessExecutable;
    const std::string key(extension);
    auto known = extensions_.find(key);
    if (known == extensions_.end()) {
        if (extensions_.size() >= mostExtensions)
            extensions_.clear();
        known = extensions_.emplace(key, isContentExtension(extension)).first;
    }
    return known->second ? Verdict::content : Verdict::notContent;
}

bool ContentNames::isContentExtension(std::string_view extension) const {
    const std::string type = typeOf("x." + std::string(extension));
    if (type == unknownType)
        return !knowsTypes_;
    return std::ranges::find(machineTypes, type) == machineTypes.end();
}

} // namespace skipnest::linuxdesktop
