// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/HotkeyBackend.h"
#include "platform/macos/CarbonHotkeys.h"

#include <memory>

namespace skipnest::macos {

// Global hotkeys by the Carbon event manager, the only interface of macOS that needs no permission
// for them. It has no batch: a request costs one call into the window server.
class MacHotkeys final : public platform::HotkeyBackend {
public:
    MacHotkeys(HotkeyBridge& bridge, platform::Scheduler& scheduler);
    ~MacHotkeys() override;

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] std::int32_t installHandler(platform::HotkeyEvents* events) override;
    [[nodiscard]] std::vector<platform::HotkeyRegistration>
    registerHotkeys(const std::vector<platform::HotkeyRequest>& requests) override;
    // Empty: only an active event tap could hold keys back, and one that is late is cut off.
    // Unregistering takes effect in the call.
    void waitUntilReleased() override {}
    [[nodiscard]] platform::KeyDeliveryHold holdKeyDelivery() override;

    // Another program has ended and may have given back a combo that was refused to us.
    void otherProgramEnded();

private:
    bool pressed(std::uint32_t id, double ageSeconds);

    HotkeyBridge& bridge_;
    platform::Scheduler& scheduler_;
    platform::HotkeyEvents* events_ = nullptr;
    bool installed_ = false;
    bool refused_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::macos
