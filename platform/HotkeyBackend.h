// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Owned.h"
#include "platform/Scheduler.h"

#include <compare>
#include <cstdint>
#include <vector>

namespace skipnest::platform {

struct HotkeyIdentifier {
    std::uint32_t value = 0;
    auto operator<=>(const HotkeyIdentifier&) const = default;
};

// One combo that the system delivers to us whatever application is in front.
struct HotkeyRequest {
    HotkeyIdentifier id;
    std::uint16_t keyCode = 0;         // kVK_* numbering: a physical key
    std::uint32_t carbonModifiers = 0; // CarbonModifiers
};

using HotkeyGrab = Owned<struct HotkeyGrabTag>;

// What the system said to a request. Status 0 (noErr) comes with a grab; any other status is the
// system's own error number (X11: the error code, 10 = BadAccess: another client holds the combo;
// 2 = BadValue: this keyboard has no such key).
struct HotkeyRegistration {
    std::int32_t status = 0;
    HotkeyGrab grab;
};

enum class HotkeyHandling { handled, notHandled };

class HotkeyEvents {
public:
    virtual ~HotkeyEvents() = default;
    // A registered combo went down. `time` is when the system saw it.
    virtual HotkeyHandling hotkeyPressed(HotkeyIdentifier id, Instant time) = 0;
    // A combo that was refused may be free now (another program ended, the keyboard changed).
    virtual void refusedHotkeysMayBeFree() = 0;
};

using KeyDeliveryHold = Owned<struct KeyDeliveryHoldTag>;

// Global hotkeys. Auto-repeat of a held combo is no press.
class HotkeyBackend {
public:
    virtual ~HotkeyBackend() = default;

    [[nodiscard]] virtual Availability availability() const = 0;

    // Where presses go; at most one. Returns the system's status, 0 when installed. `events` must
    // outlive the backend or be replaced by null.
    [[nodiscard]] virtual std::int32_t installHandler(HotkeyEvents* events) = 0;

    // One answer a request, in the same order. Given together, they cost one round trip to the
    // system: a hundred combos are registered in the time of one.
    [[nodiscard]] virtual std::vector<HotkeyRegistration>
    registerHotkeys(const std::vector<HotkeyRequest>& requests) = 0;

    // Returns when the system has carried out what it was asked: combos whose grabs were dropped
    // are free for other processes from then on. Costs a round trip.
    virtual void waitUntilReleased() = 0;

    // Holds back every key press on the desktop, in order, until dropped: what is typed while one
    // instance hands its grabs to the next reaches the next one. Never keep it longer than 300 ms.
    // Empty where the system has no such means.
    [[nodiscard]] virtual KeyDeliveryHold holdKeyDelivery() = 0;
};

} // namespace skipnest::platform
