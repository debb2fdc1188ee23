// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/windows/AtspiConnection.h"

#include "platform/linux/shell/BusSignal.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QVariantMap>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;

// A program that is well answers within a few milliseconds, on a loaded machine within tens.
constexpr int patienceMilliseconds = 250;
constexpr std::size_t mostChildren = 100; // more than a menu bar, a menu or a window's frame has

// Bits of the first word of a state set.
constexpr std::uint32_t activeState = 1U << 1;
constexpr std::uint32_t checkedState = 1U << 4;

QString connectionName() {
    return u"skipnest-accessibility"_s;
}
QString accessible() {
    return u"org.a11y.atspi.Accessible"_s;
}
QString rootPath() {
    return u"/org/a11y/atspi/accessible/root"_s;
}

QDBusPendingCall ask(const QDBusConnection& bus, const QString& service, const QString& path,
                     const QString& interface, const QString& member,
                     const QVariantList& arguments = {}) {
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, member);
    question.setArguments(arguments);
    question.setAutoStartService(false);
    return bus.asyncCall(question, patienceMilliseconds);
}

QDBusPendingCall askProperty(const QDBusConnection& bus, const QString& service,
                             const QString& path, const QString& interface, const QString& name) {
    return ask(bus, service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
               {interface, name});
}

// The single argument of the answer. Any program may answer anything: what has not the signature
// asked for is nothing.
std::optional<QVariant> answer(QDBusPendingCall call, const char* signature) {
    call.waitForFinished();
    if (call.isError() || call.reply().signature() != QLatin1String(signature))
        return std::nullopt;
    return call.reply().arguments().constFirst();
}

std::optional<QVariant> propertyAnswer(const QDBusPendingCall& call) {
    const auto value = answer(call, "v");
    return value ? std::optional(value->value<QDBusVariant>().variant()) : std::nullopt;
}

std::optional<std::vector<AtspiNode>> nodesOf(const QDBusPendingCall& call) {
    const auto value = answer(call, "a(so)");
    if (!value)
        return std::nullopt;
    std::vector<AtspiNode> nodes;
    const auto list = value->value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd() && nodes.size() < mostChildren) {
        AtspiNode node;
        QDBusObjectPath path;
        list.beginStructure();
        list >> node.service >> path;
        list.endStructure();
        node.path = path.path();
        nodes.push_back(std::move(node));
    }
    return nodes;
}

std::uint32_t firstWord(const QVariant& states) {
    QList<std::uint32_t> words;
    states.value<QDBusArgument>() >> words;
    return words.value(0);
}

QDBusPendingCall askName(const QDBusConnection& bus, const AtspiNode& node) {
    return askProperty(bus, node.service, node.path, accessible(), u"Name"_s);
}

} // namespace

AtspiConnection::Service AtspiConnection::service() {
    if (!hasSessionBus())
        return Service::absent;
    const auto session = QDBusConnection::sessionBus();
    if (!session.isConnected())
        return Service::absent;
    const auto enabled = propertyAnswer(askProperty(session, u"org.a11y.Bus"_s, u"/org/a11y/bus"_s,
                                                    u"org.a11y.Status"_s, u"IsEnabled"_s));
    if (!enabled)
        return Service::absent;
    return enabled->toBool() ? Service::running : Service::forSomeToolkits;
}

AtspiConnection::~AtspiConnection() {
    QDBusConnection::disconnectFromBus(connectionName());
}

std::optional<QDBusConnection> AtspiConnection::bus() {
    const std::lock_guard lock(connecting_);
    if (const QDBusConnection known(connectionName()); known.isConnected())
        return known;
    QDBusConnection::disconnectFromBus(connectionName());
    if (!hasSessionBus())
        return std::nullopt;
    const auto session = QDBusConnection::sessionBus();
    if (!session.isConnected())
        return std::nullopt;
    const auto address = answer(
        ask(session, u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.a11y.Bus"_s, u"GetAddress"_s),
        "s");
    if (!address || address->toString().isEmpty())
        return std::nullopt;
    const auto opened = QDBusConnection::connectToBus(address->toString(), connectionName());
    return opened.isConnected() ? std::optional(opened) : std::nullopt;
}

std::optional<AtspiNode> AtspiConnection::program(std::int64_t processId) {
    const auto connection = bus();
    if (!connection)
        return std::nullopt;
    auto programs = nodesOf(
        ask(*connection, u"org.a11y.atspi.Registry"_s, rootPath(), accessible(), u"GetChildren"_s));
    if (!programs)
        return std::nullopt;
    // The bus itself knows whose connection is whose: no program is asked, and all at once.
    std::vector<QDBusPendingCall> owners;
    for (const AtspiNode& node : *programs)
        owners.push_back(ask(*connection, u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                             u"org.freedesktop.DBus"_s, u"GetConnectionUnixProcessID"_s,
                             {node.service}));
    for (std::size_t i = 0; i < owners.size(); ++i) {
        const auto owner = answer(owners[i], "u");
        if (owner && std::int64_t(owner->toUInt()) == processId)
            return (*programs)[i];
    }
    return std::nullopt;
}

std::optional<std::vector<AtspiNode>> AtspiConnection::children(const AtspiNode& node) {
    const auto connection = bus();
    if (!connection)
        return std::nullopt;
    auto nodes = nodesOf(ask(*connection, node.service, node.path, accessible(), u"GetChildren"_s));
    if (!nodes)
        return std::nullopt;
    struct Questions {
        QDBusPendingCall name, role, states;
    };
    std::vector<Questions> asked;
    for (const AtspiNode& child : *nodes)
        asked.push_back({askName(*connection, child),
                         ask(*connection, child.service, child.path, accessible(), u"GetRole"_s),
                         ask(*connection, child.service, child.path, accessible(), u"GetState"_s)});
    for (std::size_t i = 0; i < nodes->size(); ++i) {
        AtspiNode& child = (*nodes)[i];
        if (const auto name = propertyAnswer(asked[i].name))
            child.name = name->toString();
        if (const auto role = answer(asked[i].role, "u"))
            child.role = AtspiRole{role->toUInt()};
        if (const auto states = answer(asked[i].states, "au")) {
            const std::uint32_t word = firstWord(*states);
            child.isActive = (word & activeState) != 0;
            child.isChecked = (word & checkedState) != 0;
        }
    }
    return nodes;
}

bool AtspiConnection::press(const AtspiNode& node) {
    const auto connection = bus();
    if (!connection)
        return false;
    // A program that builds its menus anew may give the path to another entry.
    const auto name = propertyAnswer(askName(*connection, node));
    if (!name || name->toString() != node.name)
        return false;
    const auto done = answer(
        ask(*connection, node.service, node.path, u"org.a11y.atspi.Action"_s, u"DoAction"_s, {0}),
        "b");
    return done && done->toBool();
}

} // namespace skipnest::linuxdesktop
