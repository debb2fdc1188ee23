// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/KeyRecorderViewModel.h"
#include "platform/AppInfo.h"
#include "platform/Observers.h"

#include <QObject>
#include <QStringList>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// One combo that a person can record, as ComboField shows it.
class RecorderFace final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the model of its screen")
    // The combo as keys ("Ctrl", "Alt", "J"); empty where there is none.
    Q_PROPERTY(QStringList keys READ keys NOTIFY changed)
    // What is held right now while recording.
    Q_PROPERTY(QStringList heldKeys READ heldKeys NOTIFY changed)
    Q_PROPERTY(bool recording READ isRecording NOTIFY changed)
    // Why the last press was refused; empty where it was not.
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    // What to know about the combo just recorded.
    Q_PROPERTY(QString warning READ warning NOTIFY changed)
public:
    explicit RecorderFace(app::AppDelegate& agent, QObject* parent = nullptr);

    [[nodiscard]] std::optional<model::KeyCombo> combo() const { return recorder_.currentCombo(); }
    // The combo to start from, with no problem and no warning; nobody is told but changed().
    void setCombo(std::optional<model::KeyCombo> combo);
    // The record whose own combos are no conflict.
    void setEditingItemId(std::optional<model::RecordId> id) { recorder_.setEditingItemId(id); }

    [[nodiscard]] QStringList keys() const;
    [[nodiscard]] QStringList heldKeys() const;
    [[nodiscard]] bool isRecording() const { return recorder_.isRecording(); }
    [[nodiscard]] QString problem() const;
    [[nodiscard]] QString warning() const;

    Q_INVOKABLE void start();
    Q_INVOKABLE void stop();
    Q_INVOKABLE void clear();

Q_SIGNALS:
    // Anything that is shown.
    void changed();
    // The person recorded a combo, or cleared it; combo() is the new one.
    void chosen();
    // Before the keyboard is asked for: of several recordings only one can have it.
    void starting();

private:
    [[nodiscard]] platform::ModifierStyle style() const;

    app::AppDelegate& agent_;
    hotkeys::KeyRecorderViewModel recorder_;
    bool isRecorded_ = false; // the combo was pressed here and did not come from a record
    platform::Observation layoutChanges_;
};

} // namespace skipnest::ui
