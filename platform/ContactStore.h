// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Owned.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace skipnest::platform {

// One entry of an address book, as written there. Any field but the identifier may be empty.
struct Contact {
    QString identifier; // of the address book; the same at the next fetch
    QString givenName;  // all given names, separated by blanks; so are the family names
    QString familyName;
    QStringList nicknames;
    QString formattedName; // the whole name as the person wants to see it
    QStringList phones;    // the one to reach the person by first
    QStringList emails;

    bool operator==(const Contact&) const = default;
};

using ContactFetch = Owned<struct ContactFetchTag>;

// The person's address books, read only.
class ContactStore {
public:
    // As the system numbers them in its messages.
    enum class Authorization { notDetermined = 0, restricted = 1, denied = 2, authorized = 3 };
    using Fetched = std::function<void(std::vector<Contact>)>;

    virtual ~ContactStore() = default;

    // Unavailable where there is no address book at all; limited where one of them does not answer.
    [[nodiscard]] virtual Availability availability() const = 0;
    [[nodiscard]] virtual Authorization authorization() const = 0;
    // Everybody in all address books, read off the main thread: an address book that cannot be
    // read, or does not answer in time, has nobody. `fetched` is called once, on the main thread,
    // never from inside this call; dropping the fetch drops it.
    [[nodiscard]] virtual ContactFetch fetch(Fetched fetched) = 0;
};

} // namespace skipnest::platform
