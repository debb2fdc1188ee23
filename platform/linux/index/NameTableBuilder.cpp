// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/NameTableBuilder.h"

#include "platform/linux/index/NameFolding.h"

#include <algorithm>
#include <bitset>
#include <cstring>

namespace skipnest::linuxdesktop {
namespace {

constexpr std::size_t mostItems = 10'000'000;
// A name grows to at most four times its bytes when it is decomposed and folded.
constexpr std::size_t mostNameBytes = 0xFFFFFFFFU / 4;

// The first eight bytes, so that comparing them as a number orders most names.
std::uint64_t headOf(const char* text) {
    std::uint64_t head = 0;
    for (int shift = 56; shift >= 0 && *text != 0; shift -= 8)
        head |= std::uint64_t{static_cast<unsigned char>(*text++)} << static_cast<unsigned>(shift);
    return head;
}

void addGrams(std::string_view name, std::bitset<GramSlots::slots>& grams) {
    for (std::size_t at = 0; at < name.size(); ++at) {
        for (std::size_t length = 1; length <= GramSlots::longest && at + length <= name.size();
             ++length)
            grams.set(GramSlots::slotOf(name.substr(at, length)));
    }
}

} // namespace

struct NameTableBuilder::Folding {
    struct Key {
        std::uint64_t head = 0;
        std::uint32_t item = 0;
    };
    std::string pool;
    std::vector<std::uint32_t> offsets; // by item
    std::vector<Key> order;

    [[nodiscard]] const char* of(std::uint32_t item) const { return &pool[offsets[item]]; }
};

NameTable::Id NameTableBuilder::addRoot(std::string_view path) {
    roots_.emplace_back(path);
    rootTimes_.push_back(0);
    return NameTable::firstRoot + static_cast<Id>(roots_.size() - 1);
}

NameTable::Id NameTableBuilder::add(Id parent, std::string_view name, Kind kind) {
    items_.push_back({static_cast<std::uint32_t>(names_.size()), parent, 0, kind});
    names_ += name;
    names_ += '\0';
    return firstId_ + static_cast<Id>(items_.size() - 1);
}

void NameTableBuilder::setTime(Id folder, std::uint32_t time) {
    if (folder >= NameTable::firstRoot)
        rootTimes_[folder - NameTable::firstRoot] = time;
    else
        items_[folder - firstId_].time = time;
}

bool NameTableBuilder::isFull() const {
    return items_.size() >= mostItems || names_.size() >= mostNameBytes;
}

NameTableBuilder::Folding NameTableBuilder::fold() const {
    Folding folding;
    folding.pool.reserve(names_.size() + names_.size() / 16);
    folding.offsets.reserve(items_.size());
    for (const Item& item : items_) {
        folding.offsets.push_back(static_cast<std::uint32_t>(folding.pool.size()));
        appendFolded(folding.pool, nameOf(item));
        folding.pool += '\0';
    }
    folding.order.reserve(items_.size());
    for (std::uint32_t item = 0; item < items_.size(); ++item)
        folding.order.push_back({headOf(folding.of(item)), item});
    // Equal names keep the order they came in.
    std::ranges::sort(folding.order, [&](const Folding::Key& a, const Folding::Key& b) {
        if (a.head != b.head)
            return a.head < b.head;
        const int compared = std::strcmp(folding.of(a.item), folding.of(b.item));
        return compared != 0 ? compared < 0 : a.item < b.item;
    });
    return folding;
}

NameTable NameTableBuilder::build() const {
    const Folding folding = fold();
    NameTableHeader header;
    header.items = static_cast<std::uint32_t>(items_.size());
    header.roots = static_cast<std::uint32_t>(roots_.size());
    header.foldedBytes = folding.pool.size();
    for (std::uint32_t item = 0; item < items_.size(); ++item) {
        header.folders += items_[item].kind == Kind::folder ? 1 : 0;
        if (nameOf(items_[item]) != folding.of(item))
            header.spelledBytes += nameOf(items_[item]).size() + 1;
    }
    for (const std::string& root : roots_)
        header.rootBytes += root.size() + 1;

    const NameTableLayout at = NameTableLayout::of(header);
    const auto memory = std::make_shared<std::vector<std::uint64_t>>(at.total / 8);
    char* const start = reinterpret_cast<char*>(memory->data());
    auto* const blocks = reinterpret_cast<NameBlock*>(start + at.blocks);
    auto* const grams = reinterpret_cast<std::uint64_t*>(start + at.grams);
    auto* const parents = reinterpret_cast<Id*>(start + at.parents);
    auto* times = reinterpret_cast<std::uint32_t*>(start + at.times);
    char* folded = start + at.folded;
    char* spelled = start + at.spelled;
    char* roots = start + at.roots;
    const auto append = [](char*& end, std::string_view text) {
        end = std::ranges::copy(text, end).out;
        *end++ = 0;
    };

    std::vector<Id> placeOf(items_.size());
    for (Id place = 0; place < header.items; ++place)
        placeOf[folding.order[place].item] = place;

    std::uint32_t folders = 0;
    for (std::size_t index = 0; index <= at.blockCount; ++index) {
        NameBlock& block = blocks[index];
        block.folded =
            static_cast<std::uint32_t>(folded - start - static_cast<std::ptrdiff_t>(at.folded));
        block.spelled =
            static_cast<std::uint32_t>(spelled - start - static_cast<std::ptrdiff_t>(at.spelled));
        block.folders = folders;
        std::bitset<GramSlots::slots> present;
        const std::size_t first = index * NameBlock::names;
        for (std::size_t place = first;
             place < std::min<std::size_t>(first + NameBlock::names, header.items); ++place) {
            const std::uint32_t number = folding.order[place].item;
            const Item& item = items_[number];
            const std::string_view name = nameOf(item);
            const std::string_view foldedText = folding.of(number);
            append(folded, foldedText);
            if (name != foldedText) {
                append(spelled, name);
                block.spelledMask |= std::uint64_t{1} << (place - first);
            }
            if (item.kind == Kind::folder) {
                block.folderMask |= std::uint64_t{1} << (place - first);
                times[folders++] = item.time;
            }
            const bool isOwn = item.parent >= firstId_ && item.parent < NameTable::firstRoot;
            parents[place] = isOwn ? firstId_ + placeOf[item.parent - firstId_] : item.parent;
            addGrams(foldedText, present);
        }
        if (index == at.blockCount)
            break;
        for (std::size_t slot = 0; slot < GramSlots::slots; ++slot) {
            if (present.test(slot))
                grams[slot * at.gramWords + index / 64] |= std::uint64_t{1} << (index % 64);
        }
    }
    times += header.folders;
    for (std::size_t root = 0; root < roots_.size(); ++root) {
        append(roots, roots_[root]);
        times[root] = rootTimes_[root];
    }
    std::memcpy(start, &header, sizeof header);
    header.checksum = nameTableChecksum({start, at.total});
    std::memcpy(start, &header, sizeof header);
    return NameTable::adopt({memory, {start, at.total}});
}

} // namespace skipnest::linuxdesktop
