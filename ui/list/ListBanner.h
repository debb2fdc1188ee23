// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/ReadyBindings.h"
#include "platform/Availability.h"

#include <QDate>
#include <QObject>
#include <QStringList>
#include <qqmlintegration.h>

#include <optional>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// The one thing above the list that the person should know: the configuration was damaged or has
// just been restored, keys are not bound, the last run ended by a crash whose report waits for an
// answer, an update is there. The first of these that holds is shown; closing it shows the next.
class ListBanner final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the list")
    // "danger", "warning", "info" or "success", as MessageLine has them.
    Q_PROPERTY(QString kind READ kind NOTIFY changed)
    // Empty while there is nothing to say.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    // What can be done about it; act() takes the index.
    Q_PROPERTY(QStringList actions READ actions NOTIFY changed)
public:
    enum class Subject { none, damaged, restored, noHotkeys, notBound, crash, update };
    Q_ENUM(Subject)

    explicit ListBanner(app::AppDelegate& agent, QObject* parent = nullptr);

    // Looks again at all that can change without this program's doing.
    void refresh();

    [[nodiscard]] Subject subject() const;
    [[nodiscard]] QString kind() const;
    [[nodiscard]] QString text() const;
    [[nodiscard]] QStringList actions() const;

    Q_INVOKABLE void act(int index);
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void changed();
    void crashReportWanted();

private:
    void lookAtStorage();
    void restore();
    void copyBindings(app::BindingsFor desktop);
    [[nodiscard]] QString notBoundText() const;
    [[nodiscard]] QString updateText() const;

    app::AppDelegate& agent_;
    bool isStorageKnown_ = false;
    bool isDamaged_ = false;
    bool isSetAside_ = false;
    std::optional<QDate> snapshot_; // the newest one that can be used
    QString restoreFailure_;
    std::optional<QDate> restored_;
    platform::Availability hotkeys_;
    bool areHotkeysDismissed_ = false;
    std::optional<app::BindingsFor> copied_;
    qsizetype refused_ = 0;
    qsizetype refusedWhenDismissed_ = 0;
    bool isCrashDismissed_ = false;
    std::optional<QString> dismissedVersion_;
};

} // namespace skipnest::ui
