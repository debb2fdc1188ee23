// SPDX-License-Identifier: Apache-2.0
#include "switcher/SwitcherKeys.h"

#include <QList>

#include <algorithm>
#include <array>
#include <utility>

namespace skipnest::switcher {

using model::ModifierFlags;
using platform::EventFlags;

namespace {

constexpr auto keys = std::to_array<std::pair<std::uint16_t, SwitcherKey>>({
    {124, SwitcherKey::right},
    {123, SwitcherKey::left},
    {125, SwitcherKey::down},
    {126, SwitcherKey::up},
    {48, SwitcherKey::next},
    {36, SwitcherKey::pick}, // Return
    {76, SwitcherKey::pick}, // Enter of the keypad
    {53, SwitcherKey::leave},
    {51, SwitcherKey::erase},  // Delete
    {117, SwitcherKey::erase}, // Forward Delete
});

constexpr auto modifiers = std::to_array<std::pair<ModifierFlags, std::uint64_t>>({
    {ModifierFlags::command, EventFlags::command},
    {ModifierFlags::option, EventFlags::alternate},
    {ModifierFlags::control, EventFlags::control},
    {ModifierFlags::shift, EventFlags::shift},
});

} // namespace

SwitcherKey switcherKey(std::uint16_t keyCode) {
    const auto found = std::ranges::find(keys, keyCode, &decltype(keys)::value_type::first);
    return found == keys.end() ? SwitcherKey::other : found->second;
}

bool isTyping(const platform::KeyPress& press) {
    if (press.flags.contains(EventFlags::command) || press.flags.contains(EventFlags::control))
        return false;
    // Function keys and the like type control or private characters on some systems.
    const auto characters = press.text.toUcs4();
    return !characters.isEmpty() && std::ranges::all_of(characters, [](auto character) {
        return QChar::isPrint(character);
    });
}

EventFlags eventFlags(ModifierFlags of) {
    EventFlags flags;
    for (const auto& [modifier, flag] : modifiers)
        if (of.contains(modifier))
            flags.bits |= flag;
    return flags;
}

ModifierFlags modifierFlags(EventFlags of) {
    ModifierFlags flags;
    for (const auto& [modifier, flag] : modifiers)
        if (of.contains(flag))
            flags = flags | modifier;
    return flags;
}

} // namespace skipnest::switcher
