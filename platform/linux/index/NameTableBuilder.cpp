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

// The memory of a table, filled block by block.
class NameTableBuilder::Writer {
public:
    Writer(const NameTableBuilder& builder, const Folding& folding)
        : builder_(builder), folding_(folding), header_(headerOf(builder, folding)),
          at_(NameTableLayout::of(header_)),
          memory_(std::make_shared<std::vector<std::uint64_t>>(at_.total / 8)),
          start_(reinterpret_cast<char*>(memory_->data())), folded_(start_ + at_.folded),
          spelled_(start_ + at_.spelled), time_(section<std::uint32_t>(at_.times)),
          placeOf_(header_.items) {
        for (Id place = 0; place < header_.items; ++place)
            placeOf_[folding.order[place].item] = place;
    }

    [[nodiscard]] NameTable written() && {
        for (std::size_t index = 0; index <= at_.blockCount; ++index)
            writeBlock(index);
        char* roots = start_ + at_.roots;
        for (std::size_t root = 0; root < builder_.roots_.size(); ++root) {
            append(roots, builder_.roots_[root]);
            *time_++ = builder_.rootTimes_[root];
        }
        std::memcpy(start_, &header_, sizeof header_);
        header_.checksum = nameTableChecksum({start_, at_.total});
        std::memcpy(start_, &header_, sizeof header_);
        return NameTable::adopt({memory_, {start_, at_.total}});
    }

private:
    static NameTableHeader headerOf(const NameTableBuilder& builder, const Folding& folding) {
        NameTableHeader header;
        header.items = static_cast<std::uint32_t>(builder.items_.size());
        header.roots = static_cast<std::uint32_t>(builder.roots_.size());
        header.foldedBytes = folding.pool.size();
        for (std::uint32_t number = 0; number < header.items; ++number) {
            const Item& item = builder.items_[number];
            header.folders += item.kind == Kind::folder ? 1 : 0;
            if (builder.nameOf(item) != folding.of(number))
                header.spelledBytes += builder.nameOf(item).size() + 1;
        }
        for (const std::string& root : builder.roots_)
            header.rootBytes += root.size() + 1;
        return header;
    }

    template <typename Value> Value* section(std::size_t offset) {
        return reinterpret_cast<Value*>(start_ + offset);
    }
    static void append(char*& end, std::string_view text) {
        end = std::ranges::copy(text, end).out;
        *end++ = 0;
    }

    // The one behind the last holds where that ends, and no names.
    void writeBlock(std::size_t index) {
        NameBlock& block = section<NameBlock>(at_.blocks)[index];
        block.folded = static_cast<std::uint32_t>(folded_ - (start_ + at_.folded));
        block.spelled = static_cast<std::uint32_t>(spelled_ - (start_ + at_.spelled));
        block.folders = folders_;
        const std::size_t first = index * NameBlock::names;
        const std::size_t end = std::min<std::size_t>(first + NameBlock::names, header_.items);
        std::bitset<GramSlots::slots> grams;
        for (std::size_t place = first; place < end; ++place) {
            const std::uint32_t number = folding_.order[place].item;
            writeName(place, number, block);
            addGrams(folding_.of(number), grams);
        }
        auto* const bits = section<std::uint64_t>(at_.grams);
        for (std::size_t slot = 0; slot < GramSlots::slots && first < end; ++slot) {
            if (grams.test(slot))
                bits[slot * at_.gramWords + index / 64] |= std::uint64_t{1} << (index % 64);
        }
    }

    void writeName(std::size_t place, std::uint32_t number, NameBlock& block) {
        const Item& item = builder_.items_[number];
        const std::uint64_t bit = std::uint64_t{1} << (place % NameBlock::names);
        append(folded_, folding_.of(number));
        if (const std::string_view name = builder_.nameOf(item); name != folding_.of(number)) {
            append(spelled_, name);
            block.spelledMask |= bit;
        }
        if (item.kind == Kind::folder) {
            block.folderMask |= bit;
            *time_++ = item.time;
            ++folders_;
        }
        const Id firstId = builder_.firstId_;
        const bool isOwn = item.parent >= firstId && item.parent < NameTable::firstRoot;
        section<Id>(at_.parents)[place] =
            isOwn ? firstId + placeOf_[item.parent - firstId] : item.parent;
    }

    const NameTableBuilder& builder_;
    const Folding& folding_;
    NameTableHeader header_;
    const NameTableLayout at_;
    const std::shared_ptr<std::vector<std::uint64_t>> memory_;
    char* const start_;
    char* folded_;
    char* spelled_;
    std::uint32_t* time_;
    std::uint32_t folders_ = 0;
    std::vector<Id> placeOf_; // by number
};

NameTable NameTableBuilder::build() const {
    const Folding folding = fold();
    return Writer(*this, folding).written();
}

} // namespace skipnest::linuxdesktop
