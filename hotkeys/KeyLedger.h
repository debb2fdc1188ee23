// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/HotkeyManager.h"
#include "platform/DesktopShortcuts.h"

#include <QObject>

#include <optional>
#include <vector>

namespace skipnest::hotkeys {

// Who has which combo: every combo that we hold, that was refused to us, or that the desktop's
// settings name. One row a combo; ours first in registration order, then the refused, then the
// desktop's.
class KeyLedger final : public QObject {
    Q_OBJECT
public:
    struct Row {
        enum class Holder {
            ours,       // bound and fires
            refused,    // ours on paper; somebody else holds it (`owner` where known)
            neverFires, // bound, but the keyboard swallows it
            desktop,
        };
        model::KeyCombo combo;
        Holder holder = Holder::ours;
        // Who acts on it: our shortcut by name, or the other program. Empty where unknown, and for
        // our combos that belong to no shortcut.
        QString owner;
        QString action;   // "jump", "hide", …, or as the desktop calls it
        QString shortcut; // of a combo of ours: the shortcut that has it or would like to

        bool operator==(const Row&) const = default;
    };

    KeyLedger(const HotkeyManager& hotkeys, platform::DesktopShortcuts& desktop,
              QObject* parent = nullptr);

    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    [[nodiscard]] const platform::DesktopShortcutReading& desktop() const { return reading_; }
    // The desktop's claim to a combo, from the last reading.
    [[nodiscard]] std::optional<platform::DesktopShortcut>
    desktopShortcut(const model::KeyCombo& combo) const;

    // Reads the desktop's settings again; changed() follows.
    void refresh();
    // To be called after the registrations changed.
    void hotkeysRebuilt();

Q_SIGNALS:
    void changed();

private:
    void merge();

    const HotkeyManager& hotkeys_;
    platform::DesktopShortcuts& desktopShortcuts_;
    platform::DesktopShortcutReading reading_;
    // As of the last rebuild: during a recording nothing is registered, and the keys are ours
    // still.
    std::vector<HotkeyManager::Entry> registered_;
    std::vector<HotkeyManager::Entry> refused_;
    std::vector<Row> rows_;
};

} // namespace skipnest::hotkeys
