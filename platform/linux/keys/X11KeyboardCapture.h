// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyboardCapture.h"
#include "platform/Scheduler.h"
#include "platform/linux/X11Keymap.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>

namespace skipnest::linuxdesktop {

// The keyboard as an active grab on a window of its own, so that the window manager's combos and
// other programs' hotkeys arrive as plain keys, and Qt, which does not know the window, types none
// of them.
//
// The grab is asked for once: who has the keyboard (an open menu, a screen locker, a game) has it
// for longer than a person could be kept waiting. A hotkey of our own that is still held down is no
// obstacle.
class X11KeyboardCapture final : public platform::KeyboardCapture,
                                 private QAbstractNativeEventFilter {
public:
    X11KeyboardCapture(X11Display& display, X11Keymap& keymap, platform::Scheduler& scheduler);
    ~X11KeyboardCapture() override;

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::Result<platform::KeyboardGrab>
    capture(platform::KeyboardCaptureEvents& events) override;

private:
    struct Release {
        xcb_keycode_t keycode = 0;
        xcb_timestamp_t time = 0;
        xcb_timestamp_t pressed = 0;
    };

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    [[nodiscard]] bool hidesFromQt(const xcb_focus_in_event_t& event);
    void keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(const xcb_key_release_event_t& event);
    void modifierChanged(const ModifierKey& key, const xcb_key_press_event_t& event);
    [[nodiscard]] platform::EventFlags flags(std::uint16_t state) const;

    void noteKeysDown();
    void deliverSoon(const platform::CapturedKey& key);
    void deliver();
    void forgetPending();
    void lost();
    void release();

    X11Display& display_;
    X11Keymap& keymap_;
    platform::Scheduler& scheduler_;
    const xcb_window_t window_; // seen by nobody; mapped while it has the keyboard

    platform::KeyboardCaptureEvents* events_ = nullptr; // set while the keyboard is ours
    std::uint64_t serial_ = 0;                          // of the newest capture
    std::map<xcb_keycode_t, xcb_timestamp_t> down_;     // since when
    std::optional<Release> lastRelease_;
    // Told by post, after everybody else on this connection has seen the press: a hotkey that is
    // registered in answer to it must not fire for it.
    std::deque<platform::CapturedKey> pending_;
    // The newest release waits until it cannot be the first half of a repeat any more.
    platform::Timer releaseWait_;
    // Of the newest grab and ungrab request: the focus events that they cause carry these.
    std::optional<std::uint16_t> grabSequence_;
    std::optional<std::uint16_t> ungrabSequence_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
