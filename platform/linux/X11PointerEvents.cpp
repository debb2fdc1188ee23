// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11PointerEvents.h"

namespace skipnest::linuxdesktop {
namespace {

// Turning a wheel is told as buttons too.
constexpr std::uint32_t firstWheelButton = 4, lastWheelButton = 7;

} // namespace

platform::Observation X11PointerEvents::observeClicksOutside(std::function<void()> clicked) {
    if (raw_ && raw_->broken())
        raw_.reset();
    if (!raw_) {
        auto opened = X11RawInput::open({}, scheduler_, X11RawInput::Devices::buttons,
                                        [this](const X11RawInput::Event& event) { handle(event); });
        if (!opened.ok())
            return {};
        raw_ = std::move(opened).value();
    } else if (observers_.empty()) {
        raw_->setListening(true);
    }
    auto observing = std::make_shared<platform::Observation>(observers_.add(std::move(clicked)));
    return platform::Observation([this, alive = std::weak_ptr(alive_), observing] {
        observing->reset();
        if (!alive.expired() && observers_.empty() && raw_)
            raw_->setListening(false);
    });
}

void X11PointerEvents::handle(const X11RawInput::Event& event) {
    display_.noteServerTime(event.time);
    if (event.detail >= firstWheelButton && event.detail <= lastWheelButton)
        return;
    if (!pointsAtOurWindow())
        observers_.notify();
}

// A raw event names no window, so the one under the pointer is asked for, down to the innermost: a
// window of ours may sit in a window manager's frame.
bool X11PointerEvents::pointsAtOurWindow() const {
    xcb_connection_t* connection = display_.connection();
    const xcb_setup_t* setup = xcb_get_setup(connection);
    xcb_window_t window = display_.root();
    while (window != XCB_WINDOW_NONE) {
        const XcbPtr<xcb_query_pointer_reply_t> pointer(
            xcb_query_pointer_reply(connection, xcb_query_pointer(connection, window), nullptr));
        if (!pointer)
            return false;
        window = pointer->child;
        if (window != XCB_WINDOW_NONE &&
            (window & ~setup->resource_id_mask) == setup->resource_id_base)
            return true;
    }
    return false;
}

} // namespace skipnest::linuxdesktop
