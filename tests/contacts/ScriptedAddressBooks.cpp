// SPDX-License-Identifier: Apache-2.0
#include "tests/contacts/ScriptedAddressBooks.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QFile>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

const QString sourcesName = u"org.gnome.evolution.dataserver.Sources5"_s;
const QString booksName = u"org.gnome.evolution.dataserver.AddressBook10"_s;
const QString booksPath = u"/org/gnome/evolution/dataserver/Subprocess/Backend/AddressBook/"_s;
const QString connectionName = u"scripted address books"_s;

void write(const QString& path, const QString& text) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly))
        qFatal("no file for the bus");
    file.write(text.toUtf8());
}

} // namespace

ScriptedAddressBooks::ScriptedAddressBooks(Service service) {
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<Objects>();
    write(folder_.filePath(u"bus.conf"_s),
          u"<busconfig><type>session</type><listen>unix:tmpdir=%1</listen><servicedir>%1"
          "</servicedir><policy context=\"default\"><allow send_destination=\"*\" "
          "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow "
          "own=\"*\"/></policy></busconfig>"_s.arg(folder_.path()));
    if (service == Service::installed) {
        for (const QString& name : {sourcesName, booksName})
            write(folder_.filePath(name + u".service"_s),
                  u"[D-BUS Service]\nName=%1\nExec=/bin/false\n"_s.arg(name));
    }
    daemon_.start(u"dbus-daemon"_s, {u"--config-file="_s + folder_.filePath(u"bus.conf"_s),
                                     u"--print-address=1"_s, u"--nofork"_s});
    if (!daemon_.waitForReadyRead())
        return;
    address_ = QString::fromLatin1(daemon_.readLine().trimmed());
    QDBusConnection bus = QDBusConnection::connectToBus(address_, connectionName);
    bus.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath);
    if (service == Service::installed &&
        (!bus.registerService(sourcesName) || !bus.registerService(booksName)))
        qFatal("the names are taken");
}

ScriptedAddressBooks::~ScriptedAddressBooks() {
    QDBusConnection::disconnectFromBus(connectionName);
    daemon_.kill();
    daemon_.waitForFinished();
}

bool ScriptedAddressBooks::handleMessage(const QDBusMessage& message,
                                         const QDBusConnection& connection) {
    const auto answer = [&](const QVariantList& arguments) {
        return connection.send(message.createReply(arguments));
    };
    const QString member = message.member();
    if (member == u"GetManagedObjects") {
        Objects objects;
        for (const auto& [identifier, source] : sources_)
            objects[QDBusObjectPath(u"/sources/"_s + identifier)] = {
                {u"org.gnome.evolution.dataserver.Source"_s,
                 {{u"UID"_s, identifier}, {u"Data"_s, source.description}}},
                {u"org.gnome.evolution.dataserver.Source.Writable"_s, {}}};
        return answer({QVariant::fromValue(objects)});
    }
    const bool isOpening = member == u"OpenAddressBook";
    const QString identifier =
        isOpening ? message.arguments().value(0).toString() : message.path().section(u'/', -1);
    const auto source = sources_.find(identifier);
    if (source == sources_.end())
        return false;
    calls_.append(member + u' ' + identifier);
    using Manner = Source::Manner;
    const Manner manner = source->second.manner;
    if (isOpening)
        return answer({booksPath + identifier, connection.baseService()});
    if (member == u"Open") {
        if (manner == Manner::failsToOpen)
            return connection.send(
                message.createErrorReply(u"org.gnome.Error.Offline"_s, u"not now"_s));
        return manner == Manner::isSilent || answer({QStringList{u"writable"_s}});
    }
    if (member == u"GetContactList")
        return answer({manner == Manner::answersNonsense ? QVariant(u"BEGIN:VCARD"_s)
                                                         : QVariant(source->second.cards)});
    return answer({});
}

} // namespace skipnest::tests
