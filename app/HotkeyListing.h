// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/HotkeyManager.h"

#include <QJsonArray>

#include <vector>

namespace skipnest::app {

// Hotkeys as scripts read them: id, keyCode, modifiers, words (US key names), action, item.
[[nodiscard]] QJsonArray hotkeysJson(const std::vector<hotkeys::HotkeyManager::Entry>& entries);
// The same, with the system's status.
[[nodiscard]] QJsonArray refusedJson(const std::vector<hotkeys::HotkeyManager::Entry>& entries);

// What registering a plan leaves behind: ids from 1 in order, superseded hotkeys left out.
[[nodiscard]] std::vector<hotkeys::HotkeyManager::Entry>
entriesOf(const std::vector<hotkeys::PlannedHotkey>& plan);

} // namespace skipnest::app
