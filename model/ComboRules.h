// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"

#include <QString>

#include <optional>

namespace skipnest::platform {
class KeyboardLayout;
}

namespace skipnest::model {

// The Escape key ends a recording, with or without modifiers: it is never a combo.
inline constexpr std::uint16_t escapeKeyCode = 53;

// Combos that the system keeps for itself (application switcher, screenshots, spaces, quit …).
[[nodiscard]] bool isSystemShortcut(const KeyCombo& combo);

// Why this combo can never be a shortcut, as the person reads it: it has no modifier, or it is one
// of the system's. Escape has no refusal.
[[nodiscard]] std::optional<QString> refusal(const KeyCombo& combo,
                                             const platform::KeyboardLayout& layout);

// What the person should know before taking a combo that most applications use for a command of
// their own. Only for Command and Shift-Command; it refuses nothing.
[[nodiscard]] std::optional<QString> commandWarning(const KeyCombo& combo,
                                                    const platform::KeyboardLayout& layout);

} // namespace skipnest::model
