// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11KeyboardLayout.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

struct DeadKey {
    xkb_keysym_t symbol;
    char32_t accent;
};

// Dead keys type nothing by themselves, so XKB knows no character for them.
constexpr auto deadKeys = std::to_array<DeadKey>({
    {XKB_KEY_dead_grave, U'`'},
    {XKB_KEY_dead_acute, U'´'},
    {XKB_KEY_dead_circumflex, U'^'},
    {XKB_KEY_dead_tilde, U'~'},
    {XKB_KEY_dead_macron, U'¯'},
    {XKB_KEY_dead_breve, U'˘'},
    {XKB_KEY_dead_abovedot, U'˙'},
    {XKB_KEY_dead_diaeresis, U'¨'},
    {XKB_KEY_dead_abovering, U'˚'},
    {XKB_KEY_dead_doubleacute, U'˝'},
    {XKB_KEY_dead_caron, U'ˇ'},
    {XKB_KEY_dead_cedilla, U'¸'},
    {XKB_KEY_dead_ogonek, U'˛'},
    {XKB_KEY_dead_iota, U'ͺ'},
    {XKB_KEY_dead_stroke, U'/'},
    {XKB_KEY_dead_greek, U'µ'},
});

} // namespace

X11KeyboardLayout::X11KeyboardLayout(X11Keymap& keymap)
    : keymap_(keymap), symbols_(keymap.current().symbols),
      keymapChanges_(keymap.observeChanges([this] {
          // Moved keys and modifiers change no name.
          if (symbols_ == keymap_.current().symbols)
              return;
          symbols_ = keymap_.current().symbols;
          observers_.notify();
      })) {}

std::optional<QString> X11KeyboardLayout::character(std::uint16_t keyCode) const {
    if (keyCode >= keyCodeLimit)
        return std::nullopt;
    const xkb_keysym_t symbol = keymap_.current().symbols[keyCode];
    const auto dead = std::ranges::find(deadKeys, symbol, &DeadKey::symbol);
    const char32_t code =
        dead != deadKeys.end() ? dead->accent : static_cast<char32_t>(xkb_keysym_to_utf32(symbol));
    constexpr char32_t deleteCharacter = 0x7f;
    if (code < U' ' || code == deleteCharacter)
        return std::nullopt;
    return QString::fromUcs4(&code, 1);
}

platform::Observation X11KeyboardLayout::observeChanges(std::function<void()> changed) {
    return observers_.add(std::move(changed));
}

} // namespace skipnest::linuxdesktop
