// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyEvents.h"
#include "platform/linux/X11HeldKeys.h"
#include "platform/linux/X11KeyStrokes.h"
#include "platform/linux/X11KeyboardGrab.h"
#include "platform/linux/keys/X11KeyClaims.h"

#include <set>

namespace skipnest::linuxdesktop {

// Every key-down is shown to an interceptor before anyone else, by an active grab of the keyboard
// that holds it after each event. What the interceptor passes is our own hotkeys' first: X
// activates no passive grab while the keyboard is grabbed, and our hotkeys match presses on this
// connection themselves. Beyond them a key goes on in one of two ways:
//
// - Replayed by the server, the usual one. The application below gets the very event: in order with
//   what it got before, with the modifiers of that moment, as a repeat where it is one, and its
//   release as well. But the server leaves out all passive grabs then, so no hotkey of the desktop
//   would fire.
// - So a chord on which somebody else has a passive grab is pressed again by XTEST, with the
//   keyboard let go for a moment: that somebody may want all of it, as a window list or a screen
//   locker does. That alone would not do: a press by XTEST ends the auto-repeat of the key held
//   down.
//
// A replay lets go of the keyboard for the time of a request. Keys that were pressed while the
// program was busy and still wait in the server then go on with the passed one, unseen, in their
// order.
class X11KeyInterception final : private X11KeyboardGrab::Events {
public:
    X11KeyInterception(X11Display& display, X11Keymap& keymap, platform::Scheduler& scheduler,
                       X11KeyStrokes& strokes);

    [[nodiscard]] platform::Result<platform::KeyTap> begin(platform::KeyInterceptor& interceptor);

private:
    bool keyPressed(const xcb_key_press_event_t& event) override;
    void keyReleased(const xcb_key_release_event_t& event) override;
    void keyboardLost() override;

    [[nodiscard]] bool running(std::uint64_t serial) const {
        return interceptor_ != nullptr && serial == serial_;
    }
    [[nodiscard]] bool isClaimed(const xcb_key_press_event_t& event);
    void pass(const xcb_key_press_event_t& event, bool isRepeat);
    void pressAgain(const xcb_key_press_event_t& event);
    void released();
    void takeAgain();
    void takeAgainLater();
    void readKeys();
    void end();

    X11Display& display_;
    X11Keymap& keymap_;
    platform::Scheduler& scheduler_;
    X11KeyStrokes& strokes_;
    X11KeyboardGrab grab_;

    platform::KeyInterceptor* interceptor_ = nullptr;
    std::uint64_t serial_ = 0; // of the newest interception
    X11HeldKeys held_;
    std::set<xcb_keycode_t> replayed_; // down in the application below
    std::optional<xcb_keycode_t> release_;
    std::unique_ptr<X11KeyClaims> claims_; // from the first passed key on
    platform::Timer retry_;
    bool refused_ = false; // somebody has it: the interceptor is to hear that it was away
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
