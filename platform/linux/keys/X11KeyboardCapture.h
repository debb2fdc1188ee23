// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyboardCapture.h"
#include "platform/Scheduler.h"
#include "platform/linux/X11HeldKeys.h"
#include "platform/linux/X11KeyboardGrab.h"
#include "platform/linux/X11Keymap.h"

#include <cstdint>
#include <deque>
#include <memory>

namespace skipnest::linuxdesktop {

// Every key while a combo is recorded, from a grab of the keyboard.
class X11KeyboardCapture final : public platform::KeyboardCapture, private X11KeyboardGrab::Events {
public:
    X11KeyboardCapture(X11Display& display, X11Keymap& keymap, platform::Scheduler& scheduler);

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::Result<platform::KeyboardGrab>
    capture(platform::KeyboardCaptureEvents& events) override;

private:
    bool keyPressed(const xcb_key_press_event_t& event) override;
    void keyReleased(const xcb_key_release_event_t& event) override;
    void keyboardLost() override;
    void modifierChanged(const ModifierKey& key, const xcb_key_press_event_t& event);

    void deliverSoon(const platform::CapturedKey& key);
    void deliver();
    void forgetPending();
    void release();

    X11Display& display_;
    X11Keymap& keymap_;
    platform::Scheduler& scheduler_;
    X11KeyboardGrab grab_;

    platform::KeyboardCaptureEvents* events_ = nullptr; // set while the keyboard is ours
    std::uint64_t serial_ = 0;                          // of the newest capture
    X11HeldKeys held_;
    // Told by post, after everybody else on this connection has seen the press: a hotkey that is
    // registered in answer to it must not fire for it.
    std::deque<platform::CapturedKey> pending_;
    // The newest release waits until it cannot be the first half of a repeat any more.
    platform::Timer releaseWait_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
