// SPDX-License-Identifier: Apache-2.0
#include "ui/editor/RecorderFace.h"

#include "app/AppDelegate.h"
#include "platform/KeyboardLayout.h"
#include "ui/ComboWording.h"
#include "ui/editor/RecorderWording.h"

namespace skipnest::ui {

using hotkeys::KeyRecorderViewModel;
using model::KeyCombo;

RecorderFace::RecorderFace(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), recorder_(agent.ports(), agent.hotkeys(), agent.viewModel()),
      layoutChanges_(agent.ports().keyboardLayout.observeChanges([this] { Q_EMIT changed(); })) {
    for (const auto signal :
         {&KeyRecorderViewModel::currentComboChanged, &KeyRecorderViewModel::recordingChanged,
          &KeyRecorderViewModel::conflictChanged, &KeyRecorderViewModel::warningChanged,
          &KeyRecorderViewModel::heldChanged})
        connect(&recorder_, signal, this, &RecorderFace::changed);
    connect(&recorder_, &KeyRecorderViewModel::recorded, this, [this] {
        isRecorded_ = true;
        Q_EMIT changed();
        Q_EMIT chosen();
    });
    // How modifiers are written is a setting.
    connect(&agent.viewModel(), &model::ShortcutListViewModel::settingsChanged, this,
            &RecorderFace::changed);
}

platform::ModifierStyle RecorderFace::style() const {
    return modifierStyle(agent_.ports().app, agent_.ports().defaults);
}

void RecorderFace::setCombo(std::optional<KeyCombo> combo) {
    isRecorded_ = false;
    recorder_.setCurrentCombo(combo);
    Q_EMIT changed();
}

QStringList RecorderFace::keys() const {
    return comboKeys(combo(), agent_.ports().keyboardLayout, style());
}

QStringList RecorderFace::heldKeys() const {
    if (const auto key = recorder_.heldKey())
        return comboKeys(KeyCombo{*key, recorder_.heldModifiers()}, agent_.ports().keyboardLayout,
                         style());
    return modifierKeys(recorder_.heldModifiers(), style());
}

QString RecorderFace::problem() const {
    const auto conflict = recorder_.conflict();
    if (!conflict)
        return {};
    return RecorderWording(agent_.ports().keyboardLayout, style())
        .conflict(*conflict, agent_.ports().keyboardCapture.availability());
}

QString RecorderFace::warning() const {
    const RecorderWording wording(agent_.ports().keyboardLayout, style());
    if (const auto warning = recorder_.warning())
        return wording.warning(*warning);
    return isRecorded_ && combo() ? wording.commonCommand(*combo()) : QString();
}

void RecorderFace::start() {
    if (isRecording())
        return;
    Q_EMIT starting();
    recorder_.startRecording();
}

void RecorderFace::stop() {
    recorder_.stopRecording();
}

void RecorderFace::clear() {
    stop();
    if (!combo())
        return;
    setCombo(std::nullopt);
    Q_EMIT chosen();
}

} // namespace skipnest::ui
