// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/BusSignal.h"

#include <QFile>
#include <QObject>

namespace skipnest::linuxdesktop {

bool hasSessionBus() {
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFile::exists(QFile::decodeName(runtime) + QStringLiteral("/bus"));
}

class BusSignal::Receiver final : public QObject {
    Q_OBJECT
public:
    explicit Receiver(Received received) : received_(std::move(received)) {}

    // Not deleted at once: it may be telling.
    static void retire(Receiver* receiver) {
        receiver->retired_ = true;
        receiver->deleteLater();
    }

public Q_SLOTS:
    void receive(const QDBusMessage& message) {
        if (!retired_)
            received_(message);
    }

private:
    const Received received_;
    bool retired_ = false;
};

BusSignal::BusSignal(const QDBusConnection& bus, Source source, Received received)
    : bus_(bus), source_(std::move(source)),
      receiver_(new Receiver(std::move(received)), &Receiver::retire) {
    bus_.connect(source_.service, source_.path, source_.interface, source_.member, receiver_.get(),
                 SLOT(receive(QDBusMessage)));
}

BusSignal::~BusSignal() {
    bus_.disconnect(source_.service, source_.path, source_.interface, source_.member,
                    receiver_.get(), SLOT(receive(QDBusMessage)));
}

} // namespace skipnest::linuxdesktop

#include "BusSignal.moc"
