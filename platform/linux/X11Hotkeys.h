// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/HotkeyBackend.h"
#include "platform/linux/X11ClientDeaths.h"
#include "platform/linux/X11Keymap.h"

#include <map>
#include <span>

namespace skipnest::linuxdesktop {

// Global hotkeys as passive key grabs on the root window, one for each state of the lock keys.
//
// X activates no passive grab while the keyboard is grabbed, and a window of ours that has the
// keyboard grabbed gets every press itself. So a press is matched against the registered combos
// wherever on this connection it arrives, and one that its handler handled goes no further.
//
// A grab is on a keycode and a modifier bit and thus survives a new layout. Only where a new
// keyboard map moves a registered key or modifier are its grabs moved with it; one that is refused
// at its new place stays registered and is tried again when keys may have become free.
class X11Hotkeys final : public platform::HotkeyBackend {
public:
    X11Hotkeys(X11Display& display, X11Keymap& keymap, platform::Scheduler& scheduler);
    ~X11Hotkeys() override;

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] std::int32_t installHandler(platform::HotkeyEvents* events) override;
    [[nodiscard]] std::vector<platform::HotkeyRegistration>
    registerHotkeys(const std::vector<platform::HotkeyRequest>& requests) override;
    void waitUntilReleased() override;
    [[nodiscard]] platform::KeyDeliveryHold holdKeyDelivery() override;

private:
    // A key and its modifiers as X knows them, locks left out.
    struct Chord {
        xcb_keycode_t keycode = 0;
        std::uint16_t modifiers = 0;
        std::uint16_t locks = 0; // the lock bits that its grabs cover
        bool operator==(const Chord&) const = default;
    };
    struct KeyMoment {
        xcb_keycode_t keycode = 0;
        xcb_timestamp_t time = 0;
        bool operator==(const KeyMoment&) const = default;
    };
    struct Registration {
        platform::HotkeyRequest request;
        std::optional<Chord> grabbed; // nothing while the keyboard has no such key or X refuses
    };
    using Serial = std::uint64_t;

    [[nodiscard]] std::optional<Chord> chord(const platform::HotkeyRequest& request) const;
    // X's status for each chord; one round trip for all. A refused chord is left wholly free.
    std::vector<std::int32_t> grab(std::span<const Chord> chords);
    void ungrab(const Chord& chord);
    [[nodiscard]] bool inUse(const Chord& chord) const;
    void release(Serial serial);

    [[nodiscard]] bool takes(const xcb_generic_event_t& event);
    [[nodiscard]] bool pressed(const xcb_key_press_event_t& press);

    void keyboardChanged();
    void moveGrabs();
    void awaitFreeKeys();
    void lookForFreeKeys(platform::Duration delay);
    void tellKeysMayBeFree();
    void endHold();

    X11Display& display_;
    X11Keymap& keymap_;
    platform::Scheduler& scheduler_;
    platform::HotkeyEvents* events_ = nullptr;
    std::map<Serial, Registration> registrations_; // in the order of registering
    Serial lastSerial_ = 0;

    // What tells auto-repeat, and whether the newest press was a handled one.
    KeyMoment newestPress_;
    KeyMoment newestRelease_;
    bool handledPress_ = false;

    bool refused_ = false; // a combo was refused since keys last were said to be free
    // What tells that keys may have become free: one of these, only while something is refused.
    std::unique_ptr<X11ClientDeaths> clientDeaths_;
    platform::Observation windowEvents_;
    platform::Timer freeKeysTimer_;
    platform::Timer holdLimit_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    platform::Observation filter_;
    platform::Observation keymapChanges_;
};

} // namespace skipnest::linuxdesktop
