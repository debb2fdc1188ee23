// SPDX-License-Identifier: Apache-2.0
// A panel that takes status icons on the session bus, without drawing any: says on standard output
// which come, by the name and path to call.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>

#include <cstdio>

class Watcher final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost CONSTANT)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion CONSTANT)

public:
    [[nodiscard]] bool hasHost() const { return true; }
    [[nodiscard]] int protocolVersion() const { return 0; }

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service, const QDBusMessage& message) {
        const QString name = service.startsWith(u'/') ? message.service() : service;
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
    }
    void RegisterStatusNotifierHost(const QString& /*service*/) {}
};

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    Watcher watcher;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QStringLiteral("/StatusNotifierWatcher"), &watcher,
                            QDBusConnection::ExportAllContents) ||
        !bus.registerService(QStringLiteral("org.kde.StatusNotifierWatcher")))
        return 1;
    return QCoreApplication::exec();
}

#include "NotifierHost.moc"
