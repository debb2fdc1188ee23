// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimKeyboardCapture.h"

namespace skipnest::sim {

using platform::CapturedKey;
using platform::EventFlags;
using platform::Failure;
using platform::KeyboardGrab;

void SimKeyboardCapture::press(std::uint16_t keyCode, EventFlags flags) const {
    // Each event may end the capture.
    for (const auto kind : {CapturedKey::Kind::down, CapturedKey::Kind::up})
        if (events_ != nullptr)
            events_->keyCaptured({kind, keyCode, flags, false, scheduler_.now()});
}

void SimKeyboardCapture::changeModifiers(std::uint16_t keyCode, EventFlags flags) const {
    if (events_ != nullptr)
        events_->keyCaptured(
            {CapturedKey::Kind::modifiersChanged, keyCode, flags, false, scheduler_.now()});
}

void SimKeyboardCapture::takeAway() {
    if (auto* events = std::exchange(events_, nullptr))
        events->captureLost();
}

platform::Result<KeyboardGrab>
SimKeyboardCapture::capture(platform::KeyboardCaptureEvents& events) {
    if (refused_ || events_ != nullptr)
        return Failure{Failure::Kind::refused,
                       QStringLiteral("another program holds the keyboard")};
    events_ = &events;
    return KeyboardGrab([this, alive = std::weak_ptr<bool>(alive_), mine = &events] {
        if (!alive.expired() && events_ == mine)
            events_ = nullptr;
    });
}

void SimDesktopShortcuts::read(std::function<void(platform::DesktopShortcutReading)> done) {
    scheduler_.post([done = std::move(done), reading = reading_] { done(reading); });
}

} // namespace skipnest::sim
