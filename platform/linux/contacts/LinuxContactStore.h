// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ContactStore.h"
#include "platform/Executor.h"
#include "platform/UserDefaults.h"
#include "platform/linux/contacts/AddressBookService.h"
#include "platform/linux/contacts/ContactFolders.h"

namespace skipnest::linuxdesktop {

// Address books of a Linux desktop: folders of vCards and evolution-data-server. More folders are
// the person's to name, under "sk.contacts.folders" in the user defaults, an array of paths.
//
// No system asks here before a program reads them, so reading is always authorized.
class LinuxContactStore final : public platform::ContactStore {
public:
    static constexpr auto foldersKey = "sk.contacts.folders";

    LinuxContactStore(platform::Executor& executor, const platform::UserDefaults& defaults,
                      PersonFolders person, AddressBookService service = AddressBookService())
        : executor_(executor), defaults_(defaults), person_(std::move(person)),
          service_(std::move(service)) {}

    // Looks for folders and asks the bus, so it may take milliseconds: for doctor and settings.
    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] Authorization authorization() const override { return Authorization::authorized; }
    [[nodiscard]] platform::ContactFetch fetch(Fetched fetched) override;

private:
    [[nodiscard]] QStringList namedFolders() const;

    platform::Executor& executor_;
    const platform::UserDefaults& defaults_;
    PersonFolders person_;
    AddressBookService service_;
};

} // namespace skipnest::linuxdesktop
