// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ContactStore.h"
#include "platform/Result.h"

#include <QString>

#include <chrono>
#include <vector>

namespace skipnest::linuxdesktop {

// The address books of GNOME: those of evolution-data-server, over the session bus at `busAddress`,
// empty for the session's own. Every call has a time limit; all of them block, so they are for a
// worker.
class AddressBookService {
public:
    // Starting the service may take a second; a book with thousands of people half of one.
    static constexpr std::chrono::milliseconds usualLimit{4000};

    explicit AddressBookService(QString busAddress = {},
                                std::chrono::milliseconds callLimit = usualLimit)
        : busAddress_(std::move(busAddress)), callLimit_(callLimit) {}

    // Everybody in the enabled address books that lie on this machine; a directory of a whole
    // company on a server is not one of them. Fails as `unavailable` where the service is not
    // installed or there is no bus. A book that does not open has nobody.
    [[nodiscard]] platform::Result<std::vector<platform::Contact>> read() const;

    // Whether the service is there. Starts nothing.
    [[nodiscard]] bool isInstalled() const;

private:
    QString busAddress_;
    std::chrono::milliseconds callLimit_;
};

} // namespace skipnest::linuxdesktop
