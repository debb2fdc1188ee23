// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/Chord.h"

#include <QList>

#include <algorithm>
#include <array>
#include <string_view>

namespace skipnest::e2e {
namespace {

struct Key {
    std::u16string_view name;
    std::uint16_t keyCode;
    xcb_keycode_t evdev;
};

constexpr auto keys = std::to_array<Key>({
    {u"1", 18, 2},        {u"2", 19, 3},        {u"3", 20, 4},           {u"4", 21, 5},
    {u"5", 23, 6},        {u"6", 22, 7},        {u"7", 26, 8},           {u"8", 28, 9},
    {u"9", 25, 10},       {u"0", 29, 11},       {u"q", 12, 16},          {u"w", 13, 17},
    {u"e", 14, 18},       {u"r", 15, 19},       {u"t", 17, 20},          {u"y", 16, 21},
    {u"u", 32, 22},       {u"i", 34, 23},       {u"o", 31, 24},          {u"p", 35, 25},
    {u"a", 0, 30},        {u"s", 1, 31},        {u"d", 2, 32},           {u"f", 3, 33},
    {u"g", 5, 34},        {u"h", 4, 35},        {u"j", 38, 36},          {u"k", 40, 37},
    {u"l", 37, 38},       {u"z", 6, 44},        {u"x", 7, 45},           {u"c", 8, 46},
    {u"v", 9, 47},        {u"b", 11, 48},       {u"n", 45, 49},          {u"m", 46, 50},
    {u"return", 36, 28},  {u"esc", 53, 1},      {u"space", 49, 57},      {u"left", 123, 105},
    {u"right", 124, 106}, {u"down", 125, 108},  {u"pagedown", 121, 109}, {u"capslock", 57, 58},
    {u"tab", 48, 15},     {u"numlock", 71, 69},
});
constexpr std::size_t alphanumericCount = 36;

struct Modifier {
    std::u16string_view name;
    std::uint32_t flag;
    xcb_keycode_t evdev;
    std::uint16_t mask;
};

constexpr auto modifierTable = std::to_array<Modifier>({
    {u"ctrl", 4, 29, XCB_MOD_MASK_CONTROL},
    {u"alt", 2, 56, XCB_MOD_MASK_1},
    {u"shift", 8, 42, XCB_MOD_MASK_SHIFT},
    {u"cmd", 1, 125, XCB_MOD_MASK_4},
});

constexpr int evdevOffset = 8;

xcb_keycode_t keycode(xcb_keycode_t evdev) {
    return static_cast<xcb_keycode_t>(evdev + evdevOffset);
}

} // namespace

std::vector<xcb_keycode_t> Chord::modifierKeys() const {
    std::vector<xcb_keycode_t> result;
    for (const Modifier& modifier : modifierTable) {
        if (modifiers & modifier.flag)
            result.push_back(keycode(modifier.evdev));
    }
    return result;
}

std::uint16_t Chord::modifierMask() const {
    std::uint16_t mask = 0;
    for (const Modifier& modifier : modifierTable) {
        if (modifiers & modifier.flag)
            mask = static_cast<std::uint16_t>(mask | modifier.mask);
    }
    return mask;
}

Chord chord(QStringView text) {
    Chord result;
    for (const QStringView word : text.split(u'+')) {
        const auto modifier = std::ranges::find_if(
            modifierTable, [&](const Modifier& row) { return word == QStringView(row.name); });
        if (modifier != modifierTable.end()) {
            result.modifiers |= modifier->flag;
            continue;
        }
        const auto key = std::ranges::find_if(
            keys, [&](const Key& row) { return word == QStringView(row.name); });
        if (key == keys.end())
            qFatal("no such key on this keyboard: %s", qPrintable(word.toString()));
        result.keyCode = key->keyCode;
        result.key = keycode(key->evdev);
    }
    return result;
}

QString alphanumericKeys() {
    QString result;
    for (std::size_t index = 0; index < alphanumericCount; ++index)
        result += QStringView(keys[index].name);
    return result;
}

} // namespace skipnest::e2e
