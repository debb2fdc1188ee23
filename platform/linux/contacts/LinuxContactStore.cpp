// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/contacts/LinuxContactStore.h"

#include <QJsonArray>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace skipnest::linuxdesktop {

using namespace Qt::StringLiterals;
using platform::Availability;
using platform::Contact;

QStringList LinuxContactStore::namedFolders() const {
    QStringList folders;
    for (const QJsonValue& folder : defaults_.value(QString::fromLatin1(foldersKey)).toArray()) {
        if (!folder.toString().isEmpty())
            folders.append(folder.toString());
    }
    return folders;
}

Availability LinuxContactStore::availability() const {
    if (service_.isInstalled() || !contactFolders(person_, namedFolders()).isEmpty())
        return {};
    return {Availability::State::unavailable,
            u"There is no address book: neither evolution-data-server nor a folder of vCards."_s,
            u"Put .vcf files into ~/.local/share/contacts, or name your folder in the voice "
            "settings."_s};
}

platform::ContactFetch LinuxContactStore::fetch(Fetched fetched) {
    struct Reading {
        std::vector<Contact> contacts;
        Fetched fetched; // empty once the fetch was dropped
    };
    const auto reading = std::make_shared<Reading>();
    reading->fetched = std::move(fetched);
    executor_.background(
        [reading, person = person_, more = namedFolders(), service = service_] {
            reading->contacts = readContactFolders(contactFolders(person, more));
            if (auto people = service.read()) {
                auto served = std::move(people).value();
                std::ranges::move(served, std::back_inserter(reading->contacts));
            }
        },
        [reading] {
            if (const auto told = std::exchange(reading->fetched, nullptr))
                told(std::move(reading->contacts));
        });
    return platform::ContactFetch([reading] { reading->fetched = nullptr; });
}

} // namespace skipnest::linuxdesktop
