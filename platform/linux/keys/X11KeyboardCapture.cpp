// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/X11KeyboardCapture.h"

#include <utility>

namespace skipnest::linuxdesktop {

using platform::Availability;
using platform::CapturedKey;
using platform::EventFlags;
using platform::Failure;
using platform::KeyboardGrab;

namespace {

using namespace std::chrono_literals;

// The two halves of a repeat have one time, but may be read one after the other.
constexpr platform::Duration longestRepeatGap = 5ms;

} // namespace

X11KeyboardCapture::X11KeyboardCapture(X11Display& display, X11Keymap& keymap,
                                       platform::Scheduler& scheduler)
    : display_(display), keymap_(keymap), scheduler_(scheduler),
      grab_(display, scheduler, X11KeyboardGrab::Mode::flowing, *this) {}

Availability X11KeyboardCapture::availability() const {
    if (!keymap_.available())
        return {Availability::State::unavailable,
                QStringLiteral("The X server has no XKEYBOARD extension."),
                QStringLiteral("Start the X server with XKEYBOARD enabled.")};
    if (qgetenv("XDG_SESSION_TYPE") == "wayland")
        return {Availability::State::limited,
                QStringLiteral("This is a Wayland session: the desktop's own combos are carried "
                               "out and cannot be recorded."),
                QStringLiteral("Log in to an X11 session to record any combo.")};
    return {};
}

platform::Result<KeyboardGrab>
X11KeyboardCapture::capture(platform::KeyboardCaptureEvents& events) {
    if (!keymap_.available())
        return Failure{Failure::Kind::unavailable, availability().reason};
    if (events_ != nullptr)
        return Failure{Failure::Kind::refused,
                       QStringLiteral("another recording has the keyboard")};
    const platform::Outcome taken = grab_.take();
    if (!taken.ok())
        return taken.failure();
    events_ = &events;
    forgetPending();
    held_.readFrom(display_.connection());
    return KeyboardGrab([this, alive = std::weak_ptr(alive_), serial = ++serial_] {
        if (!alive.expired() && serial == serial_)
            release();
    });
}

void X11KeyboardCapture::forgetPending() {
    pending_.clear();
    releaseWait_.reset();
}

void X11KeyboardCapture::release() {
    events_ = nullptr;
    forgetPending();
    grab_.release();
}

void X11KeyboardCapture::keyboardLost() {
    forgetPending();
    if (auto* events = std::exchange(events_, nullptr))
        events->captureLost();
}

bool X11KeyboardCapture::keyPressed(const xcb_key_press_event_t& event) {
    const X11HeldKeys::Press press = held_.press(event.detail, event.time);
    // The first half of a repeat is taken back.
    if (press == X11HeldKeys::Press::repeatAfterRelease && releaseWait_) {
        pending_.pop_back();
        releaseWait_.reset();
    }
    if (const ModifierKey* key = keymap_.current().modifierKey(event.detail))
        modifierChanged(*key, event);
    else if (const auto keyCode = keymap_.current().keyCodeOf(event.detail))
        deliverSoon({CapturedKey::Kind::down, *keyCode, keymap_.current().flags(event.state),
                     press != X11HeldKeys::Press::first, display_.instant(event.time)});
    return false;
}

void X11KeyboardCapture::keyReleased(const xcb_key_release_event_t& event) {
    if (!held_.release(event.detail, event.time))
        return;
    if (const ModifierKey* key = keymap_.current().modifierKey(event.detail)) {
        modifierChanged(*key, event);
        return;
    }
    if (const auto keyCode = keymap_.current().keyCodeOf(event.detail))
        deliverSoon({CapturedKey::Kind::up, *keyCode, keymap_.current().flags(event.state), false,
                     display_.instant(event.time)});
}

// An event's state is the one before it.
void X11KeyboardCapture::modifierChanged(const ModifierKey& key,
                                         const xcb_key_press_event_t& event) {
    EventFlags now = keymap_.current().flags(event.state);
    if (!key.choosesLevel)
        now.bits &= ~key.flag;
    for (const auto& [keycode, _] : held_.down()) {
        const ModifierKey* held = keymap_.current().modifierKey(keycode);
        if (held != nullptr && !held->choosesLevel)
            now.bits |= held->flag;
    }
    deliverSoon({CapturedKey::Kind::modifiersChanged, key.keyCode, now, false,
                 display_.instant(event.time)});
}

void X11KeyboardCapture::deliverSoon(const CapturedKey& key) {
    pending_.push_back(key);
    if (key.kind == CapturedKey::Kind::up) {
        releaseWait_ = scheduler_.after(longestRepeatGap, "key release", [this] {
            releaseWait_.reset();
            deliver();
        });
        return;
    }
    releaseWait_.reset();
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired())
            deliver();
    });
}

void X11KeyboardCapture::deliver() {
    const auto alive = std::weak_ptr(alive_);
    const std::uint64_t serial = serial_;
    // Each may end the capture.
    while (!alive.expired() && serial == serial_ && events_ != nullptr &&
           pending_.size() > (releaseWait_ ? 1 : 0)) {
        const CapturedKey key = pending_.front();
        pending_.pop_front();
        events_->keyCaptured(key);
    }
}

} // namespace skipnest::linuxdesktop
