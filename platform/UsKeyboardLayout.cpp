// SPDX-License-Identifier: Apache-2.0
#include "platform/UsKeyboardLayout.h"

#include <algorithm>
#include <array>

namespace skipnest::platform {
namespace {

struct KeyCharacter {
    std::uint16_t keyCode;
    char16_t character;
};

// kVK_ANSI_* in code order, and kVK_ISO_Section (10), which US keyboards do not have but whose US
// layout entry is the section sign.
constexpr auto keyCharacters = std::to_array<KeyCharacter>({
    {0, u'a'},  {1, u's'},  {2, u'd'},  {3, u'f'},   {4, u'h'},  {5, u'g'},  {6, u'z'},
    {7, u'x'},  {8, u'c'},  {9, u'v'},  {10, u'§'},  {11, u'b'}, {12, u'q'}, {13, u'w'},
    {14, u'e'}, {15, u'r'}, {16, u'y'}, {17, u't'},  {18, u'1'}, {19, u'2'}, {20, u'3'},
    {21, u'4'}, {22, u'6'}, {23, u'5'}, {24, u'='},  {25, u'9'}, {26, u'7'}, {27, u'-'},
    {28, u'8'}, {29, u'0'}, {30, u']'}, {31, u'o'},  {32, u'u'}, {33, u'['}, {34, u'i'},
    {35, u'p'}, {37, u'l'}, {38, u'j'}, {39, u'\''}, {40, u'k'}, {41, u';'}, {42, u'\\'},
    {43, u','}, {44, u'/'}, {45, u'n'}, {46, u'm'},  {47, u'.'}, {50, u'`'},
});

} // namespace

std::optional<QString> UsKeyboardLayout::character(std::uint16_t keyCode) const {
    const auto found = std::ranges::find(keyCharacters, keyCode, &KeyCharacter::keyCode);
    if (found == keyCharacters.end())
        return std::nullopt;
    return QString(QChar(found->character));
}

Observation UsKeyboardLayout::observeChanges(std::function<void()>) {
    return {};
}

std::optional<std::uint16_t> UsKeyboardLayout::keyCode(QChar character) {
    const auto found =
        std::ranges::find(keyCharacters, character.unicode(), &KeyCharacter::character);
    if (found == keyCharacters.end())
        return std::nullopt;
    return found->keyCode;
}

} // namespace skipnest::platform
