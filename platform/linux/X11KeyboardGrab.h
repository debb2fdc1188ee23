// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "platform/Scheduler.h"
#include "platform/linux/X11Display.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>
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
class X11KeyboardGrab final : private QAbstractNativeEventFilter {
public:
    // Whether the server goes on with the next key by itself, or holds the keyboard after each
    // event until it is told what becomes of that one: keepKey() or replayKey().
    enum class Mode { flowing, oneByOne };

    class Events {
    public:
        virtual ~Events() = default;
        // True keeps the press from the hotkeys.
        virtual bool keyPressed(const xcb_key_press_event_t& event) = 0;
        virtual void keyReleased(const xcb_key_release_event_t& event) = 0;
        // Another part of this program took the keyboard or let it go. Never told from inside.
        virtual void keyboardLost() = 0;
    };

    X11KeyboardGrab(X11Display& display, platform::Scheduler& scheduler, Mode mode, Events& events);
    ~X11KeyboardGrab() override;

    // `refused` where another program has the keyboard.
    [[nodiscard]] platform::Outcome take();
    [[nodiscard]] bool held() const { return held_; }
    void release();

    // One by one only: the event stays with us.
    void keepKey();
    // One by one only: the event goes where it would have gone, other programs' passive grabs left
    // out, and the keys that wait in the server go after it. That ends the grab: take() it again.
    void replayKey();

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void focusChanged(const xcb_focus_in_event_t& event);
    [[nodiscard]] bool hidesFromQt(const xcb_focus_in_event_t& event);

    X11Display& display_;
    platform::Scheduler& scheduler_;
    const Mode mode_;
    Events& events_;
    const xcb_window_t window_; // seen by nobody; mapped while it has the keyboard

    bool held_ = false;
    std::uint64_t serial_ = 0; // of the newest grab
    // Of the newest grab and ungrab request: the focus events that they cause carry these.
    std::optional<std::uint16_t> grabSequence_;
    std::optional<std::uint16_t> ungrabSequence_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
