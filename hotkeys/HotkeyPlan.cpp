// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/HotkeyPlan.h"

#include <unordered_set>

namespace skipnest::hotkeys {

using model::AppConfiguration;
using model::KeyCombo;
using model::ModifierFlags;
using model::ShortcutItem;

namespace {

// The item's combo plus the hide modifier, or nothing where that would change nothing.
std::optional<KeyCombo> derivedHideCombo(const ShortcutItem& item,
                                         const AppConfiguration& configuration) {
    if (!item.keyCombo || !configuration.shiftToHideOrDefault())
        return std::nullopt;
    const ModifierFlags hide = configuration.hideModifierOrDefault();
    const ModifierFlags present = item.keyCombo->modifiers;
    if (present.contains(hide))
        return std::nullopt;
    return KeyCombo{item.keyCombo->keyCode, present | hide};
}

} // namespace

std::vector<PlannedHotkey> planHotkeys(const std::vector<ShortcutItem>& items,
                                       const AppConfiguration& configuration) {
    std::unordered_set<KeyCombo> taken;
    for (const ShortcutItem& item : items) {
        if (item.keyCombo)
            taken.insert(*item.keyCombo);
        if (item.hideKeyCombo)
            taken.insert(*item.hideKeyCombo);
    }

    std::vector<PlannedHotkey> plan;
    const auto addUnlessTaken = [&](const KeyCombo& combo, HotkeyAction action,
                                    std::optional<ShortcutItem> item) {
        if (!taken.contains(combo))
            plan.push_back({combo, action, std::move(item)});
    };
    for (const ShortcutItem& item : items) {
        if (item.keyCombo)
            plan.push_back({*item.keyCombo, HotkeyAction::jump, item});
        if (item.hideKeyCombo)
            plan.push_back({*item.hideKeyCombo, HotkeyAction::hide, item});
        else if (const auto derived = derivedHideCombo(item, configuration))
            addUnlessTaken(*derived, HotkeyAction::hide, item);
    }
    if (configuration.windowCyclingOrDefault()) {
        addUnlessTaken(configuration.nextWindowComboOrDefault(), HotkeyAction::nextWindow, {});
        addUnlessTaken(configuration.prevWindowComboOrDefault(), HotkeyAction::previousWindow, {});
    }
    if (configuration.voiceSearchOrDefault())
        addUnlessTaken(configuration.voiceComboOrDefault(), HotkeyAction::voice, {});
    return plan;
}

QString actionName(HotkeyAction action) {
    switch (action) {
    case HotkeyAction::jump:
        return QStringLiteral("jump");
    case HotkeyAction::hide:
        return QStringLiteral("hide");
    case HotkeyAction::nextWindow:
        return QStringLiteral("nextWindow");
    case HotkeyAction::previousWindow:
        return QStringLiteral("previousWindow");
    case HotkeyAction::voice:
        return QStringLiteral("voice");
    }
    Q_UNREACHABLE();
}

} // namespace skipnest::hotkeys
