// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11Keymap.h"

#include "platform/EventFlags.h"
#include "platform/linux/XkbProtocol.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using platform::CarbonModifiers;
using platform::EventFlags;

constexpr platform::Duration quietFor = 50ms;
constexpr platform::Duration settledWithin = 500ms;

struct ModifierSymbol {
    xkb_keysym_t symbol;
    std::uint16_t keyCode;
    std::uint64_t flag;
    bool choosesLevel = false;
};

constexpr auto modifierSymbols = std::to_array<ModifierSymbol>({
    {XKB_KEY_Super_R, 54, EventFlags::command},
    {XKB_KEY_Super_L, 55, EventFlags::command},
    {XKB_KEY_Shift_L, 56, EventFlags::shift},
    {XKB_KEY_Caps_Lock, 57, 0},
    {XKB_KEY_Alt_L, 58, EventFlags::alternate},
    {XKB_KEY_Meta_L, 58, EventFlags::alternate},
    {XKB_KEY_Control_L, 59, EventFlags::control},
    {XKB_KEY_Shift_R, 60, EventFlags::shift},
    {XKB_KEY_Alt_R, 61, EventFlags::alternate},
    {XKB_KEY_Meta_R, 61, EventFlags::alternate},
    {XKB_KEY_ISO_Level3_Shift, 61, EventFlags::alternate, true},
    {XKB_KEY_Control_R, 62, EventFlags::control},
});

// The member of KeyboardMap that a key with this symbol in the server's modifier map decides.
std::uint16_t KeyboardMap::*maskMember(xkb_keysym_t symbol) {
    switch (symbol) {
    case XKB_KEY_Super_L:
    case XKB_KEY_Super_R:
        return &KeyboardMap::commandMask;
    case XKB_KEY_Alt_L:
    case XKB_KEY_Alt_R:
        return &KeyboardMap::optionMask;
    case XKB_KEY_Control_L:
    case XKB_KEY_Control_R:
        return &KeyboardMap::controlMask;
    case XKB_KEY_Shift_L:
    case XKB_KEY_Shift_R:
        return &KeyboardMap::shiftMask;
    default:
        return nullptr;
    }
}

} // namespace

std::optional<xcb_keycode_t> KeyboardMap::keycode(std::uint16_t keyCode) const {
    if (keyCode >= keyCodeLimit || keycodes[keyCode] == 0)
        return std::nullopt;
    return keycodes[keyCode];
}

std::optional<std::uint16_t> KeyboardMap::modifierMask(std::uint32_t carbonModifiers) const {
    std::uint32_t mask = 0;
    for (const auto& [carbon, bits] : {std::pair{CarbonModifiers::command, commandMask},
                                       std::pair{CarbonModifiers::option, optionMask},
                                       std::pair{CarbonModifiers::control, controlMask},
                                       std::pair{CarbonModifiers::shift, shiftMask}}) {
        if ((carbonModifiers & carbon) == 0)
            continue;
        if (bits == 0)
            return std::nullopt;
        mask |= bits;
    }
    return static_cast<std::uint16_t>(mask);
}

const ModifierKey* KeyboardMap::modifierKey(xcb_keycode_t keycode) const {
    const auto found = std::ranges::find(modifierKeys, keycode, &ModifierKey::keycode);
    return found == modifierKeys.end() ? nullptr : &*found;
}

std::optional<std::uint16_t> KeyboardMap::keyCodeOf(xcb_keycode_t keycode) const {
    const auto found = std::ranges::find(keycodes, keycode);
    if (found == keycodes.end())
        return std::nullopt;
    return static_cast<std::uint16_t>(found - keycodes.begin());
}

EventFlags KeyboardMap::flags(std::uint16_t state) const {
    EventFlags flags{(state & XCB_MOD_MASK_LOCK) != 0 ? EventFlags::capsLock : 0};
    for (const auto& [mask, flag] :
         {std::pair{commandMask, EventFlags::command}, std::pair{optionMask, EventFlags::alternate},
          std::pair{controlMask, EventFlags::control}, std::pair{shiftMask, EventFlags::shift}}) {
        if ((state & mask) != 0)
            flags.bits |= flag;
    }
    return flags;
}

X11Keymap::X11Keymap(X11Display& display, platform::Scheduler& scheduler)
    : display_(display), scheduler_(scheduler), context_(xkb_context_new(XKB_CONTEXT_NO_FLAGS)) {
    if (!context_ || !setUp())
        return;
    load();
    events_ = display_.observeEvents([this](const xcb_generic_event_t& event) { handle(event); });
}

X11Keymap::~X11Keymap() = default;

bool X11Keymap::setUp() {
    xcb_connection_t* connection = display_.connection();
    const int ready = xkb_x11_setup_xkb_extension(
        connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
        XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &xkbEvent_, nullptr);
    device_ = ready != 0 ? xkb_x11_get_core_keyboard_device_id(connection) : -1;
    if (device_ < 0)
        return false;
    // The same selection that Qt makes on this connection, so that neither narrows the other's.
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr std::uint16_t parts =
        XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP |
        XCB_XKB_MAP_PART_EXPLICIT_COMPONENTS | XCB_XKB_MAP_PART_KEY_ACTIONS |
        XCB_XKB_MAP_PART_KEY_BEHAVIORS | XCB_XKB_MAP_PART_VIRTUAL_MODS |
        XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_xkb_select_events(connection, static_cast<xcb_xkb_device_spec_t>(device_), events, 0,
                          events, parts, parts, nullptr);
    return true;
}

bool X11Keymap::queryCapsLocked() const {
    if (device_ < 0)
        return false;
    xcb_connection_t* connection = display_.connection();
    const auto cookie = xcb_xkb_get_state(connection, static_cast<xcb_xkb_device_spec_t>(device_));
    const XcbPtr<xcb_xkb_get_state_reply_t> reply(
        xcb_xkb_get_state_reply(connection, cookie, nullptr));
    return reply && (reply->lockedMods & XCB_MOD_MASK_LOCK) != 0;
}

QString X11Keymap::text(xcb_keycode_t keycode, std::uint16_t state) const {
    if (!keymap_)
        return {};
    struct Unreference {
        void operator()(xkb_state* typing) const { xkb_state_unref(typing); }
    };
    const std::unique_ptr<xkb_state, Unreference> typing(xkb_state_new(keymap_.get()));
    constexpr std::uint16_t modifierBits = 0xff;
    const xkb_layout_index_t group = (state >> 13) & 3U;
    xkb_state_update_mask(typing.get(), state & modifierBits, 0, 0, 0, 0, group);
    std::array<char, 32> utf8{};
    const int length = xkb_state_key_get_utf8(typing.get(), keycode, utf8.data(), utf8.size());
    const QString typed = QString::fromUtf8(utf8.data(), std::clamp(length, 0, 31));
    // Return, Escape and letters with Control are control characters here.
    const bool prints = std::ranges::none_of(
        typed, [](QChar character) { return character.category() == QChar::Other_Control; });
    return prints ? typed : QString();
}

platform::Observation X11Keymap::observeChanges(std::function<void()> changed) {
    return observers_.add(std::move(changed));
}

void X11Keymap::handle(const xcb_generic_event_t& event) {
    const std::uint8_t type = event.response_type & 0x7f;
    if (type == XCB_MAPPING_NOTIFY) {
        const auto& mapping = reinterpret_cast<const xcb_mapping_notify_event_t&>(event);
        if (mapping.request != XCB_MAPPING_POINTER)
            expectMore();
        return;
    }
    if (type != xkbEvent_)
        return;
    const auto& state = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
    if (state.deviceID != device_)
        return;
    if (state.xkbType != XCB_XKB_STATE_NOTIFY) {
        expectMore();
        return;
    }
    lockedModifiers_ = state.lockedMods;
    // The locked group is the layout one types with; a key that shifts the group while it is held
    // renames nothing.
    if (group_ != state.lockedGroup)
        expectMore();
}

void X11Keymap::expectMore() {
    const platform::Instant now = scheduler_.now();
    if (!settling_)
        firstUnsettled_ = now;
    const platform::Duration left = firstUnsettled_ + settledWithin - now;
    settling_ = scheduler_.after(std::clamp<platform::Duration>(left, 0ms, quietFor),
                                 "keyboard map", [this] { settle(); });
}

void X11Keymap::settle() {
    settling_.reset();
    const KeyboardMap before = map_;
    load();
    if (map_ != before)
        observers_.notify();
}

void X11Keymap::load() {
    xcb_connection_t* connection = display_.connection();
    const auto mappingCookie = xcb_get_modifier_mapping(connection);
    const auto stateCookie =
        xcb_xkb_get_state(connection, static_cast<xcb_xkb_device_spec_t>(device_));
    std::unique_ptr<xkb_keymap, Unref> keymap(xkb_x11_keymap_new_from_device(
        context_.get(), connection, device_, XKB_KEYMAP_COMPILE_NO_FLAGS));
    const ModifierMapping mapping(
        xcb_get_modifier_mapping_reply(connection, mappingCookie, nullptr));
    const XcbPtr<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(connection, stateCookie, nullptr));
    // The keyboard may have gone in between; the event that said so brings us back here.
    if (!keymap || !mapping || !state)
        return;
    keymap_ = std::move(keymap);
    group_ = state->lockedGroup;
    lockedModifiers_ = state->lockedMods;
    map_ = read(mapping);
}

KeyboardMap X11Keymap::read(const ModifierMapping& mapping) const {
    KeyboardMap map;
    for (const PhysicalKey& key : physicalKeys()) {
        const xkb_keycode_t found = xkb_keymap_key_by_name(keymap_.get(), key.name);
        if (found != XKB_KEYCODE_INVALID && found <= 0xff)
            map.keycodes[key.keyCode] = static_cast<xcb_keycode_t>(found);
    }
    const bool named =
        std::ranges::any_of(map.keycodes, [](xcb_keycode_t keycode) { return keycode != 0; });
    for (const PhysicalKey& key : physicalKeys()) {
        if (!named && key.evdevCode + 8 <= 0xff)
            map.keycodes[key.keyCode] = static_cast<xcb_keycode_t>(key.evdevCode + 8);
        if (map.keycodes[key.keyCode] != 0)
            map.symbols[key.keyCode] = symbol(map.keycodes[key.keyCode], group_);
    }
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(keymap_.get()), 0xff);
    for (xkb_keycode_t code = xkb_keymap_min_keycode(keymap_.get()); code <= last; ++code) {
        const auto keycode = static_cast<xcb_keycode_t>(code);
        const auto found =
            std::ranges::find(modifierSymbols, symbol(keycode, group_), &ModifierSymbol::symbol);
        if (found != modifierSymbols.end())
            map.modifierKeys.push_back({keycode, found->keyCode, found->flag, found->choosesLevel});
    }
    readMasks(mapping, map);
    return map;
}

void X11Keymap::readMasks(const ModifierMapping& mapping, KeyboardMap& map) const {
    const xcb_keycode_t* keycodes = xcb_get_modifier_mapping_keycodes(mapping.get());
    const std::size_t perModifier = mapping->keycodes_per_modifier;
    std::uint16_t metaMask = 0;
    // A modifier that keys on two bits give is the lower bit.
    const auto decide = [](std::uint16_t& mask, std::uint16_t bit) {
        if (mask == 0)
            mask = bit;
    };
    const auto look = [&](xkb_keysym_t found, std::uint16_t bit) {
        if (const auto member = maskMember(found))
            decide(map.*member, bit);
        else if (found == XKB_KEY_Meta_L || found == XKB_KEY_Meta_R)
            decide(metaMask, bit);
        else if (found == XKB_KEY_Num_Lock || found == XKB_KEY_Scroll_Lock)
            map.lockMask |= bit;
    };
    for (std::size_t index = 0; index < 8 * perModifier; ++index) {
        const xcb_keycode_t keycode = keycodes[index];
        const auto bit = static_cast<std::uint16_t>(1U << (index / perModifier));
        if (keycode == 0 || bit == XCB_MOD_MASK_LOCK)
            continue;
        const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(keymap_.get(), keycode);
        for (xkb_layout_index_t layout = 0; layout < layouts; ++layout) {
            const xkb_level_index_t levels =
                xkb_keymap_num_levels_for_key(keymap_.get(), keycode, layout);
            for (xkb_level_index_t level = 0; level < levels; ++level) {
                const xkb_keysym_t* symbols = nullptr;
                const int count = xkb_keymap_key_get_syms_by_level(keymap_.get(), keycode, layout,
                                                                   level, &symbols);
                for (int i = 0; i < count; ++i)
                    look(symbols[i], bit);
            }
        }
    }
    decide(map.optionMask, metaMask);
    // A lock that shares its bit with a real modifier cannot be told from it and is none.
    map.lockMask = static_cast<std::uint16_t>(
        map.lockMask & ~(map.commandMask | map.optionMask | map.controlMask | map.shiftMask));
}

xkb_keysym_t X11Keymap::symbol(xcb_keycode_t keycode, std::uint32_t group) const {
    const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(keymap_.get(), keycode);
    if (layouts == 0)
        return XKB_KEY_NoSymbol;
    const xkb_keysym_t* symbols = nullptr;
    const int count =
        xkb_keymap_key_get_syms_by_level(keymap_.get(), keycode, group % layouts, 0, &symbols);
    return count > 0 ? symbols[0] : XKB_KEY_NoSymbol;
}

} // namespace skipnest::linuxdesktop
