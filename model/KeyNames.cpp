// SPDX-License-Identifier: Apache-2.0
#include "model/KeyNames.h"

#include <algorithm>
#include <array>

namespace skipnest::model {
namespace {

struct NamedKey {
    std::uint16_t keyCode;
    const char16_t* name;
};

// The keypad's characters carry the combining enclosing keycap, so that "5" of the keypad and "5"
// of the top row are told apart.
constexpr auto namedKeys = std::to_array<NamedKey>({
    {122, u"F1"},     {120, u"F2"},     {99, u"F3"},        {118, u"F4"},     {96, u"F5"},
    {97, u"F6"},      {98, u"F7"},      {100, u"F8"},       {101, u"F9"},     {109, u"F10"},
    {103, u"F11"},    {111, u"F12"},    {105, u"F13"},      {107, u"F14"},    {113, u"F15"},
    {106, u"F16"},    {64, u"F17"},     {79, u"F18"},       {80, u"F19"},     {90, u"F20"},
    {126, u"↑"},      {125, u"↓"},      {123, u"←"},        {124, u"→"},      {115, u"Home"},
    {119, u"End"},    {116, u"PageUp"}, {121, u"PageDown"}, {36, u"↩"},       {76, u"⌤"},
    {48, u"⇥"},       {49, u"Space"},   {51, u"⌫"},         {117, u"⌦"},      {53, u"⎋"},
    {82, u"0\u20E3"}, {83, u"1\u20E3"}, {84, u"2\u20E3"},   {85, u"3\u20E3"}, {86, u"4\u20E3"},
    {87, u"5\u20E3"}, {88, u"6\u20E3"}, {89, u"7\u20E3"},   {91, u"8\u20E3"}, {92, u"9\u20E3"},
    {67, u"*\u20E3"}, {69, u"+\u20E3"}, {78, u"-\u20E3"},   {65, u".\u20E3"}, {75, u"/\u20E3"},
    {81, u"=\u20E3"},
});
static_assert(namedKeys.size() == 51);

} // namespace

std::optional<QString> fixedKeyName(std::uint16_t keyCode) {
    const auto found = std::ranges::find(namedKeys, keyCode, &NamedKey::keyCode);
    if (found == namedKeys.end())
        return std::nullopt;
    return QString::fromUtf16(found->name);
}

std::optional<std::uint16_t> keyWithFixedName(const QString& name) {
    const auto found = std::ranges::find_if(namedKeys, [&name](const NamedKey& key) {
        return name.compare(QStringView(key.name), Qt::CaseInsensitive) == 0;
    });
    if (found == namedKeys.end())
        return std::nullopt;
    return found->keyCode;
}

} // namespace skipnest::model
