// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/NameStore.h"
#include "platform/linux/index/NameTable.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

// Any bytes, with the checksum made right so that the damage gets past it, are refused or can be
// searched.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace skipnest;
    using linuxdesktop::NameTable;
    using linuxdesktop::NameTableHeader;
    std::vector<std::uint64_t> memory((size + 7) / 8);
    const std::span<char> bytes(reinterpret_cast<char*>(memory.data()), memory.size() * 8);
    std::memcpy(bytes.data(), data, size);
    (void)NameTable::open({nullptr, bytes});
    if (bytes.size() < sizeof(NameTableHeader))
        return 0;
    const std::uint64_t checksum = linuxdesktop::nameTableChecksum(bytes);
    std::memcpy(bytes.data() + offsetof(NameTableHeader, checksum), &checksum, sizeof checksum);
    const auto table = NameTable::open({nullptr, bytes});
    if (!table)
        return 0;
    const linuxdesktop::NameStore store(*table);
    for (const QString& text : {QStringLiteral("e"), QStringLiteral("re"), QStringLiteral("note")})
        (void)store.search({text, platform::FileQuery::Contents::everything, 24});
    for (NameTable::Id id = 0; id < table->size(); ++id) {
        (void)table->name(id);
        if (table->isFolder(id))
            (void)store.find(store.path(id));
    }
    return 0;
}
