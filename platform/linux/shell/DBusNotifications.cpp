// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/DBusNotifications.h"

#include "platform/linux/shell/BusSignal.h"

#include <memory>

namespace skipnest::linuxdesktop {

platform::Availability DBusNotifications::availability() const {
    if (hasSessionBus())
        return {};
    return {platform::Availability::State::unavailable,
            QStringLiteral("There is no D-Bus session bus, so other programs cannot notify this "
                           "one."),
            QStringLiteral("Start the session with dbus-run-session.")};
}

platform::Observation DBusNotifications::observe(const QString& name, Received received) {
    const auto dot = name.lastIndexOf(u'.');
    if (dot <= 0 || !hasSessionBus())
        return {};
    const auto told = [received = std::move(received)](const QDBusMessage& message) {
        const QString signature = message.signature();
        if (signature.isEmpty())
            received({});
        else if (signature == QStringLiteral("s"))
            received(message.arguments().constFirst().toString());
    };
    const auto signal = std::make_shared<std::unique_ptr<BusSignal>>(std::make_unique<BusSignal>(
        QDBusConnection::sessionBus(), BusSignal::Source{{}, {}, name.left(dot), name.mid(dot + 1)},
        told));
    return platform::Observation([signal] { signal->reset(); });
}

} // namespace skipnest::linuxdesktop
