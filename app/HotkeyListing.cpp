// SPDX-License-Identifier: Apache-2.0
#include "app/HotkeyListing.h"

#include "platform/UsKeyboardLayout.h"

#include <QJsonObject>

#include <algorithm>

namespace skipnest::app {

using hotkeys::HotkeyManager;
using hotkeys::PlannedHotkey;

namespace {

QJsonObject entryJson(const HotkeyManager::Entry& entry) {
    const PlannedHotkey& hotkey = entry.hotkey;
    return {
        {QStringLiteral("id"), qint64(entry.id)},
        {QStringLiteral("keyCode"), hotkey.combo.keyCode},
        {QStringLiteral("modifiers"), qint64(hotkey.combo.modifiers.rawValue)},
        {QStringLiteral("words"), words(hotkey.combo, platform::UsKeyboardLayout())},
        {QStringLiteral("action"), actionName(hotkey.action)},
        {QStringLiteral("item"), hotkey.item ? QJsonValue(hotkey.item->name) : QJsonValue()},
    };
}

} // namespace

QJsonArray hotkeysJson(const std::vector<HotkeyManager::Entry>& entries) {
    QJsonArray array;
    for (const HotkeyManager::Entry& entry : entries)
        array.append(entryJson(entry));
    return array;
}

QJsonArray refusedJson(const std::vector<HotkeyManager::Entry>& entries) {
    QJsonArray array;
    for (const HotkeyManager::Entry& entry : entries) {
        QJsonObject object = entryJson(entry);
        object.insert(QStringLiteral("status"), entry.status);
        array.append(object);
    }
    return array;
}

std::vector<HotkeyManager::Entry> entriesOf(const std::vector<PlannedHotkey>& plan) {
    std::vector<HotkeyManager::Entry> entries;
    std::uint32_t id = 0;
    for (const PlannedHotkey& hotkey : plan) {
        std::erase_if(entries, [&hotkey](const HotkeyManager::Entry& earlier) {
            return earlier.hotkey.combo == hotkey.combo;
        });
        entries.push_back({++id, hotkey, 0});
    }
    return entries;
}

} // namespace skipnest::app
