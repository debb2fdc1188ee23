// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/KeySpelling.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <span>

namespace skipnest::linuxdesktop {

using platform::CarbonModifiers;

namespace {

struct ModifierWord {
    const char* word;
    std::uint32_t carbon;
};

constexpr auto gtkModifiers = std::to_array<ModifierWord>({
    {"shift", CarbonModifiers::shift},
    {"shft", CarbonModifiers::shift},
    {"control", CarbonModifiers::control},
    {"ctrl", CarbonModifiers::control},
    {"ctl", CarbonModifiers::control},
    {"primary", CarbonModifiers::control},
    {"alt", CarbonModifiers::option},
    {"mod1", CarbonModifiers::option},
    {"super", CarbonModifiers::command},
    {"mod4", CarbonModifiers::command},
});

constexpr auto kdeModifiers = std::to_array<ModifierWord>({
    {"shift", CarbonModifiers::shift},
    {"ctrl", CarbonModifiers::control},
    {"alt", CarbonModifiers::option},
    {"meta", CarbonModifiers::command},
});

constexpr auto i3Modifiers = std::to_array<ModifierWord>({
    {"shift", CarbonModifiers::shift},
    {"control", CarbonModifiers::control},
    {"ctrl", CarbonModifiers::control},
    {"mod1", CarbonModifiers::option},
    {"alt", CarbonModifiers::option},
    {"mod4", CarbonModifiers::command},
    {"super", CarbonModifiers::command},
});

constexpr auto openboxModifiers = std::to_array<ModifierWord>({
    {"s", CarbonModifiers::shift},
    {"shift", CarbonModifiers::shift},
    {"c", CarbonModifiers::control},
    {"control", CarbonModifiers::control},
    {"ctrl", CarbonModifiers::control},
    {"a", CarbonModifiers::option},
    {"alt", CarbonModifiers::option},
    {"mod1", CarbonModifiers::option},
    {"w", CarbonModifiers::command},
    {"super", CarbonModifiers::command},
    {"mod4", CarbonModifiers::command},
});

// Where Qt's name of a key is not X's.
struct KeyWord {
    const char* word;
    const char* keysym;
};
constexpr auto kdeKeys = std::to_array<KeyWord>({
    {"pgup", "Prior"},     {"pgdown", "Next"},    {"ins", "Insert"},  {"del", "Delete"},
    {"esc", "Escape"},     {"enter", "KP_Enter"}, {"backtab", "Tab"}, {"backspace", "BackSpace"},
    {"space", "space"},    {"+", "plus"},         {"-", "minus"},     {"=", "equal"},
    {",", "comma"},        {".", "period"},       {"/", "slash"},     {"\\", "backslash"},
    {";", "semicolon"},    {"'", "apostrophe"},   {"`", "grave"},     {"[", "bracketleft"},
    {"]", "bracketright"},
});

std::optional<std::uint32_t> modifierNamed(std::span<const ModifierWord> words,
                                           const QString& text) {
    const auto found = std::ranges::find_if(words, [&text](const ModifierWord& word) {
        return text.compare(QLatin1String(word.word), Qt::CaseInsensitive) == 0;
    });
    if (found == words.end())
        return std::nullopt;
    return found->carbon;
}

// "mod<separator>mod<separator>key". The key may be the separator itself ("Meta++", "W--").
std::optional<KeySpelling> joined(const QString& text, QChar separator,
                                  std::span<const ModifierWord> modifiers) {
    KeySpelling spelling;
    QString rest = text.trimmed();
    while (true) {
        const qsizetype end = rest.indexOf(separator, 1);
        if (end < 0)
            break;
        const auto modifier = modifierNamed(modifiers, rest.left(end).trimmed());
        if (!modifier)
            return std::nullopt;
        spelling.carbonModifiers |= *modifier;
        rest = rest.sliced(end + 1).trimmed();
        if (rest.isEmpty())
            return std::nullopt;
    }
    if (rest.isEmpty())
        return std::nullopt;
    spelling.keysym = rest;
    return spelling;
}

} // namespace

bool KeySpelling::isSuperTap() const {
    return carbonModifiers == 0 && keycode == 0 && (keysym == u"Super_L" || keysym == u"Super_R");
}

std::optional<KeySpelling> gtkSpelling(const QString& text) {
    KeySpelling spelling;
    QString rest = text.trimmed();
    while (rest.startsWith(u'<')) {
        const qsizetype end = rest.indexOf(u'>');
        if (end < 0)
            return std::nullopt;
        const QString word = rest.sliced(1, end - 1);
        rest = rest.sliced(end + 1).trimmed();
        if (word.compare(u"release", Qt::CaseInsensitive) == 0)
            continue;
        const auto modifier = modifierNamed(gtkModifiers, word);
        if (!modifier)
            return std::nullopt;
        spelling.carbonModifiers |= *modifier;
    }
    if (rest.isEmpty())
        return std::nullopt;
    spelling.keysym = rest;
    return spelling;
}

std::optional<KeySpelling> kdeSpelling(const QString& text) {
    if (text.trimmed() == u"Meta")
        return KeySpelling{0, QStringLiteral("Super_L"), 0};
    auto spelling = joined(text, u'+', kdeModifiers);
    if (!spelling)
        return std::nullopt;
    const auto word = std::ranges::find_if(kdeKeys, [&spelling](const KeyWord& key) {
        return spelling->keysym.compare(QLatin1String(key.word), Qt::CaseInsensitive) == 0;
    });
    if (word != kdeKeys.end())
        spelling->keysym = QLatin1String(word->keysym);
    return spelling;
}

std::optional<KeySpelling> i3Spelling(const QString& text) {
    return joined(text, u'+', i3Modifiers);
}

std::optional<KeySpelling> openboxSpelling(const QString& text) {
    auto spelling = joined(text, u'-', openboxModifiers);
    if (!spelling || !spelling->keysym.startsWith(u"0x", Qt::CaseInsensitive))
        return spelling;
    bool ok = false;
    const uint keycode = spelling->keysym.toUInt(&ok, 16);
    if (!ok || keycode < 8 || keycode > 0xff)
        return std::nullopt;
    spelling->keycode = static_cast<std::uint8_t>(keycode);
    spelling->keysym.clear();
    return spelling;
}

} // namespace skipnest::linuxdesktop
