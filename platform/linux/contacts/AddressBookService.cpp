// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/contacts/AddressBookService.h"

#include "platform/linux/contacts/VCards.h"
#include "platform/linux/shell/BusSignal.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QUuid>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include <glib.h>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using platform::Contact;
using platform::Failure;
using platform::Result;

constexpr int mostBooks = 20;
constexpr qsizetype largestCard = 4 * 1024 * 1024;

constexpr auto sourcesPrefix = "org.gnome.evolution.dataserver.Sources"_L1;
constexpr auto booksPrefix = "org.gnome.evolution.dataserver.AddressBook"_L1;

// A connection of its own, because the shared one belongs to the main thread.
class Bus {
public:
    Bus(const QString& address, std::chrono::milliseconds callLimit)
        : callLimit_(static_cast<int>(callLimit.count())),
          name_(u"skipnest-contacts-"_s + QUuid::createUuid().toString(QUuid::Id128)),
          connection_(address.isEmpty()
                          ? QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_)
                          : QDBusConnection::connectToBus(address, name_)) {}
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;
    ~Bus() { QDBusConnection::disconnectFromBus(name_); }

    [[nodiscard]] bool isConnected() const { return connection_.isConnected(); }
    // The reply where it has this signature.
    [[nodiscard]] std::optional<QVariantList> call(const QString& service, const QString& path,
                                                   const QString& interface, const QString& member,
                                                   const QString& signature,
                                                   const QVariantList& arguments = {}) const {
        QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, member);
        message.setArguments(arguments);
        const QDBusMessage reply = connection_.call(message, QDBus::Block, callLimit_);
        if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != signature)
            return std::nullopt;
        return reply.arguments();
    }

private:
    int callLimit_;
    QString name_;
    QDBusConnection connection_;
};

// The service's name carries a number that goes up when its interface changes: the newest of those
// that can be started.
QString newestService(const Bus& bus, QLatin1StringView prefix) {
    const auto reply = bus.call(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                u"org.freedesktop.DBus"_s, u"ListActivatableNames"_s, u"as"_s);
    QString newest;
    int highest = -1;
    for (const QString& name : reply ? reply->first().toStringList() : QStringList()) {
        bool isNumber = false;
        const int number = name.startsWith(prefix) ? name.mid(prefix.size()).toInt(&isNumber) : 0;
        if (isNumber && number > highest) {
            highest = number;
            newest = name;
        }
    }
    return newest;
}

// The identifiers and descriptions of all sources: mail accounts, calendars, address books.
std::map<QString, QByteArray> readSources(const QVariantList& reply) {
    std::map<QString, QByteArray> sources;
    const auto objects = reply.first().value<QDBusArgument>();
    objects.beginMap();
    while (!objects.atEnd()) {
        QDBusObjectPath path;
        objects.beginMapEntry();
        objects >> path;
        objects.beginMap();
        while (!objects.atEnd()) {
            QString interface;
            QVariantMap properties;
            objects.beginMapEntry();
            objects >> interface >> properties;
            objects.endMapEntry();
            if (interface == u"org.gnome.evolution.dataserver.Source")
                sources[properties.value(u"UID"_s).toString()] =
                    properties.value(u"Data"_s).toString().toUtf8();
        }
        objects.endMap();
        objects.endMapEntry();
    }
    objects.endMap();
    return sources;
}

bool isLocalBook(const QByteArray& description) {
    const std::unique_ptr<GKeyFile, void (*)(GKeyFile*)> file(g_key_file_new(), g_key_file_free);
    if (!g_key_file_load_from_data(file.get(), description.constData(),
                                   static_cast<gsize>(description.size()), G_KEY_FILE_NONE,
                                   nullptr))
        return false;
    const auto text = [&file](const char* group, const char* key) {
        char* found = g_key_file_get_string(file.get(), group, key, nullptr);
        QByteArray copy(found);
        g_free(found);
        return copy;
    };
    return g_key_file_has_group(file.get(), "Address Book") != 0 &&
           text("Data Source", "Enabled") != "false" &&
           text("Address Book", "BackendName") != "ldap";
}

std::vector<Contact> readBook(const Bus& bus, const QString& service, const QString& source) {
    std::vector<Contact> contacts;
    const auto opened = bus.call(service, u"/org/gnome/evolution/dataserver/AddressBookFactory"_s,
                                 u"org.gnome.evolution.dataserver.AddressBookFactory"_s,
                                 u"OpenAddressBook"_s, u"ss"_s, {source});
    if (!opened)
        return contacts;
    const QString path = opened->at(0).toString();
    const QString owner = opened->at(1).toString();
    const QString interface = u"org.gnome.evolution.dataserver.AddressBook"_s;
    if (!bus.call(owner, path, interface, u"Open"_s, u"as"_s))
        return contacts;
    const QString everybody = u"(contains \"x-evolution-any-field\" \"\")"_s;
    const auto cards = bus.call(owner, path, interface, u"GetContactList"_s, u"as"_s, {everybody});
    (void)bus.call(owner, path, interface, u"Close"_s, {});
    for (const QString& card : cards ? cards->first().toStringList() : QStringList()) {
        if (card.size() > largestCard)
            continue;
        auto read = readVCards(card.toUtf8(), source + u'/' + QString::number(contacts.size()));
        std::ranges::move(read, std::back_inserter(contacts));
    }
    return contacts;
}

} // namespace

bool AddressBookService::isInstalled() const {
    if (busAddress_.isEmpty() && !hasSessionBus())
        return false;
    const Bus bus(busAddress_, callLimit_);
    return bus.isConnected() && !newestService(bus, sourcesPrefix).isEmpty() &&
           !newestService(bus, booksPrefix).isEmpty();
}

Result<std::vector<Contact>> AddressBookService::read() const {
    if (busAddress_.isEmpty() && !hasSessionBus())
        return Failure{Failure::Kind::unavailable, u"there is no session bus"_s};
    const Bus bus(busAddress_, callLimit_);
    if (!bus.isConnected())
        return Failure{Failure::Kind::unavailable, u"the session bus does not answer"_s};
    const QString sourcesName = newestService(bus, sourcesPrefix);
    const QString booksName = newestService(bus, booksPrefix);
    if (sourcesName.isEmpty() || booksName.isEmpty())
        return Failure{Failure::Kind::unavailable, u"evolution-data-server is not installed"_s};
    const auto reply = bus.call(sourcesName, u"/org/gnome/evolution/dataserver/SourceManager"_s,
                                u"org.freedesktop.DBus.ObjectManager"_s, u"GetManagedObjects"_s,
                                u"a{oa{sa{sv}}}"_s);
    if (!reply)
        return Failure{Failure::Kind::timedOut, u"evolution-data-server does not answer"_s};
    std::vector<Contact> contacts;
    int books = 0;
    for (const auto& [identifier, description] : readSources(*reply)) {
        if (!isLocalBook(description) || ++books > mostBooks)
            continue;
        auto read = readBook(bus, booksName, identifier);
        std::ranges::move(read, std::back_inserter(contacts));
    }
    return contacts;
}

} // namespace skipnest::linuxdesktop
