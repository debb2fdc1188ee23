// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/contacts/VCards.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

// A file of an address book.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto contacts = skipnest::linuxdesktop::readVCards(bytes, QStringLiteral("file"));
    for (const auto& contact : contacts) {
        require(!contact.identifier.isEmpty());
        require(!contact.formattedName.isEmpty() || !contact.givenName.isEmpty() ||
                !contact.familyName.isEmpty() || !contact.nicknames.isEmpty());
        for (const auto& list : {contact.phones, contact.emails, contact.nicknames}) {
            for (const QString& text : list)
                require(!text.isEmpty());
        }
    }
    require(contacts.size() <= size / 10); // "BEGIN:VCARD"
    return 0;
}
