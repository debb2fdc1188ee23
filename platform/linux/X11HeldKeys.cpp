// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11HeldKeys.h"

namespace skipnest::linuxdesktop {
namespace {

// xset goes up to 255 repeats a second.
constexpr xcb_timestamp_t shortestRepeatMilliseconds = 3;

} // namespace

void X11HeldKeys::readFrom(xcb_connection_t* connection) {
    down_.clear();
    lastRelease_.reset();
    const XcbPtr<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    for (unsigned code = 8; reply && code <= 0xff; ++code) {
        if ((reply->keys[code / 8] & (1U << (code % 8))) != 0)
            down_.emplace(static_cast<xcb_keycode_t>(code), XCB_CURRENT_TIME);
    }
}

X11HeldKeys::Press X11HeldKeys::press(xcb_keycode_t keycode, xcb_timestamp_t time) {
    if (lastRelease_ && lastRelease_->keycode == keycode && lastRelease_->time == time &&
        time - lastRelease_->pressed >= shortestRepeatMilliseconds) {
        down_.emplace(keycode, lastRelease_->pressed);
        return Press::repeatAfterRelease;
    }
    return down_.emplace(keycode, time).second ? Press::first : Press::repeat;
}

bool X11HeldKeys::release(xcb_keycode_t keycode, xcb_timestamp_t time) {
    const auto held = down_.find(keycode);
    if (held == down_.end())
        return false;
    lastRelease_ = Release{keycode, time, held->second};
    down_.erase(held);
    return true;
}

} // namespace skipnest::linuxdesktop
