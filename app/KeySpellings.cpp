// SPDX-License-Identifier: Apache-2.0
#include "app/KeySpellings.h"

#include "platform/KeyboardLayout.h"

#include <algorithm>
#include <array>

namespace skipnest::app {

using model::KeyCombo;
using model::ModifierFlags;

namespace {

struct NamedKey {
    std::uint16_t keyCode;
    const char* keysym; // the X keyboard extension's name
    const char* qt;     // as Qt and KDE write it
};
constexpr auto namedKeys = std::to_array<NamedKey>({
    {122, "F1", "F1"},
    {120, "F2", "F2"},
    {99, "F3", "F3"},
    {118, "F4", "F4"},
    {96, "F5", "F5"},
    {97, "F6", "F6"},
    {98, "F7", "F7"},
    {100, "F8", "F8"},
    {101, "F9", "F9"},
    {109, "F10", "F10"},
    {103, "F11", "F11"},
    {111, "F12", "F12"},
    {105, "F13", "F13"},
    {107, "F14", "F14"},
    {113, "F15", "F15"},
    {106, "F16", "F16"},
    {64, "F17", "F17"},
    {79, "F18", "F18"},
    {80, "F19", "F19"},
    {90, "F20", "F20"},
    {126, "Up", "Up"},
    {125, "Down", "Down"},
    {123, "Left", "Left"},
    {124, "Right", "Right"},
    {115, "Home", "Home"},
    {119, "End", "End"},
    {116, "Page_Up", "PgUp"},
    {121, "Page_Down", "PgDown"},
    {36, "Return", "Return"},
    {76, "KP_Enter", "Num+Enter"},
    {48, "Tab", "Tab"},
    {49, "space", "Space"},
    {51, "BackSpace", "Backspace"},
    {117, "Delete", "Del"},
    {53, "Escape", "Esc"},
    {82, "KP_0", "Num+0"},
    {83, "KP_1", "Num+1"},
    {84, "KP_2", "Num+2"},
    {85, "KP_3", "Num+3"},
    {86, "KP_4", "Num+4"},
    {87, "KP_5", "Num+5"},
    {88, "KP_6", "Num+6"},
    {89, "KP_7", "Num+7"},
    {91, "KP_8", "Num+8"},
    {92, "KP_9", "Num+9"},
    {67, "KP_Multiply", "Num+*"},
    {69, "KP_Add", "Num++"},
    {78, "KP_Subtract", "Num+-"},
    {65, "KP_Decimal", "Num+."},
    {75, "KP_Divide", "Num+/"},
    {81, "KP_Equal", "Num+="},
});

struct NamedCharacter {
    char16_t character;
    const char* keysym;
};
constexpr auto namedCharacters = std::to_array<NamedCharacter>({
    {u'=', "equal"},       {u'-', "minus"},      {u'[', "bracketleft"}, {u']', "bracketright"},
    {u'\'', "apostrophe"}, {u';', "semicolon"},  {u'\\', "backslash"},  {u',', "comma"},
    {u'/', "slash"},       {u'.', "period"},     {u'`', "grave"},       {u'<', "less"},
    {u'>', "greater"},     {u'#', "numbersign"}, {u'+', "plus"},        {u'*', "asterisk"},
    {u'^', "asciicircum"}, {u'!', "exclam"},     {u'$', "dollar"},      {u'&', "ampersand"},
    {u'"', "quotedbl"},    {u'(', "parenleft"},  {u')', "parenright"},  {u'_', "underscore"},
    {u':', "colon"},
});

QString keysymOf(QChar character) {
    const auto found =
        std::ranges::find(namedCharacters, character.unicode(), &NamedCharacter::character);
    if (found != namedCharacters.end())
        return QString::fromLatin1(found->keysym);
    const bool isPlain = character.unicode() < 0x80 && character.isLetterOrNumber();
    return isPlain ? QString(character)
                   : QStringLiteral("U%1").arg(int(character.unicode()), 4, 16, QLatin1Char('0'));
}

struct Spelled {
    QString keysym;
    QString qt;
};

std::optional<Spelled> key(std::uint16_t keyCode, const platform::KeyboardLayout& layout) {
    const auto found = std::ranges::find(namedKeys, keyCode, &NamedKey::keyCode);
    if (found != namedKeys.end())
        return Spelled{QString::fromLatin1(found->keysym), QString::fromLatin1(found->qt)};
    const auto character = layout.character(keyCode);
    if (!character || character->size() != 1 || !character->at(0).isPrint())
        return std::nullopt;
    const QString upper = character->toUpper();
    return Spelled{keysymOf(character->at(0)), upper.size() == 1 ? upper : *character};
}

// The names of the modifiers held, in the order given.
struct ModifierName {
    ModifierFlags flag;
    const char* name;
};
template <std::size_t n>
QString modifiers(const KeyCombo& combo, const std::array<ModifierName, n>& names) {
    QString text;
    for (const ModifierName& modifier : names) {
        if (combo.modifiers.contains(modifier.flag))
            text += QLatin1String(modifier.name);
    }
    return text;
}

} // namespace

std::optional<QString> gnomeSpelling(const KeyCombo& combo,
                                     const platform::KeyboardLayout& layout) {
    constexpr auto names = std::to_array<ModifierName>({{ModifierFlags::control, "<Control>"},
                                                        {ModifierFlags::option, "<Alt>"},
                                                        {ModifierFlags::shift, "<Shift>"},
                                                        {ModifierFlags::command, "<Super>"}});
    const auto spelled = key(combo.keyCode, layout);
    return spelled ? std::optional(modifiers(combo, names) + spelled->keysym) : std::nullopt;
}

std::optional<QString> kdeSpelling(const KeyCombo& combo, const platform::KeyboardLayout& layout) {
    constexpr auto names = std::to_array<ModifierName>({{ModifierFlags::command, "Meta+"},
                                                        {ModifierFlags::control, "Ctrl+"},
                                                        {ModifierFlags::option, "Alt+"},
                                                        {ModifierFlags::shift, "Shift+"}});
    const auto spelled = key(combo.keyCode, layout);
    return spelled ? std::optional(modifiers(combo, names) + spelled->qt) : std::nullopt;
}

std::optional<QString> swaySpelling(const KeyCombo& combo, const platform::KeyboardLayout& layout) {
    constexpr auto names = std::to_array<ModifierName>({{ModifierFlags::control, "Ctrl+"},
                                                        {ModifierFlags::option, "Mod1+"},
                                                        {ModifierFlags::shift, "Shift+"},
                                                        {ModifierFlags::command, "Mod4+"}});
    const auto spelled = key(combo.keyCode, layout);
    return spelled ? std::optional(modifiers(combo, names) + spelled->keysym) : std::nullopt;
}

} // namespace skipnest::app
