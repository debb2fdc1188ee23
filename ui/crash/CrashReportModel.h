// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QString>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// The report of a crash that waits until the person has seen it: all of it, and their answer.
class CrashReportModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    Q_PROPERTY(bool isWaiting READ isWaiting NOTIFY changed)
    // Everything that would be sent, a field a line.
    Q_PROPERTY(QString preview READ preview NOTIFY changed)
public:
    explicit CrashReportModel(app::AppDelegate& agent, QObject* parent = nullptr);

    [[nodiscard]] bool isWaiting() const;
    [[nodiscard]] QString preview() const;

    Q_INVOKABLE void send();
    Q_INVOKABLE void discard();

Q_SIGNALS:
    void changed();
    // There is nothing left to ask.
    void answered();

private:
    app::AppDelegate& agent_;
};

} // namespace skipnest::ui
