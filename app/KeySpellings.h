// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"

#include <QString>

#include <optional>

namespace skipnest::platform {
class KeyboardLayout;
}

namespace skipnest::app {

// A combo as the settings of other programs write it. Command is Super there and Option is Alt.
// Nothing for a key that has no name.

// "<Control><Alt>j"
[[nodiscard]] std::optional<QString> gnomeSpelling(const model::KeyCombo& combo,
                                                   const platform::KeyboardLayout& layout);
// "Ctrl+Alt+J"
[[nodiscard]] std::optional<QString> kdeSpelling(const model::KeyCombo& combo,
                                                 const platform::KeyboardLayout& layout);
// "Ctrl+Mod1+j"
[[nodiscard]] std::optional<QString> swaySpelling(const model::KeyCombo& combo,
                                                  const platform::KeyboardLayout& layout);

} // namespace skipnest::app
