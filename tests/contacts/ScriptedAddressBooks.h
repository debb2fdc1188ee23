// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

#include <map>

namespace skipnest::tests {

// A bus of its own with a stand-in of evolution-data-server on it, as its interfaces are in version
// 3.46. It answers while the event loop of its thread runs.
class ScriptedAddressBooks final : public QDBusVirtualObject {
    Q_OBJECT
public:
    enum class Service { installed, missing };
    struct Source {
        QString description; // a key file
        QStringList cards = {};
        enum class Manner {
            answers,
            failsToOpen,
            isSilent,
            answersNonsense
        } manner = Manner::answers;
    };

    explicit ScriptedAddressBooks(Service service);
    ~ScriptedAddressBooks() override;

    // Empty where dbus-daemon does not start.
    [[nodiscard]] QString busAddress() const { return address_; }
    void setSource(const QString& identifier, Source source) {
        sources_.insert_or_assign(identifier, std::move(source));
    }
    // "OpenAddressBook ID", "Open ID", "GetContactList ID", "Close ID" in the order they came.
    [[nodiscard]] const QStringList& calls() const { return calls_; }

    [[nodiscard]] QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    QTemporaryDir folder_;
    QProcess daemon_;
    QString address_;
    std::map<QString, Source> sources_;
    QStringList calls_;
};

} // namespace skipnest::tests
