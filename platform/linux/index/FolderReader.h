// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/index/ContentNames.h"
#include "platform/linux/index/NameTableBuilder.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace skipnest::linuxdesktop {

[[nodiscard]] std::string inside(const std::string& folder, std::string_view name);

struct FolderEntry {
    std::string name;
    NameTableBuilder::Kind kind = NameTableBuilder::Kind::file;
    bool isEntered = false; // a folder whose content is read: not a link to one, not left out

    auto operator<=>(const FolderEntry&) const = default;
};

struct FolderContents {
    std::vector<FolderEntry> entries;
    std::uint32_t time = 0;
};

// Reads what a folder shows a person. Left out are hidden names, caches, what package managers
// unpack, files that are no content, and names that are no UTF-8: their paths could not be kept as
// text, and so never be opened. Links are listed as what they lead to and never followed into, so
// that no loop can arise.
class FolderReader {
public:
    // Absolute paths of folders that are listed and not entered.
    explicit FolderReader(std::set<std::string> leftOut) : leftOut_(std::move(leftOut)) {}

    // Nothing where the folder cannot be read; what was read where it vanishes meanwhile.
    [[nodiscard]] std::optional<FolderContents> read(const std::string& path);

    // Names that are never listed, whatever they are.
    [[nodiscard]] static bool isLeftOut(std::string_view name);
    // Another number means that the folder's entries have changed; 0 where there is no such folder.
    [[nodiscard]] static std::uint32_t timeOf(const std::string& path);

private:
    [[nodiscard]] std::optional<FolderEntry> entry(int folder, const std::string& path,
                                                   const char* name, unsigned char type);

    std::set<std::string> leftOut_;
    ContentNames contentNames_;
};

} // namespace skipnest::linuxdesktop
