// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/KeyLedger.h"

#include <QPointer>

#include <algorithm>
#include <unordered_set>

namespace skipnest::hotkeys {

using model::KeyCombo;
using model::ModifierFlags;
using platform::DesktopShortcut;

namespace {

KeyCombo comboOf(const DesktopShortcut& shortcut) {
    ModifierFlags modifiers;
    for (const ModifierFlags flag : {ModifierFlags::command, ModifierFlags::option,
                                     ModifierFlags::control, ModifierFlags::shift}) {
        if ((shortcut.carbonModifiers & flag.carbonModifiers()) != 0)
            modifiers = modifiers | flag;
    }
    return {shortcut.keyCode, modifiers};
}

QString shortcutName(const PlannedHotkey& hotkey) {
    return hotkey.item ? hotkey.item->name : QString();
}

} // namespace

KeyLedger::KeyLedger(const HotkeyManager& hotkeys, platform::DesktopShortcuts& desktop,
                     QObject* parent)
    : QObject(parent), hotkeys_(hotkeys), desktopShortcuts_(desktop),
      registered_(hotkeys.registered()), refused_(hotkeys.refused()) {
    merge();
}

std::optional<DesktopShortcut> KeyLedger::desktopShortcut(const KeyCombo& combo) const {
    const auto found = std::ranges::find_if(
        reading_.shortcuts, [&](const DesktopShortcut& held) { return comboOf(held) == combo; });
    if (found == reading_.shortcuts.end())
        return std::nullopt;
    return *found;
}

void KeyLedger::refresh() {
    desktopShortcuts_.read(
        [self = QPointer<KeyLedger>(this)](platform::DesktopShortcutReading reading) {
            if (!self)
                return;
            self->reading_ = std::move(reading);
            self->merge();
            Q_EMIT self->changed();
        });
}

void KeyLedger::hotkeysRebuilt() {
    registered_ = hotkeys_.registered();
    refused_ = hotkeys_.refused();
    merge();
    Q_EMIT changed();
}

void KeyLedger::merge() {
    using Holder = Row::Holder;
    using Effect = DesktopShortcut::Effect;
    std::vector<Row> rows;
    std::unordered_set<KeyCombo> listed;
    for (const HotkeyManager::Entry& entry : registered_) {
        const QString name = shortcutName(entry.hotkey);
        const auto claim = desktopShortcut(entry.hotkey.combo);
        const bool isSwallowed = claim && claim->effect == Effect::neverFires;
        rows.push_back({entry.hotkey.combo, isSwallowed ? Holder::neverFires : Holder::ours,
                        isSwallowed ? claim->owner : name, actionName(entry.hotkey.action), name});
        listed.insert(entry.hotkey.combo);
    }
    for (const HotkeyManager::Entry& entry : refused_) {
        const auto claim = desktopShortcut(entry.hotkey.combo);
        rows.push_back({entry.hotkey.combo, Holder::refused, claim ? claim->owner : QString(),
                        actionName(entry.hotkey.action), shortcutName(entry.hotkey)});
        listed.insert(entry.hotkey.combo);
    }
    for (const DesktopShortcut& shortcut : reading_.shortcuts) {
        const KeyCombo combo = comboOf(shortcut);
        if (listed.insert(combo).second)
            rows.push_back({combo, Holder::desktop, shortcut.owner, shortcut.action, {}});
    }
    rows_ = std::move(rows);
}

} // namespace skipnest::hotkeys
