// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/HotkeyBackend.h"

#include <compare>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace skipnest::sim {

// A physical key (kVK_*) with the modifiers of CarbonModifiers.
struct HotkeyCombo {
    std::uint16_t keyCode = 0;
    std::uint32_t carbonModifiers = 0;

    auto operator<=>(const HotkeyCombo&) const = default;
};

// The hotkeys of the simulated desktop. A combo that is registered already is refused with the
// system's own "exists" status: a registration that leaked shows up as a refusal.
class SimHotkeys final : public platform::HotkeyBackend {
public:
    static constexpr std::int32_t alreadyRegistered = -9878;

    explicit SimHotkeys(platform::Scheduler& scheduler);
    ~SimHotkeys() override;
    SimHotkeys(const SimHotkeys&) = delete;
    SimHotkeys& operator=(const SimHotkeys&) = delete;

    // The combo goes down. While delivery is held back the press waits; otherwise its handler runs
    // before this returns. True where a registration took it.
    bool press(HotkeyCombo combo, platform::Instant seen);

    // Requests for this combo get this status from now on; a registration that stands, stands.
    // Status 0 gives the combo free again and tells the handler.
    void refuse(HotkeyCombo combo, std::int32_t status);
    // The next handlers are not installed: their installation gets this status, 0 ends it.
    void refuseHandler(std::int32_t status) { handlerStatus_ = status; }
    void setAvailability(const platform::Availability& availability);

    // What is registered, in the order of registration.
    [[nodiscard]] std::vector<platform::HotkeyRequest> registered() const;

    [[nodiscard]] platform::Availability availability() const override { return availability_; }
    [[nodiscard]] std::int32_t installHandler(platform::HotkeyEvents* events) override;
    [[nodiscard]] std::vector<platform::HotkeyRegistration>
    registerHotkeys(const std::vector<platform::HotkeyRequest>& requests) override;
    void waitUntilReleased() override {}
    [[nodiscard]] platform::KeyDeliveryHold holdKeyDelivery() override;

private:
    struct State;
    [[nodiscard]] platform::HotkeyRegistration registerOne(const platform::HotkeyRequest& request);

    platform::Scheduler& scheduler_;
    platform::Availability availability_;
    std::int32_t handlerStatus_ = 0;
    std::map<HotkeyCombo, std::int32_t> refusals_;
    std::shared_ptr<State> state_;
};

} // namespace skipnest::sim
