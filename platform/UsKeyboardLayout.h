// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyboardLayout.h"

namespace skipnest::platform {

// The fixed US layout: what the command line prints, what the simulated desktop has, and what is
// used where no layout can be read.
class UsKeyboardLayout final : public KeyboardLayout {
public:
    [[nodiscard]] std::optional<QString> character(std::uint16_t keyCode) const override;
    [[nodiscard]] Observation observeChanges(std::function<void()> changed) override;

    // The key that types this character (lower case) without modifiers.
    [[nodiscard]] static std::optional<std::uint16_t> keyCode(QChar character);
};

} // namespace skipnest::platform
