// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/index/NameTable.h"

#include <string>
#include <string_view>
#include <vector>

namespace skipnest::linuxdesktop {

// Gathers names in any order and makes a table of them. Until then a name is known by a provisional
// id, counted up from `firstId`; ids below that belong to another table, which parents may point
// into.
class NameTableBuilder {
public:
    using Id = NameTable::Id;
    enum class Kind { file, folder };

    explicit NameTableBuilder(Id firstId = 0) : firstId_(firstId) {}

    // What the children of the root have as parent.
    Id addRoot(std::string_view path);
    // The parent may be added later.
    Id add(Id parent, std::string_view name, Kind kind);
    // Of a folder or root; 0 unless it is set.
    void setTime(Id folder, std::uint32_t time);

    [[nodiscard]] std::size_t size() const { return items_.size(); }
    // No more names may be added: ten million, or more bytes than offsets can tell.
    [[nodiscard]] bool isFull() const;

    [[nodiscard]] NameTable build() const;

private:
    struct Item {
        std::uint32_t name = 0; // in names_
        Id parent = 0;
        std::uint32_t time = 0;
        Kind kind = Kind::file;
    };
    struct Folding;
    class Writer;
    [[nodiscard]] std::string_view nameOf(const Item& item) const { return &names_[item.name]; }
    [[nodiscard]] Folding fold() const;

    Id firstId_;
    std::string names_;
    std::vector<Item> items_;
    std::vector<std::string> roots_;
    std::vector<std::uint32_t> rootTimes_;
};

} // namespace skipnest::linuxdesktop
