// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace skipnest::model {

// Keys that are called the same in every layout: function keys, navigation, editing, the keypad.
[[nodiscard]] std::optional<QString> fixedKeyName(std::uint16_t keyCode);
// The key with this fixed name, whatever the case of the letters.
[[nodiscard]] std::optional<std::uint16_t> keyWithFixedName(const QString& name);

} // namespace skipnest::model
