// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"
#include "model/RecordId.h"
#include "model/ShortcutListViewModel.h"
#include "platform/DesktopShortcuts.h"
#include "platform/KeyboardCapture.h"
#include "platform/Ports.h"

#include <QObject>
#include <QPointer>

#include <cstdint>
#include <optional>

namespace skipnest::hotkeys {

class HotkeyManager;

// Records the combo that the person presses for a shortcut, and refuses combos that cannot work.
//
// While it records, the list's hotkeys are suspended and unregistered and the whole keyboard is
// ours, so that our own combos and the desktop's arrive here and are refused by name instead of
// being carried out. Both end with the recording, on every path.
class KeyRecorderViewModel final : public QObject, private platform::KeyboardCaptureEvents {
    Q_OBJECT
    Q_PROPERTY(bool isRecording READ isRecording NOTIFY recordingChanged)
    Q_PROPERTY(QString conflictMessage READ conflictMessage NOTIFY conflictChanged)
public:
    // Why the last press was refused, for screens that say it in their own words. `combo` is the
    // one refused, `name` what holds it: a shortcut's name, or the desktop's program.
    struct Conflict {
        enum class Kind {
            noModifier,
            systemShortcut,
            otherShortcut,
            desktop,       // the desktop refused a trial registration
            keyboardTaken, // the keyboard could not be had, so nothing can be recorded
        };
        Kind kind = Kind::noModifier;
        model::KeyCombo combo;
        QString name;   // empty where unknown
        QString action; // what the desktop does with it, as the desktop calls it; may be empty

        bool operator==(const Conflict&) const = default;
    };
    // Accepted all the same.
    struct Warning {
        enum class Kind {
            commonCommand, // overrides "Save" and the like; `text` is the whole sentence
            neverFires,    // virtual terminal keys: registering works, no press arrives
            desktopUses,   // the desktop's settings name it though the trial went through
            hiddenByOther, // equals a derived hide combo, window cycling or the voice combo
        };
        Kind kind = Kind::commonCommand;
        QString text;  // fixed English, a whole sentence
        QString owner; // the desktop's program, or the shortcut whose hide combo it is
        // As the desktop calls it; for hiddenByOther what gives way: "hide", "nextWindow",
        // "previousWindow" or "voice".
        QString action;
        model::KeyCombo combo;

        bool operator==(const Warning&) const = default;
    };

    KeyRecorderViewModel(const platform::Ports& ports, HotkeyManager& hotkeys,
                         model::ShortcutListViewModel& shortcutListViewModel,
                         QObject* parent = nullptr);
    ~KeyRecorderViewModel() override;

    [[nodiscard]] std::optional<model::KeyCombo> currentCombo() const {
        return state_.currentCombo;
    }
    [[nodiscard]] bool isRecording() const { return state_.isRecording; }
    // The fixed English text, with the combo in words; empty when none.
    [[nodiscard]] QString conflictMessage() const;
    [[nodiscard]] std::optional<Conflict> conflict() const { return state_.conflict; }
    // About currentCombo(), once it was accepted. What the desktop's settings say may be known only
    // a moment after it.
    [[nodiscard]] std::optional<Warning> warning() const { return state_.warning; }
    // What is held down right now during a recording: modifiers, and the key once one is down.
    [[nodiscard]] model::ModifierFlags heldModifiers() const { return state_.heldModifiers; }
    [[nodiscard]] std::optional<std::uint16_t> heldKey() const { return state_.heldKey; }

    // The shortcut being edited: its own combos never count as a conflict.
    void setEditingItemId(std::optional<model::RecordId> id) { editingItemId_ = id; }
    // The combo to start from (or none), without recording. Clears conflict and warning.
    void setCurrentCombo(std::optional<model::KeyCombo> combo);

    // Where the keyboard cannot be had, the conflict says so and nothing is recorded. A refusal
    // during a recording leaves it going: the person simply presses another combo.
    void startRecording();
    void stopRecording();

    // "⌘S is “Save” in most apps. …" for a combo that overrides a common command; else nothing.
    [[nodiscard]] std::optional<QString> commandWarning(const model::KeyCombo& combo) const;

Q_SIGNALS:
    void currentComboChanged();
    void recordingChanged();
    void conflictChanged();
    void warningChanged();
    void heldChanged();
    // A combo was accepted by pressing it; the recording is over.
    void recorded();

private:
    // All that a screen shows of a recording.
    struct State {
        std::optional<model::KeyCombo> currentCombo;
        bool isRecording = false;
        std::optional<Conflict> conflict;
        std::optional<Warning> warning;
        model::ModifierFlags heldModifiers;
        std::optional<std::uint16_t> heldKey;
        QString whyNoKeyboard; // beside Conflict::Kind::keyboardTaken
    };
    using Signal = void (KeyRecorderViewModel::*)();

    void keyCaptured(const platform::CapturedKey& key) override;
    void captureLost() override;

    void pressed(const model::KeyCombo& combo, State next);
    [[nodiscard]] std::optional<Conflict> conflictOf(const model::KeyCombo& combo) const;
    [[nodiscard]] bool isRefusedByDesktop(const model::KeyCombo& combo) const;
    [[nodiscard]] const platform::DesktopShortcut*
    desktopShortcut(const model::KeyCombo& combo) const;
    [[nodiscard]] std::optional<Warning> warningAbout(const model::KeyCombo& combo) const;
    [[nodiscard]] std::optional<Warning> desktopWarning(const model::KeyCombo& combo) const;
    [[nodiscard]] std::optional<Warning> hiddenWarning(const model::KeyCombo& combo) const;

    void readDesktop();
    void suspendHotkeys();
    void resumeHotkeys();
    void become(State next);
    void finish(State next, Signal last = nullptr);
    void announce(const State& before, Signal last = nullptr);

    platform::Ports ports_;
    HotkeyManager& hotkeys_;
    QPointer<model::ShortcutListViewModel> shortcutListViewModel_;
    std::optional<model::RecordId> editingItemId_;
    State state_;
    // The current combo was pressed here, so that a late reading may still warn about it.
    bool isComboPressed_ = false;
    // The suspension is ours to end: quick capture has its own.
    bool hasSuspended_ = false;
    platform::DesktopShortcutReading desktop_;
    platform::KeyboardGrab localMonitor_;
};

} // namespace skipnest::hotkeys
