// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/RecordId.h"
#include "platform/Observers.h"
#include "platform/Scheduler.h"

#include <QObject>
#include <QStringList>
#include <qqmlintegration.h>

#include <optional>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// The step in which the person presses their shortcut for the first time. A press takes them to its
// target, which covers our window; it comes back by itself after a moment long enough to see where
// they arrived, because a beginner does not know yet how to find it again.
class FirstPress final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the onboarding")
    // "waiting" for the press, "arrived", "refused" (somebody else holds the combo), or
    // "boundByDesktop" (this desktop gives no program such keys).
    Q_PROPERTY(QString state READ stateName NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(QStringList keys READ keys NOTIFY changed)
    // Why no key can be bound here, in the words of the backend.
    Q_PROPERTY(QString reason READ reason NOTIFY changed)
public:
    explicit FirstPress(app::AppDelegate& agent, QObject* parent = nullptr);

    // With the record to try, which has a combo.
    void start(const model::RecordId& id);
    void stop();

    [[nodiscard]] QString stateName() const;
    [[nodiscard]] QString name() const { return name_; }
    [[nodiscard]] QString path() const { return path_; }
    [[nodiscard]] QStringList keys() const { return keys_; }
    [[nodiscard]] QString reason() const;

    // The bindings of all shortcuts for "gnome", "kde" or "sway", onto the clipboard.
    Q_INVOKABLE void copyBindings(const QString& desktop);

Q_SIGNALS:
    void changed();

private:
    enum class State { waiting, arrived, refused, boundByDesktop };

    void enter(State state);
    void pressed();
    [[nodiscard]] State stateAtStart() const;

    app::AppDelegate& agent_;
    State state_ = State::waiting;
    std::optional<model::RecordId> id_;
    QString name_;
    QString path_;
    QStringList keys_;
    platform::Observation presses_;
    platform::Timer comeBack_;
};

} // namespace skipnest::ui
