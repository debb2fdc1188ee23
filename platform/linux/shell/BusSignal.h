// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>
#include <memory>

namespace skipnest::linuxdesktop {

// Whether there is a session bus to connect to. Asked before the first connection: without one the
// bus library would start a bus of its own on the X display, which no other program knows.
[[nodiscard]] bool hasSessionBus();

// Tells of a signal on the bus for as long as it exists. Empty `service` and `path` stand for any.
class BusSignal {
public:
    using Received = std::function<void(const QDBusMessage&)>;
    struct Source {
        QString service;
        QString path;
        QString interface;
        QString member;
    };

    // `received` is told on this thread, and may drop the object that tells it.
    BusSignal(const QDBusConnection& bus, Source source, Received received);
    ~BusSignal();
    BusSignal(const BusSignal&) = delete;
    BusSignal& operator=(const BusSignal&) = delete;

    class Receiver;

private:
    QDBusConnection bus_;
    Source source_;
    std::unique_ptr<Receiver, void (*)(Receiver*)> receiver_;
};

} // namespace skipnest::linuxdesktop
