// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"
#include "platform/AppInfo.h"

#include <QStringList>

#include <optional>

namespace skipnest::platform {
class KeyboardLayout;
class UserDefaults;
} // namespace skipnest::platform

namespace skipnest::ui {

// How the screens write combos: as this system's people do, unless the person chose otherwise in
// the settings ("sk.comboGlyphs" in the user defaults).
[[nodiscard]] platform::ModifierStyle modifierStyle(const platform::AppInfo& app,
                                                    const platform::UserDefaults& defaults);

// One word or glyph a key, in the order control, option, shift, command, key: "Ctrl", "Alt", "J" or
// "⌃", "⌥", "J". Words are translated ("Strg"). Empty for no combo.
[[nodiscard]] QStringList comboKeys(const std::optional<model::KeyCombo>& combo,
                                    const platform::KeyboardLayout& layout,
                                    platform::ModifierStyle style);
[[nodiscard]] QStringList modifierKeys(model::ModifierFlags modifiers,
                                       platform::ModifierStyle style);
// The same in one text: "Ctrl+Alt+J" or "⌃⌥J".
[[nodiscard]] QString comboText(const std::optional<model::KeyCombo>& combo,
                                const platform::KeyboardLayout& layout,
                                platform::ModifierStyle style);

} // namespace skipnest::ui
