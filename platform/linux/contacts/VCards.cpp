// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/contacts/VCards.h"

#include "platform/linux/contacts/VCardLines.h"

#include <QUrl>

#include <algorithm>
#include <optional>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using platform::Contact;

// A number or address with how much it is the one to use.
struct Reach {
    QString text;
    int rank = 0; // lower is better
};

// Chats hang on a mobile number, so that one goes before a preferred landline.
std::optional<Reach> phoneOf(const VCardProperty& property) {
    const auto has = [&property](const QString& type) { return property.types.contains(type); };
    QString number = property.value.trimmed();
    if (number.startsWith(u"tel:"_s, Qt::CaseInsensitive))
        number = QUrl::fromPercentEncoding(number.mid(4).toUtf8());
    const bool isTalk = !has(u"FAX"_s) && !has(u"PAGER"_s) && !has(u"MODEM"_s);
    if (number.isEmpty() || !isTalk)
        return std::nullopt;
    const bool isMobile = has(u"CELL"_s) || has(u"IPHONE"_s);
    return Reach{number, (isMobile ? 0 : 2) + (has(u"PREF"_s) ? 0 : 1)};
}

std::optional<Reach> emailOf(const VCardProperty& property) {
    QString address = property.value.trimmed();
    if (address.startsWith(u"mailto:"_s, Qt::CaseInsensitive))
        address = QUrl::fromPercentEncoding(address.mid(7).toUtf8());
    if (address.isEmpty())
        return std::nullopt;
    return Reach{address, property.types.contains(u"PREF"_s) ? 0 : 1};
}

QStringList bestFirst(std::vector<Reach> all) {
    std::ranges::stable_sort(all, {}, &Reach::rank);
    QStringList texts;
    for (const Reach& each : all) {
        if (!texts.contains(each.text))
            texts.append(each.text);
    }
    return texts;
}

// Of the components of a name: several names of one kind are separated by commas.
QString namePart(const QString& component) {
    return QString(component).replace(u',', u' ').simplified();
}

// All of a value that is one text, separators in it included.
QString wholeText(const QString& value, bool isVersion2) {
    return splitVCardValue(value, QChar(), isVersion2).first().simplified();
}

std::optional<Contact> contactOf(const VCardLines& card) {
    Contact contact;
    std::vector<Reach> phones;
    std::vector<Reach> emails;
    for (const VCardProperty& property : card.properties) {
        if (property.name == u"KIND" || property.name == u"X-ADDRESSBOOKSERVER-KIND") {
            if (property.value.trimmed().compare(u"group"_s, Qt::CaseInsensitive) == 0)
                return std::nullopt;
        } else if (property.name == u"UID") {
            contact.identifier = property.value.trimmed();
        } else if (property.name == u"FN" && contact.formattedName.isEmpty()) {
            contact.formattedName = wholeText(property.value, card.isVersion2);
        } else if (property.name == u"N" && contact.familyName.isEmpty() &&
                   contact.givenName.isEmpty()) {
            // Family; given; additional; before; after.
            const QStringList parts = splitVCardValue(property.value, u';', card.isVersion2);
            contact.familyName = namePart(parts.value(0));
            contact.givenName =
                (namePart(parts.value(1)) + u' ' + namePart(parts.value(2))).trimmed();
        } else if (property.name == u"NICKNAME") {
            for (const QString& name : splitVCardValue(property.value, u',', card.isVersion2)) {
                if (!name.trimmed().isEmpty())
                    contact.nicknames.append(name.simplified());
            }
        } else if (property.name == u"TEL") {
            if (const auto phone = phoneOf(property))
                phones.push_back(*phone);
        } else if (property.name == u"EMAIL") {
            if (const auto email = emailOf(property))
                emails.push_back(*email);
        }
    }
    if (contact.formattedName.isEmpty() && contact.familyName.isEmpty() &&
        contact.givenName.isEmpty() && contact.nicknames.isEmpty())
        return std::nullopt;
    contact.phones = bestFirst(std::move(phones));
    contact.emails = bestFirst(std::move(emails));
    return contact;
}

} // namespace

std::vector<Contact> readVCards(const QByteArray& file, const QString& fallbackIdentifier) {
    std::vector<Contact> contacts;
    for (const VCardLines& card : readVCardLines(file)) {
        auto contact = contactOf(card);
        if (!contact)
            continue;
        if (contact->identifier.isEmpty())
            contact->identifier = u"%1#%2"_s.arg(fallbackIdentifier).arg(contacts.size());
        contacts.push_back(std::move(*contact));
    }
    return contacts;
}

} // namespace skipnest::linuxdesktop
