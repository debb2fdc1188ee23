// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"
#include "platform/EventFlags.h"
#include "platform/KeyEvents.h"

#include <cstdint>

namespace skipnest::switcher {

enum class SwitcherKey { right, left, down, up, next, pick, leave, erase, other };

// What a key (kVK_* numbering) means to the bar.
[[nodiscard]] SwitcherKey switcherKey(std::uint16_t keyCode);

// Whether the key writes into the search: it types characters, and is no command of a program.
[[nodiscard]] bool isTyping(const platform::KeyPress& press);

// The modifiers of a shortcut as keyboard events have them, and back.
[[nodiscard]] platform::EventFlags eventFlags(model::ModifierFlags modifiers);
[[nodiscard]] model::ModifierFlags modifierFlags(platform::EventFlags flags);

} // namespace skipnest::switcher
