// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"
#include "platform/Result.h"

#include <QString>

namespace skipnest::model {

// A combo as a person writes it: "ctrl+opt+j", "⌃⌥J", "Cmd + Shift + 4", "f5", "key110". Words are
// joined by "+", glyphs stand before a word without one, letter case and blanks around words do not
// matter. Modifiers: cmd command super meta, opt option alt, ctrl control, shift. The last word is
// the key: its character on a US keyboard, one of the names that displayString and words print, a
// spelled name (tab, return, enter, esc, delete, left, pageup …), or "key" and its code.
//
// Malformed where a word is empty, unknown or a modifier named twice; the detail names the word.
// The plus sign is only ever a joiner: the key that types it is "=".
[[nodiscard]] platform::Result<KeyCombo> parseCombo(const QString& text);

} // namespace skipnest::model
