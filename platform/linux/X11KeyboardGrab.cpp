// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11KeyboardGrab.h"

#include <QCoreApplication>

#include <utility>

namespace skipnest::linuxdesktop {

using platform::Failure;
using platform::Outcome;

X11KeyboardGrab::X11KeyboardGrab(X11Display& display, platform::Scheduler& scheduler, Mode mode,
                                 Events& events)
    : display_(display), scheduler_(scheduler), mode_(mode), events_(events),
      window_(xcb_generate_id(display.connection())) {
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(display_.connection(), 0, window_, display_.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11KeyboardGrab::~X11KeyboardGrab() {
    if (auto* application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
    // The grab ends with its window.
    xcb_destroy_window(display_.connection(), window_);
    xcb_flush(display_.connection());
}

Outcome X11KeyboardGrab::take() {
    xcb_connection_t* connection = display_.connection();
    const bool oneByOne = mode_ == Mode::oneByOne;
    xcb_map_window(connection, window_);
    const auto cookie = xcb_grab_keyboard(
        connection, 0, window_, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
        static_cast<std::uint8_t>(oneByOne ? XCB_GRAB_MODE_SYNC : XCB_GRAB_MODE_ASYNC));
    // Such a grab begins with the keyboard held.
    if (oneByOne)
        xcb_allow_events(connection, XCB_ALLOW_SYNC_KEYBOARD, XCB_CURRENT_TIME);
    grabSequence_ = static_cast<std::uint16_t>(cookie.sequence);
    const XcbPtr<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(connection, cookie, nullptr));
    held_ = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    ++serial_;
    if (held_)
        return platform::Done{};
    xcb_unmap_window(connection, window_);
    xcb_flush(connection);
    return Failure{Failure::Kind::refused,
                   QStringLiteral("another program holds the keyboard (X grab status %1)")
                       .arg(reply ? reply->status : -1)};
}

void X11KeyboardGrab::release() {
    xcb_connection_t* connection = display_.connection();
    // Where the grab was lost, the keyboard may be another grab's of this very connection.
    if (std::exchange(held_, false)) {
        const auto cookie = xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
        ungrabSequence_ = static_cast<std::uint16_t>(cookie.sequence);
    }
    ++serial_;
    xcb_unmap_window(connection, window_);
    // Until the server hears of it, nobody on the desktop can type.
    xcb_flush(connection);
}

void X11KeyboardGrab::keepKey() {
    xcb_allow_events(display_.connection(), XCB_ALLOW_SYNC_KEYBOARD, XCB_CURRENT_TIME);
    xcb_flush(display_.connection());
}

void X11KeyboardGrab::replayKey() {
    const auto cookie =
        xcb_allow_events(display_.connection(), XCB_ALLOW_REPLAY_KEYBOARD, XCB_CURRENT_TIME);
    ungrabSequence_ = static_cast<std::uint16_t>(cookie.sequence);
}

bool X11KeyboardGrab::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    switch (event.response_type) {
    case XCB_KEY_PRESS: {
        const auto& press = reinterpret_cast<const xcb_key_press_event_t&>(event);
        return held_ && press.event == window_ && events_.keyPressed(press);
    }
    case XCB_KEY_RELEASE: {
        const auto& released = reinterpret_cast<const xcb_key_release_event_t&>(event);
        if (held_ && released.event == window_)
            events_.keyReleased(released);
        return false;
    }
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT: {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        if (focus.event != window_)
            return hidesFromQt(focus);
        if (event.response_type == XCB_FOCUS_OUT)
            focusChanged(focus);
        return true;
    }
    default:
        return false;
    }
}

// The focus left our window: another grab of this program took over, or one of its parts let the
// keyboard go. What the end of an earlier grab caused may come only now.
void X11KeyboardGrab::focusChanged(const xcb_focus_in_event_t& event) {
    if (!held_ || static_cast<std::int16_t>(event.sequence - *grabSequence_) < 0)
        return;
    scheduler_.post([this, alive = std::weak_ptr(alive_), serial = serial_] {
        if (alive.expired() || serial != serial_)
            return;
        held_ = false;
        events_.keyboardLost();
    });
}

// For Qt a grab looks like the focus going elsewhere: the popover in which a combo is recorded
// would take itself for left, and close.
bool X11KeyboardGrab::hidesFromQt(const xcb_focus_in_event_t& event) {
    if (event.response_type == XCB_FOCUS_OUT) {
        if (event.mode == XCB_NOTIFY_MODE_GRAB && grabSequence_ == event.sequence)
            return true;
        // Whoever hears of a loss has to hear of the return.
        ungrabSequence_.reset();
        return false;
    }
    return event.mode == XCB_NOTIFY_MODE_UNGRAB && ungrabSequence_ == event.sequence;
}

} // namespace skipnest::linuxdesktop
