// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace skipnest::platform {

// Names of keys in the layout that the person types with.
class KeyboardLayout {
public:
    virtual ~KeyboardLayout() = default;

    // The character that the key (kVK_* code) types without modifiers, as it stands in the layout
    // (lower case); nothing for keys that type none.
    [[nodiscard]] virtual std::optional<QString> character(std::uint16_t keyCode) const = 0;

    // Told after the layout or its active group has changed; a burst of changes is told once.
    [[nodiscard]] virtual Observation observeChanges(std::function<void()> changed) = 0;
};

} // namespace skipnest::platform
