// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/EventFlags.h"
#include "platform/Observers.h"
#include "platform/Scheduler.h"
#include "platform/linux/KeyTable.h"
#include "platform/linux/X11Display.h"

#include <QString>

#include <xkbcommon/xkbcommon.h>

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace skipnest::linuxdesktop {

// A key that works as a modifier in the current keymap, whatever is printed on it: with Caps Lock
// turned into Control, the key at CAPS is a left Control.
struct ModifierKey {
    xcb_keycode_t keycode = 0;
    std::uint16_t keyCode = 0; // kVK_* of the modifier that it is
    std::uint64_t flag = 0;    // EventFlags
    bool choosesLevel = false; // AltGr: a right Option to gestures, no Alt to applications

    bool operator==(const ModifierKey&) const = default;
};

// What the keyboard means at one moment.
struct KeyboardMap {
    // By kVK_* code: the X keycode (0: this keyboard has no such key), and what the key types
    // without modifiers in the active group.
    std::array<xcb_keycode_t, keyCodeLimit> keycodes{};
    std::array<xkb_keysym_t, keyCodeLimit> symbols{};
    // X modifier bits; 0 where no key gives the modifier.
    std::uint16_t commandMask = 0;
    std::uint16_t optionMask = 0;
    std::uint16_t controlMask = 0;
    std::uint16_t shiftMask = 0;
    std::uint16_t lockMask = XCB_MOD_MASK_LOCK; // Caps, Num and Scroll Lock
    std::vector<ModifierKey> modifierKeys;

    bool operator==(const KeyboardMap&) const = default;

    [[nodiscard]] std::optional<xcb_keycode_t> keycode(std::uint16_t keyCode) const;
    // The X modifiers of CarbonModifiers bits; nothing where this keyboard lacks one of them.
    [[nodiscard]] std::optional<std::uint16_t> modifierMask(std::uint32_t carbonModifiers) const;
    [[nodiscard]] const ModifierKey* modifierKey(xcb_keycode_t keycode) const;
    // The kVK_* code of an X keycode; nothing for keys without one.
    [[nodiscard]] std::optional<std::uint16_t> keyCodeOf(xcb_keycode_t keycode) const;
    // The modifiers in the state of an X event.
    [[nodiscard]] platform::EventFlags flags(std::uint16_t state) const;
};

// Follows the core keyboard: which X key is which kVK_* code, which modifier bit is Super, which
// group is active. Keys are found by their XKB names, so every keycode ruleset works; where the
// server's keymap has no names, keycodes are taken to be the kernel's plus 8.
//
// One change of the keyboard is many events: setxkbmap, a plugged keyboard, or merely the next key
// coming from another device, each with its own map. The map is read again once when 50 ms have
// passed without a further event, at the latest after 500 ms.
class X11Keymap {
public:
    X11Keymap(X11Display& display, platform::Scheduler& scheduler);
    ~X11Keymap();

    // False where the X server has no XKB; then no key is known.
    [[nodiscard]] bool available() const { return keymap_ != nullptr; }
    [[nodiscard]] const KeyboardMap& current() const { return map_; }
    // Caps Lock is on, as of the newest event.
    [[nodiscard]] bool capsLocked() const { return (lockedModifiers_ & XCB_MOD_MASK_LOCK) != 0; }
    // The same asked of the server.
    [[nodiscard]] bool queryCapsLocked() const;

    // What a key types under the state of an X event, compositions left out; empty for keys that
    // type nothing.
    [[nodiscard]] QString text(xcb_keycode_t keycode, std::uint16_t state) const;

    // Told when current() has become a different one.
    [[nodiscard]] platform::Observation observeChanges(std::function<void()> changed);

private:
    struct Unref {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
        void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
    };
    using ModifierMapping = XcbPtr<xcb_get_modifier_mapping_reply_t>;

    bool setUp();
    void handle(const xcb_generic_event_t& event);
    void expectMore();
    void settle();
    void load();
    [[nodiscard]] KeyboardMap read(const ModifierMapping& mapping) const;
    void readMasks(const ModifierMapping& mapping, KeyboardMap& map) const;
    [[nodiscard]] xkb_keysym_t symbol(xcb_keycode_t keycode, std::uint32_t group) const;

    X11Display& display_;
    platform::Scheduler& scheduler_;
    std::unique_ptr<xkb_context, Unref> context_;
    std::unique_ptr<xkb_keymap, Unref> keymap_;
    KeyboardMap map_;
    std::int32_t device_ = -1;
    std::uint8_t xkbEvent_ = 0;
    std::uint8_t lockedModifiers_ = 0;
    std::uint8_t group_ = 0;
    platform::Observers<> observers_;
    platform::Instant firstUnsettled_{};
    platform::Timer settling_;
    platform::Observation events_;
};

} // namespace skipnest::linuxdesktop
