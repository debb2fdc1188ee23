// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"
#include "model/KeyCombo.h"
#include "model/ShortcutItem.h"

#include <optional>
#include <vector>

namespace skipnest::hotkeys {

enum class HotkeyAction { jump, hide, nextWindow, previousWindow, voice };

// One hotkey that should exist: what is pressed and what it does. `item` is set for jump and hide.
struct PlannedHotkey {
    model::KeyCombo combo;
    HotkeyAction action = HotkeyAction::jump;
    std::optional<model::ShortcutItem> item;
};

// Every hotkey that a document asks for, in the order of registration. A combo given to an item by
// the person always wins over a derived hide combo and over the global ones. Two items with the
// same combo are both listed: registering the later one replaces the earlier.
[[nodiscard]] std::vector<PlannedHotkey> planHotkeys(const std::vector<model::ShortcutItem>& items,
                                                     const model::AppConfiguration& configuration);

// "jump", "hide", "nextWindow", "previousWindow", "voice": the names scripts see.
[[nodiscard]] QString actionName(HotkeyAction action);

} // namespace skipnest::hotkeys
