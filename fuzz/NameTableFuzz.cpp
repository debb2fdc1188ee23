// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/NameStore.h"
#include "platform/linux/index/NameTableBuilder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace skipnest;
using namespace skipnest::linuxdesktop;

// Two blocks and a bit, so that there is something to get wrong between blocks.
std::vector<std::uint64_t> wholeTable() {
    constexpr std::array names{"Notes.txt", "Über", "report", "Straße 7", "a\nb", "e"};
    NameTableBuilder builder;
    auto folder = builder.addRoot("/home/anna");
    for (int number = 0; number < 150; ++number) {
        const bool isFolder = number % 7 == 0;
        const auto id =
            builder.add(folder, names[number % names.size()] + std::to_string(number),
                        isFolder ? NameTableBuilder::Kind::folder : NameTableBuilder::Kind::file);
        if (isFolder)
            folder = id;
    }
    const NameTable table = builder.build();
    std::vector<std::uint64_t> memory(table.bytes().size() / 8);
    std::memcpy(memory.data(), table.bytes().data(), table.bytes().size());
    return memory;
}

void search(const NameTable& table) {
    const NameStore store(table);
    for (const QString& text : {QStringLiteral("e"), QStringLiteral("re"), QStringLiteral("note")})
        (void)store.search({text, platform::FileQuery::Contents::everything, 24});
    for (NameTable::Id id = 0; id < table.size(); ++id) {
        (void)table.name(id);
        if (table.isFolder(id)) {
            (void)table.folderTime(id);
            (void)store.find(store.path(id));
        }
    }
}

} // namespace

// Any bytes are refused or can be searched: as they are, and as changes to a whole table, with the
// checksum made right so that the damage gets past it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint64_t> raw(size / 8 + 1);
    std::memcpy(raw.data(), data, size);
    if (const auto table = NameTable::open({nullptr, {reinterpret_cast<char*>(raw.data()), size}}))
        search(*table);

    static const std::vector<std::uint64_t> whole = wholeTable();
    std::vector<std::uint64_t> memory = whole;
    const std::span<char> bytes(reinterpret_cast<char*>(memory.data()), memory.size() * 8);
    for (; size >= 3; data += 3, size -= 3) {
        const std::size_t offset = data[0] | std::size_t{data[1]} << 8U;
        bytes[offset % bytes.size()] = static_cast<char>(data[2]);
    }
    const std::uint64_t checksum = nameTableChecksum(bytes);
    std::memcpy(bytes.data() + offsetof(NameTableHeader, checksum), &checksum, sizeof checksum);
    if (const auto table = NameTable::open({nullptr, bytes}))
        search(*table);
    return 0;
}
