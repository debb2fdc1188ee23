// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/index/PairScan.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace skipnest::linuxdesktop {

// How the bytes of a NameTable lie, in memory and in the cache alike: this header, then the
// sections below, each on a multiple of eight.
struct NameTableHeader {
    // The last character counts up when the layout changes, or what is listed.
    static constexpr std::array<char, 8> currentMagic{'S', 'k', 'N', 'a', 'm', 'e', 's', '1'};

    std::array<char, 8> magic = currentMagic;
    std::uint64_t checksum = 0; // of everything behind this field
    std::uint32_t items = 0;
    std::uint32_t folders = 0;
    std::uint32_t roots = 0;
    std::uint32_t reserved = 0;
    std::uint64_t foldedBytes = 0;
    std::uint64_t spelledBytes = 0;
    std::uint64_t rootBytes = 0;
};
static_assert(sizeof(NameTableHeader) == 56);

// Names are found by walking from the start of their block: an offset for each would be a tenth of
// the table.
struct NameBlock {
    static constexpr std::uint32_t names = 64;

    std::uint64_t spelledMask = 0; // names that are spelled otherwise than they are folded
    std::uint64_t folderMask = 0;
    std::uint32_t folded = 0;  // offset of its first folded name
    std::uint32_t spelled = 0; // offset of its first spelled name
    std::uint32_t folders = 0; // number of folders in the blocks before
    std::uint32_t reserved = 0;
};
static_assert(sizeof(NameBlock) == 32);

// Which one to three bytes occur in which block: for each of `slots` hash values a bit a block.
// 4096 cost eight bytes a name, and a text of three letters then skips most blocks without it, one
// of twelve nearly all. The bits of one slot lie together, so that a question reads a few
// kilobytes.
struct GramSlots {
    static constexpr std::uint32_t slots = 4096;
    static constexpr std::size_t longest = 3;

    static std::uint32_t slotOf(std::string_view gram) {
        auto value = static_cast<std::uint32_t>(gram.size()) << 24U;
        for (std::size_t at = 0; at < gram.size(); ++at)
            value |= std::uint32_t{static_cast<unsigned char>(gram[at])} << (8U * at);
        return (value * 0x9E3779B1U) >> 20U;
    }
};

// Where the sections begin, in bytes from the start.
struct NameTableLayout {
    std::size_t blockCount = 0; // one more lies in the table, to tell where the last one ends
    std::size_t gramWords = 0;  // of 64 blocks, for each slot
    std::size_t blocks = 0;
    std::size_t grams = 0;
    std::size_t parents = 0;
    std::size_t times = 0; // of the folders, then of the roots
    std::size_t folded = 0;
    std::size_t spelled = 0;
    std::size_t roots = 0;
    std::size_t total = 0;

    static NameTableLayout of(const NameTableHeader& header);
};

// Eight bytes at a time in four lanes: 50 MB take a few milliseconds. `bytes` is a whole table.
[[nodiscard]] std::uint64_t nameTableChecksum(std::span<const char> bytes);

} // namespace skipnest::linuxdesktop
