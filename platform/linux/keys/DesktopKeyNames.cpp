// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopKeyNames.h"

#include "platform/UsKeyboardLayout.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <array>

namespace skipnest::linuxdesktop {
namespace {

struct NamedKey {
    xkb_keysym_t symbol;
    std::uint16_t keyCode;
};

// Keys that type no character, for where no keyboard map can be read.
constexpr auto namedKeys = std::to_array<NamedKey>({
    {XKB_KEY_Return, 36}, {XKB_KEY_Tab, 48},      {XKB_KEY_space, 49},   {XKB_KEY_BackSpace, 51},
    {XKB_KEY_Escape, 53}, {XKB_KEY_KP_Enter, 76}, {XKB_KEY_F1, 122},     {XKB_KEY_F2, 120},
    {XKB_KEY_F3, 99},     {XKB_KEY_F4, 118},      {XKB_KEY_F5, 96},      {XKB_KEY_F6, 97},
    {XKB_KEY_F7, 98},     {XKB_KEY_F8, 100},      {XKB_KEY_F9, 101},     {XKB_KEY_F10, 109},
    {XKB_KEY_F11, 103},   {XKB_KEY_F12, 111},     {XKB_KEY_Insert, 114}, {XKB_KEY_Home, 115},
    {XKB_KEY_Prior, 116}, {XKB_KEY_Delete, 117},  {XKB_KEY_End, 119},    {XKB_KEY_Next, 121},
    {XKB_KEY_Left, 123},  {XKB_KEY_Right, 124},   {XKB_KEY_Down, 125},   {XKB_KEY_Up, 126},
});

xkb_keysym_t symbolNamed(const QString& name) {
    const QByteArray text = name.toUtf8();
    xkb_keysym_t symbol = xkb_keysym_from_name(text.constData(), XKB_KEYSYM_NO_FLAGS);
    if (symbol == XKB_KEY_NoSymbol)
        symbol = xkb_keysym_from_name(text.constData(), XKB_KEYSYM_CASE_INSENSITIVE);
    // The key that types a backward Tab is the Tab key.
    return symbol == XKB_KEY_ISO_Left_Tab ? xkb_keysym_t{XKB_KEY_Tab} : xkb_keysym_to_lower(symbol);
}

} // namespace

std::optional<std::uint16_t> DesktopKeyNames::keyCode(const KeySpelling& spelling) const {
    if (spelling.keycode != 0) {
        const auto key = std::ranges::find(map_.keycodes, spelling.keycode);
        if (key == map_.keycodes.end())
            return std::nullopt;
        return static_cast<std::uint16_t>(key - map_.keycodes.begin());
    }
    // GNOME's word for the key above Tab, whatever it types.
    if (spelling.keysym == u"Above_Tab")
        return std::uint16_t{50};
    const xkb_keysym_t symbol = symbolNamed(spelling.keysym);
    if (symbol == XKB_KEY_NoSymbol)
        return std::nullopt;
    const auto typed = std::ranges::find(map_.symbols, symbol);
    if (typed != map_.symbols.end())
        return static_cast<std::uint16_t>(typed - map_.symbols.begin());
    const auto named = std::ranges::find(namedKeys, symbol, &NamedKey::symbol);
    if (named != namedKeys.end())
        return named->keyCode;
    const std::uint32_t character = xkb_keysym_to_utf32(symbol);
    if (character <= 0x20 || character > 0x7e)
        return std::nullopt;
    return platform::UsKeyboardLayout::keyCode(QChar(static_cast<char16_t>(character)));
}

} // namespace skipnest::linuxdesktop
