// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyboardLayout.h"
#include "platform/Scheduler.h"
#include "platform/macos/KeyboardLayoutSource.h"

#include <memory>

namespace skipnest::macos {

// The layout of the selected text input source, asked anew for every key.
class MacKeyboardLayout final : public platform::KeyboardLayout {
public:
    MacKeyboardLayout(KeyboardLayoutBridge& bridge, platform::Scheduler& scheduler);

    [[nodiscard]] std::optional<QString> character(std::uint16_t keyCode) const override;
    [[nodiscard]] platform::Observation observeChanges(std::function<void()> changed) override;

private:
    void sourceChanged();

    KeyboardLayoutBridge& bridge_;
    platform::Scheduler& scheduler_;
    platform::Observers<> observers_;
    bool observing_ = false;
    bool told_ = true;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::macos
