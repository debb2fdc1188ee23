// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/EventFlags.h"
#include "platform/Owned.h"
#include "platform/Result.h"
#include "platform/Scheduler.h"

#include <cstdint>

namespace skipnest::platform {

struct CapturedKey {
    enum class Kind { down, up, modifiersChanged };
    Kind kind = Kind::down;
    std::uint16_t keyCode = 0; // kVK_* numbering
    EventFlags flags;          // modifiers held; for modifiersChanged those held after it
    bool isRepeat = false;
    Instant time;
};

class KeyboardCaptureEvents {
public:
    virtual ~KeyboardCaptureEvents() = default;
    virtual void keyCaptured(const CapturedKey& key) = 0;
    // The system took the keyboard away (screen lock, session switch). The capture is over; its
    // handle may still be dropped.
    virtual void captureLost() = 0;
};

using KeyboardGrab = Owned<struct KeyboardGrabTag>;

// The whole keyboard for us while a combo is recorded: every key reaches `events` and nothing else,
// the desktop's own combos included. macOS: a local monitor of our own popover. X11: an active
// grab.
class KeyboardCapture {
public:
    virtual ~KeyboardCapture() = default;

    [[nodiscard]] virtual Availability availability() const = 0;

    // Fails with `refused` where another program holds the keyboard. One capture at a time. Our
    // registered hotkeys do not fire during it. `events` must outlive the grab.
    [[nodiscard]] virtual Result<KeyboardGrab> capture(KeyboardCaptureEvents& events) = 0;
};

} // namespace skipnest::platform
