// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/VirtualTerminalKeys.h"

#include "platform/EventFlags.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <algorithm>
#include <memory>
#include <optional>

namespace skipnest::linuxdesktop {

using platform::CarbonModifiers;
using platform::DesktopShortcut;

namespace {

// Nothing where a bit is a lock or another modifier that combos do not have.
std::optional<std::uint32_t> carbonModifiers(xkb_mod_mask_t mask, const KeyboardMap& map) {
    std::uint32_t carbon = 0;
    for (const auto& [bits, modifier] : {std::pair{map.commandMask, CarbonModifiers::command},
                                         std::pair{map.optionMask, CarbonModifiers::option},
                                         std::pair{map.controlMask, CarbonModifiers::control},
                                         std::pair{map.shiftMask, CarbonModifiers::shift}}) {
        if (bits != 0 && (mask & bits) == bits) {
            carbon |= modifier;
            mask &= ~xkb_mod_mask_t{bits};
        }
    }
    // Above the eight real ones stand the virtual ones, which say the same again.
    return (mask & 0xff) == 0 ? std::optional(carbon) : std::nullopt;
}

std::optional<unsigned> terminalAt(xkb_keymap* keymap, xkb_keycode_t keycode,
                                   xkb_layout_index_t layout, xkb_level_index_t level) {
    const xkb_keysym_t* symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, keycode, layout, level, &symbols);
    if (count != 1 || symbols[0] < XKB_KEY_XF86Switch_VT_1 || symbols[0] > XKB_KEY_XF86Switch_VT_12)
        return std::nullopt;
    return symbols[0] - XKB_KEY_XF86Switch_VT_1 + 1;
}

} // namespace

std::vector<DesktopShortcut> virtualTerminalShortcuts(xkb_keymap* keymap, const KeyboardMap& map) {
    std::vector<DesktopShortcut> shortcuts;
    const auto note = [&](std::uint16_t keyCode, xkb_layout_index_t layout, xkb_level_index_t level,
                          unsigned terminal) {
        constexpr std::size_t mostCombos = 16;
        xkb_mod_mask_t masks[mostCombos];
        const std::size_t count = xkb_keymap_key_get_mods_for_level(
            keymap, map.keycodes[keyCode], layout, level, masks, mostCombos);
        for (std::size_t i = 0; i < count; ++i) {
            const auto modifiers = carbonModifiers(masks[i], map);
            if (!modifiers)
                continue;
            const DesktopShortcut shortcut{
                keyCode, *modifiers, QStringLiteral("the virtual terminals"),
                QStringLiteral("terminal %1").arg(terminal), DesktopShortcut::Effect::neverFires};
            if (std::ranges::find(shortcuts, shortcut) == shortcuts.end())
                shortcuts.push_back(shortcut);
        }
    };
    for (std::uint16_t keyCode = 0; keyCode < keyCodeLimit; ++keyCode) {
        const xcb_keycode_t keycode = map.keycodes[keyCode];
        if (keycode == 0)
            continue;
        const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(keymap, keycode);
        for (xkb_layout_index_t layout = 0; layout < layouts; ++layout) {
            const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(keymap, keycode, layout);
            for (xkb_level_index_t level = 0; level < levels; ++level) {
                if (const auto terminal = terminalAt(keymap, keycode, layout, level))
                    note(keyCode, layout, level, *terminal);
            }
        }
    }
    return shortcuts;
}

std::vector<DesktopShortcut> virtualTerminalShortcuts(const X11Display& display,
                                                      const KeyboardMap& map) {
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), &xkb_context_unref);
    if (!context)
        return {};
    xcb_connection_t* connection = display.connection();
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(connection);
    if (device < 0)
        return {};
    const std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap(
        xkb_x11_keymap_new_from_device(context.get(), connection, device,
                                       XKB_KEYMAP_COMPILE_NO_FLAGS),
        &xkb_keymap_unref);
    return keymap ? virtualTerminalShortcuts(keymap.get(), map) : std::vector<DesktopShortcut>{};
}

} // namespace skipnest::linuxdesktop
