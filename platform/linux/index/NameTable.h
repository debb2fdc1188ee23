// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/index/NameTableLayout.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace skipnest::linuxdesktop {

// An unchanging list of files and folders in the order of their folded names: the first hits of a
// search are the best ones, and it may stop there. It lies in one piece of memory, heap or a mapped
// file, about fifty bytes a name; copies share it. Any thread may read it.
class NameTable {
public:
    using Id = std::uint32_t; // place in the order
    // Parents from here on are roots, the folders that were read with everything below.
    static constexpr Id firstRoot = 0xFFFFFF00;
    static constexpr Id mostRoots = 0xFF;

    struct Bytes {
        std::shared_ptr<const void> owner;
        std::span<const char> span; // begins on a multiple of eight
    };

    NameTable() = default;
    // Takes any bytes: those that are no whole table of this version are refused, and no others are
    // read wrongly.
    [[nodiscard]] static std::optional<NameTable> open(Bytes bytes);
    // For bytes that were just made here.
    [[nodiscard]] static NameTable adopt(Bytes bytes);

    [[nodiscard]] Id size() const { return header_.items; }
    [[nodiscard]] std::span<const char> bytes() const { return bytes_.span; }

    [[nodiscard]] std::string_view folded(Id id) const;
    [[nodiscard]] std::string_view name(Id id) const; // as it stands on the disk
    [[nodiscard]] bool isFolder(Id id) const;
    [[nodiscard]] Id parent(Id id) const { return parents_[id]; }
    [[nodiscard]] std::span<const Id> parents() const { return {parents_, size()}; }

    // Stamp of a folder's last change when it was read, 0 where it could not be.
    [[nodiscard]] std::uint32_t folderTime(Id id) const;
    [[nodiscard]] std::uint32_t rootTime(Id root) const { return times_[header_.folders + root]; }
    [[nodiscard]] Id rootCount() const { return header_.roots; }
    [[nodiscard]] std::string_view root(Id index) const; // absolute path

    // Told in order, until it answers false.
    using Visit = std::function<bool(Id)>;
    void visitBeginning(std::string_view foldedText, const Visit& visit) const;
    // Names that contain the text and do not begin with it.
    void visitContaining(std::string_view foldedText, const Visit& visit) const;
    void visitEqual(std::string_view foldedText, const Visit& visit) const;

private:
    class Cursor;
    [[nodiscard]] bool isConsistent() const;
    [[nodiscard]] std::string_view firstOf(std::size_t block) const;
    [[nodiscard]] Cursor firstFrom(std::string_view foldedText) const;
    [[nodiscard]] std::vector<std::uint64_t> candidates(std::string_view foldedText) const;

    Bytes bytes_;
    NameTableHeader header_;
    NameTableLayout layout_;
    const NameBlock* blocks_ = nullptr;
    const std::uint64_t* grams_ = nullptr;
    const Id* parents_ = nullptr;
    const std::uint32_t* times_ = nullptr;
    const char* folded_ = nullptr;
    const char* spelled_ = nullptr;
    const char* roots_ = nullptr;
};

} // namespace skipnest::linuxdesktop
