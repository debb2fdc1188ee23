// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacHotkeys.h"

#include "platform/macos/EventTime.h"

#include <utility>

namespace skipnest::macos {
namespace {

// eventInternalErr: stands in where the system reports success but hands out no reference.
constexpr std::int32_t registeredWithoutReference = -9868;

} // namespace

MacHotkeys::MacHotkeys(HotkeyBridge& bridge, platform::Scheduler& scheduler)
    : bridge_(bridge), scheduler_(scheduler) {}

MacHotkeys::~MacHotkeys() {
    if (installed_)
        bridge_.removeHandler();
}

platform::Availability MacHotkeys::availability() const {
    return {};
}

std::int32_t MacHotkeys::installHandler(platform::HotkeyEvents* events) {
    events_ = events;
    if (events == nullptr) {
        if (std::exchange(installed_, false))
            bridge_.removeHandler();
        return 0;
    }
    if (installed_)
        return 0;
    const std::int32_t status = bridge_.installHandler(
        [this](std::uint32_t id, double ageSeconds) { return pressed(id, ageSeconds); });
    installed_ = status == 0;
    return status;
}

std::vector<platform::HotkeyRegistration>
MacHotkeys::registerHotkeys(const std::vector<platform::HotkeyRequest>& requests) {
    std::vector<platform::HotkeyRegistration> registrations;
    registrations.reserve(requests.size());
    for (const platform::HotkeyRequest& request : requests) {
        HotkeyAnswer answer =
            bridge_.registerHotkey(request.id.value, request.keyCode, request.carbonModifiers);
        platform::HotkeyRegistration& registration = registrations.emplace_back();
        registration.status = answer.status;
        if (answer.status == 0 && answer.hotkey == nullptr)
            registration.status = registeredWithoutReference;
        if (registration.status == 0) {
            std::shared_ptr<RegisteredHotkey> hotkey = std::move(answer.hotkey);
            registration.grab = platform::HotkeyGrab([hotkey]() mutable { hotkey.reset(); });
        } else {
            refused_ = true;
        }
    }
    return registrations;
}

platform::KeyDeliveryHold MacHotkeys::holdKeyDelivery() {
    return {};
}

void MacHotkeys::otherProgramEnded() {
    if (!std::exchange(refused_, false))
        return;
    scheduler_.post([this, alive = std::weak_ptr<bool>(alive_)] {
        if (!alive.expired() && events_ != nullptr)
            events_->refusedHotkeysMayBeFree();
    });
}

bool MacHotkeys::pressed(std::uint32_t id, double ageSeconds) {
    if (events_ == nullptr)
        return false;
    return events_->hotkeyPressed({id}, eventTime(scheduler_, ageSeconds)) ==
           platform::HotkeyHandling::handled;
}

} // namespace skipnest::macos
