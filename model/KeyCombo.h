// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHashFunctions>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>

namespace skipnest::platform {
class KeyboardLayout;
}

namespace skipnest::model {

// A set of modifier keys. The bits are the program's own: they stand in the configuration file and
// have nothing to do with those of keyboard events or of the hotkey interface. Bits beyond the four
// are never produced here, but kept when a file holds them.
struct ModifierFlags {
    std::uint32_t rawValue = 0;

    static const ModifierFlags command;
    static const ModifierFlags option;
    static const ModifierFlags control;
    static const ModifierFlags shift;

    [[nodiscard]] constexpr bool empty() const { return rawValue == 0; }
    [[nodiscard]] constexpr bool contains(ModifierFlags other) const {
        return (rawValue & other.rawValue) == other.rawValue;
    }
    [[nodiscard]] constexpr bool isDisjoint(ModifierFlags other) const {
        return (rawValue & other.rawValue) == 0;
    }
    // The same set in the bits of platform::CarbonModifiers.
    [[nodiscard]] std::uint32_t carbonModifiers() const;

    constexpr bool operator==(const ModifierFlags&) const = default;
};

constexpr ModifierFlags operator|(ModifierFlags a, ModifierFlags b) {
    return {a.rawValue | b.rawValue};
}
constexpr ModifierFlags operator&(ModifierFlags a, ModifierFlags b) {
    return {a.rawValue & b.rawValue};
}
constexpr ModifierFlags operator-(ModifierFlags a, ModifierFlags b) {
    return {a.rawValue & ~b.rawValue};
}
constexpr ModifierFlags operator^(ModifierFlags a, ModifierFlags b) {
    return {a.rawValue ^ b.rawValue};
}

inline constexpr ModifierFlags ModifierFlags::command{1};
inline constexpr ModifierFlags ModifierFlags::option{2};
inline constexpr ModifierFlags ModifierFlags::control{4};
inline constexpr ModifierFlags ModifierFlags::shift{8};

// One physical key (kVK_* numbering: 38 is the key labelled J on a US keyboard, in any layout) with
// a set of modifiers.
struct KeyCombo {
    std::uint16_t keyCode = 0;
    ModifierFlags modifiers;

    constexpr bool operator==(const KeyCombo&) const = default;
};

inline std::size_t qHash(const KeyCombo& combo, std::size_t seed = 0) {
    return qHashMulti(seed, combo.keyCode, combo.modifiers.rawValue);
}

// The key's own name where it has one ("F5", "Space", "↩"), else the upper-cased character that it
// types in this layout, else "Key" and the code. A character whose upper case is several (ß) stays
// as it is: a badge names one key.
[[nodiscard]] QString keyName(std::uint16_t keyCode, const platform::KeyboardLayout& layout);

// For badges: "⌃⌥J". Always control, option, shift, command, then the key.
[[nodiscard]] QString displayString(const KeyCombo& combo, const platform::KeyboardLayout& layout);

// For log lines and messages: "Ctrl + Opt + J", in the same order. Never translated.
[[nodiscard]] QString words(const KeyCombo& combo, const platform::KeyboardLayout& layout);

} // namespace skipnest::model

template <> struct std::hash<skipnest::model::KeyCombo> {
    std::size_t operator()(const skipnest::model::KeyCombo& combo) const noexcept {
        return skipnest::model::qHash(combo);
    }
};
