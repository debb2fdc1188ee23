// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/X11KeyboardCapture.h"

#include <QCoreApplication>

#include <algorithm>
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
// xset goes up to 255 repeats a second.
constexpr xcb_timestamp_t shortestRepeatMilliseconds = 3;

std::optional<std::uint16_t> keyCodeAt(const KeyboardMap& map, xcb_keycode_t keycode) {
    const auto found = std::ranges::find(map.keycodes, keycode);
    if (found == map.keycodes.end())
        return std::nullopt;
    return static_cast<std::uint16_t>(found - map.keycodes.begin());
}

} // namespace

X11KeyboardCapture::X11KeyboardCapture(X11Display& display, X11Keymap& keymap,
                                       platform::Scheduler& scheduler)
    : display_(display), keymap_(keymap), scheduler_(scheduler),
      window_(xcb_generate_id(display.connection())) {
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(display_.connection(), 0, window_, display_.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11KeyboardCapture::~X11KeyboardCapture() {
    if (auto* application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
    // The grab ends with its window.
    xcb_destroy_window(display_.connection(), window_);
    xcb_flush(display_.connection());
}

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
    xcb_connection_t* connection = display_.connection();
    xcb_map_window(connection, window_);
    const auto cookie = xcb_grab_keyboard(connection, 0, window_, XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XcbPtr<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(connection, cookie, nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS) {
        xcb_unmap_window(connection, window_);
        xcb_flush(connection);
        return Failure{Failure::Kind::refused,
                       QStringLiteral("another program holds the keyboard (X grab status %1)")
                           .arg(reply ? reply->status : -1)};
    }
    events_ = &events;
    grabSequence_ = static_cast<std::uint16_t>(cookie.sequence);
    noteKeysDown();
    return KeyboardGrab([this, alive = std::weak_ptr(alive_), serial = ++serial_] {
        if (!alive.expired() && serial == serial_)
            release();
    });
}

// A key that is down already, most often the one that began the recording, repeats and is released
// into it.
void X11KeyboardCapture::noteKeysDown() {
    down_.clear();
    lastRelease_.reset();
    forgetPending();
    xcb_connection_t* connection = display_.connection();
    const XcbPtr<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    for (unsigned code = 8; reply && code <= 0xff; ++code) {
        if ((reply->keys[code / 8] & (1U << (code % 8))) != 0)
            down_.emplace(static_cast<xcb_keycode_t>(code), XCB_CURRENT_TIME);
    }
}

void X11KeyboardCapture::forgetPending() {
    pending_.clear();
    releaseWait_.reset();
}

void X11KeyboardCapture::release() {
    xcb_connection_t* connection = display_.connection();
    // Where the grab was lost, the keyboard may be another grab's of this very connection.
    if (std::exchange(events_, nullptr) != nullptr) {
        const auto cookie = xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
        ungrabSequence_ = static_cast<std::uint16_t>(cookie.sequence);
    }
    forgetPending();
    xcb_unmap_window(connection, window_);
    // Until the server hears of it, nobody on the desktop can type.
    xcb_flush(connection);
}

void X11KeyboardCapture::lost() {
    forgetPending();
    if (auto* events = std::exchange(events_, nullptr))
        events->captureLost();
}

bool X11KeyboardCapture::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    switch (event.response_type) {
    case XCB_KEY_PRESS: {
        const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(event);
        if (events_ != nullptr && press.event == window_)
            keyPressed(press);
        return false;
    }
    case XCB_KEY_RELEASE: {
        const auto& released = reinterpret_cast<const xcb_key_release_event_t&>(event);
        if (events_ != nullptr && released.event == window_)
            keyReleased(released);
        return false;
    }
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT: {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        if (focus.event != window_)
            return hidesFromQt(focus);
        // Another grab of this program took over, or one of its parts let the keyboard go. What the
        // end of an earlier capture caused may come only now.
        if (event.response_type == XCB_FOCUS_OUT && events_ != nullptr &&
            static_cast<std::int16_t>(focus.sequence - *grabSequence_) >= 0)
            scheduler_.post([this, alive = std::weak_ptr(alive_), serial = serial_] {
                if (!alive.expired() && serial == serial_)
                    lost();
            });
        return true;
    }
    default:
        return false;
    }
}

// For Qt a grab looks like the focus going elsewhere: the popover in which a combo is recorded
// would take itself for left, and close.
bool X11KeyboardCapture::hidesFromQt(const xcb_focus_in_event_t& event) {
    if (event.response_type == XCB_FOCUS_OUT) {
        if (event.mode == XCB_NOTIFY_MODE_GRAB && grabSequence_ == event.sequence)
            return true;
        // Whoever hears of a loss has to hear of the return.
        ungrabSequence_.reset();
        return false;
    }
    return event.mode == XCB_NOTIFY_MODE_UNGRAB && ungrabSequence_ == event.sequence;
}

EventFlags X11KeyboardCapture::flags(std::uint16_t state) const {
    const KeyboardMap& map = keymap_.current();
    EventFlags flags{(state & XCB_MOD_MASK_LOCK) != 0 ? EventFlags::capsLock : 0};
    for (const auto& [mask, flag] : {std::pair{map.commandMask, EventFlags::command},
                                     std::pair{map.optionMask, EventFlags::alternate},
                                     std::pair{map.controlMask, EventFlags::control},
                                     std::pair{map.shiftMask, EventFlags::shift}}) {
        if ((state & mask) != 0)
            flags.bits |= flag;
    }
    return flags;
}

void X11KeyboardCapture::keyPressed(const xcb_key_press_event_t& event) {
    const bool isOldKey = lastRelease_ && lastRelease_->keycode == event.detail &&
                          lastRelease_->time == event.time &&
                          event.time - lastRelease_->pressed >= shortestRepeatMilliseconds;
    const bool isRepeat = isOldKey || down_.contains(event.detail);
    // The server tells a repeat as a release and a press: the first half is taken back.
    if (isOldKey && releaseWait_) {
        pending_.pop_back();
        releaseWait_.reset();
    }
    down_.emplace(event.detail, isOldKey ? lastRelease_->pressed : event.time);
    if (const ModifierKey* key = keymap_.current().modifierKey(event.detail)) {
        modifierChanged(*key, event);
        return;
    }
    if (const auto keyCode = keyCodeAt(keymap_.current(), event.detail))
        deliverSoon({CapturedKey::Kind::down, *keyCode, flags(event.state), isRepeat,
                     display_.instant(event.time)});
}

void X11KeyboardCapture::keyReleased(const xcb_key_release_event_t& event) {
    const auto held = down_.find(event.detail);
    if (held == down_.end())
        return;
    lastRelease_ = Release{event.detail, event.time, held->second};
    down_.erase(held);
    if (const ModifierKey* key = keymap_.current().modifierKey(event.detail)) {
        modifierChanged(*key, event);
        return;
    }
    if (const auto keyCode = keyCodeAt(keymap_.current(), event.detail))
        deliverSoon({CapturedKey::Kind::up, *keyCode, flags(event.state), false,
                     display_.instant(event.time)});
}

// An event's state is the one before it.
void X11KeyboardCapture::modifierChanged(const ModifierKey& key,
                                         const xcb_key_press_event_t& event) {
    EventFlags now = flags(event.state);
    if (!key.choosesLevel)
        now.bits &= ~key.flag;
    for (const auto& [keycode, _] : down_) {
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
