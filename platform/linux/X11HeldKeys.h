// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11Display.h"

#include <map>
#include <optional>

namespace skipnest::linuxdesktop {

// The keys that are down while the keyboard is ours, and with them which presses are auto-repeat.
//
// The server tells a repeat as a release and a press of one time; Qt has it that way on this
// connection. Programs that press keys can be as quick, but no key begins to repeat so soon after
// it went down.
class X11HeldKeys {
public:
    enum class Press {
        first,
        repeat,             // of a key that has been down all the time
        repeatAfterRelease, // the second half of a repeat, the first was told as a release
    };

    // A key that is down already, most often the one that began it all, repeats and is released.
    void readFrom(xcb_connection_t* connection);
    Press press(xcb_keycode_t keycode, xcb_timestamp_t time);
    // False for a release without a press.
    bool release(xcb_keycode_t keycode, xcb_timestamp_t time);

    // With the time of the press; XCB_CURRENT_TIME for a key from before.
    [[nodiscard]] const std::map<xcb_keycode_t, xcb_timestamp_t>& down() const { return down_; }

private:
    struct Release {
        xcb_keycode_t keycode = 0;
        xcb_timestamp_t time = 0;
        xcb_timestamp_t pressed = 0;
    };
    std::map<xcb_keycode_t, xcb_timestamp_t> down_;
    std::optional<Release> lastRelease_;
};

} // namespace skipnest::linuxdesktop
