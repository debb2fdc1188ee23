// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/NameTable.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>
#include <vector>

namespace skipnest::linuxdesktop {
namespace {

constexpr std::size_t checkedFrom = offsetof(NameTableHeader, items);

std::size_t roundedUp(std::size_t bytes) {
    return (bytes + 7) & ~std::size_t{7};
}

std::string_view nthString(const char* first, std::uint32_t count) {
    for (; count > 0; --count)
        first += std::strlen(first) + 1;
    return first;
}

std::uint64_t bitsBelow(std::uint32_t count) {
    return count >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << count) - 1;
}

std::uint32_t ones(std::uint64_t bits) {
    return static_cast<std::uint32_t>(std::popcount(bits));
}

// Whether exactly `count` strings, each with its zero, lie between the offsets.
bool holdsStrings(const char* pool, std::uint64_t from, std::uint64_t to, std::uint64_t count) {
    for (; count > 0 && from < to; --count) {
        const void* end = std::memchr(pool + from, 0, to - from);
        if (end == nullptr)
            return false;
        from = static_cast<std::uint64_t>(static_cast<const char*>(end) - pool) + 1;
    }
    return count == 0 && from == to;
}

} // namespace

NameTableLayout NameTableLayout::of(const NameTableHeader& header) {
    NameTableLayout layout;
    layout.blockCount = (std::size_t{header.items} + NameBlock::names - 1) / NameBlock::names;
    layout.gramWords = (layout.blockCount + 63) / 64;
    layout.blocks = roundedUp(sizeof(NameTableHeader));
    layout.grams = layout.blocks + (layout.blockCount + 1) * sizeof(NameBlock);
    layout.parents = layout.grams + GramSlots::slots * layout.gramWords * sizeof(std::uint64_t);
    layout.times = layout.parents + roundedUp(std::size_t{header.items} * sizeof(std::uint32_t));
    const std::size_t times = std::size_t{header.folders} + header.roots;
    layout.folded = layout.times + roundedUp(times * sizeof(std::uint32_t));
    layout.spelled = layout.folded + roundedUp(header.foldedBytes + scanMargin);
    layout.roots = layout.spelled + roundedUp(header.spelledBytes);
    layout.total = layout.roots + roundedUp(header.rootBytes);
    return layout;
}

std::uint64_t nameTableChecksum(std::span<const char> bytes) {
    constexpr std::uint64_t prime = 0x9E3779B97F4A7C15U;
    std::array<std::uint64_t, 4> lanes{1, 2, 3, 4};
    std::size_t lane = 0;
    std::size_t at = checkedFrom;
    const auto mix = [&](std::uint64_t& sum) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, sizeof word);
        sum = std::rotl((sum ^ word) * prime, 31);
        at += sizeof word;
    };
    while (at + lanes.size() * sizeof(std::uint64_t) <= bytes.size()) {
        for (std::uint64_t& sum : lanes)
            mix(sum);
    }
    for (; at + sizeof(std::uint64_t) <= bytes.size(); lane = (lane + 1) % lanes.size())
        mix(lanes[lane]);
    std::uint64_t sum = bytes.size();
    for (const std::uint64_t one : lanes)
        sum = std::rotl((sum ^ one) * prime, 29);
    return sum;
}

NameTable NameTable::adopt(Bytes bytes) {
    NameTable table;
    table.bytes_ = std::move(bytes);
    const char* const start = table.bytes_.span.data();
    std::memcpy(&table.header_, start, sizeof table.header_);
    table.layout_ = NameTableLayout::of(table.header_);
    const NameTableLayout& at = table.layout_;
    table.blocks_ = reinterpret_cast<const NameBlock*>(start + at.blocks);
    table.grams_ = reinterpret_cast<const std::uint64_t*>(start + at.grams);
    table.parents_ = reinterpret_cast<const Id*>(start + at.parents);
    table.times_ = reinterpret_cast<const std::uint32_t*>(start + at.times);
    table.folded_ = start + at.folded;
    table.spelled_ = start + at.spelled;
    table.roots_ = start + at.roots;
    return table;
}

std::optional<NameTable> NameTable::open(Bytes bytes) {
    NameTableHeader header;
    if (bytes.span.size() < sizeof header)
        return std::nullopt;
    std::memcpy(&header, bytes.span.data(), sizeof header);
    // Offsets have 32 bits; above them the sums below could also wrap round.
    const auto fits = [](std::uint64_t pool) { return pool <= 0xFFFFFFFFU; };
    if (header.magic != NameTableHeader::currentMagic || header.roots > mostRoots ||
        header.items > firstRoot || header.folders > header.items || !fits(header.foldedBytes) ||
        !fits(header.spelledBytes) || !fits(header.rootBytes) ||
        NameTableLayout::of(header).total != bytes.span.size() ||
        nameTableChecksum(bytes.span) != header.checksum)
        return std::nullopt;
    NameTable table = adopt(std::move(bytes));
    if (!table.isConsistent())
        return std::nullopt;
    return table;
}

bool NameTable::isConsistent() const {
    std::uint32_t folders = 0;
    for (std::size_t index = 0; index < layout_.blockCount; ++index) {
        const NameBlock& block = blocks_[index];
        const NameBlock& next = blocks_[index + 1];
        const auto left = static_cast<std::uint32_t>(size() - index * NameBlock::names);
        const std::uint32_t names = std::min(left, NameBlock::names);
        if (next.folded > header_.foldedBytes || next.spelled > header_.spelledBytes ||
            (index == 0 && (block.folded != 0 || block.spelled != 0)) || block.folders != folders ||
            ((block.spelledMask | block.folderMask) & ~bitsBelow(names)) != 0 ||
            !holdsStrings(folded_, block.folded, next.folded, names) ||
            !holdsStrings(spelled_, block.spelled, next.spelled, ones(block.spelledMask)))
            return false;
        folders += ones(block.folderMask);
    }
    const auto isParent = [this](Id id) {
        return id < size() ? isFolder(id) : id >= firstRoot && id - firstRoot < header_.roots;
    };
    return folders == header_.folders &&
           blocks_[layout_.blockCount].folded == header_.foldedBytes &&
           blocks_[layout_.blockCount].spelled == header_.spelledBytes &&
           std::ranges::all_of(parents(), isParent) &&
           holdsStrings(roots_, 0, header_.rootBytes, header_.roots);
}

std::string_view NameTable::folded(Id id) const {
    return nthString(folded_ + blocks_[id / NameBlock::names].folded, id % NameBlock::names);
}

std::string_view NameTable::name(Id id) const {
    const NameBlock& block = blocks_[id / NameBlock::names];
    const std::uint32_t place = id % NameBlock::names;
    if ((block.spelledMask >> place & 1U) == 0)
        return folded(id);
    return nthString(spelled_ + block.spelled, ones(block.spelledMask & bitsBelow(place)));
}

bool NameTable::isFolder(Id id) const {
    return (blocks_[id / NameBlock::names].folderMask >> (id % NameBlock::names) & 1U) != 0;
}

std::uint32_t NameTable::folderTime(Id id) const {
    const NameBlock& block = blocks_[id / NameBlock::names];
    return times_[block.folders + ones(block.folderMask & bitsBelow(id % NameBlock::names))];
}

std::string_view NameTable::root(Id index) const {
    return nthString(roots_, index);
}

// Walks the folded names from one on.
class NameTable::Cursor {
public:
    Cursor(const NameTable& table, std::size_t block)
        : id(static_cast<Id>(block * NameBlock::names)), end_(table.size()),
          at_(end_ == 0 ? nullptr : table.folded_ + table.blocks_[block].folded) {}

    [[nodiscard]] bool isAtEnd() const { return id >= end_; }
    [[nodiscard]] std::string_view text() const { return at_; }
    void next() {
        at_ += std::strlen(at_) + 1;
        ++id;
    }

    Id id;

private:
    Id end_;
    const char* at_;
};

std::string_view NameTable::firstOf(std::size_t block) const {
    return folded_ + blocks_[block].folded;
}

NameTable::Cursor NameTable::firstFrom(std::string_view foldedText) const {
    std::size_t low = 0; // the last block that begins before the text, or the first
    for (std::size_t high = layout_.blockCount; high - low > 1;) {
        const std::size_t middle = low + (high - low) / 2;
        (firstOf(middle) < foldedText ? low : high) = middle;
    }
    Cursor cursor(*this, low);
    while (!cursor.isAtEnd() && cursor.text() < foldedText)
        cursor.next();
    return cursor;
}

void NameTable::visitBeginning(std::string_view foldedText, const Visit& visit) const {
    if (size() == 0)
        return;
    for (Cursor cursor = firstFrom(foldedText);
         !cursor.isAtEnd() && cursor.text().starts_with(foldedText); cursor.next()) {
        if (!visit(cursor.id))
            return;
    }
}

void NameTable::visitEqual(std::string_view foldedText, const Visit& visit) const {
    if (size() == 0)
        return;
    for (Cursor cursor = firstFrom(foldedText); !cursor.isAtEnd() && cursor.text() == foldedText;
         cursor.next()) {
        if (!visit(cursor.id))
            return;
    }
}

std::vector<std::uint64_t> NameTable::candidates(std::string_view foldedText) const {
    std::vector<std::uint64_t> blocks(layout_.gramWords, ~std::uint64_t{0});
    const std::size_t length = std::min(foldedText.size(), GramSlots::longest);
    for (std::size_t at = 0; at + length <= foldedText.size(); ++at) {
        const std::uint64_t* const bits =
            grams_ + GramSlots::slotOf(foldedText.substr(at, length)) * layout_.gramWords;
        for (std::size_t word = 0; word < blocks.size(); ++word)
            blocks[word] &= bits[word];
    }
    return blocks;
}

void NameTable::visitContaining(std::string_view foldedText, const Visit& visit) const {
    if (foldedText.empty() || size() == 0)
        return;
    const std::vector<std::uint64_t> maybe = candidates(foldedText);
    const auto isCandidate = [&](std::size_t block) {
        return block < layout_.blockCount && (maybe[block / 64] >> (block % 64) & 1U) != 0;
    };
    const PairScan scan(foldedText);
    for (std::size_t block = 0; block < layout_.blockCount; ++block) {
        if (maybe[block / 64] == 0) {
            block |= 63U;
            continue;
        }
        if (!isCandidate(block))
            continue;
        std::size_t behind = block + 1; // neighbours are scanned in one go
        while (isCandidate(behind))
            ++behind;
        const char* const end = folded_ + blocks_[behind].folded;
        for (const char* at = firstOf(block).data(); (at = scan.find(at, end)) != nullptr;) {
            while (folded_ + blocks_[block + 1].folded <= at)
                ++block;
            const bool begins = at == folded_ || at[-1] == 0;
            const auto before = std::count(firstOf(block).data(), at, '\0');
            if (!begins &&
                !visit(static_cast<Id>(block * NameBlock::names) + static_cast<Id>(before)))
                return;
            at += std::strlen(at) + 1;
        }
        block = behind;
    }
}

} // namespace skipnest::linuxdesktop
