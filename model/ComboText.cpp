// SPDX-License-Identifier: Apache-2.0
#include "model/ComboText.h"

#include "model/KeyNames.h"
#include "platform/UsKeyboardLayout.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace skipnest::model {
namespace {

using platform::Failure;
using platform::Result;

struct ModifierName {
    const char16_t* name;
    ModifierFlags flag;
};
constexpr auto modifierNames = std::to_array<ModifierName>({
    {u"cmd", ModifierFlags::command},
    {u"command", ModifierFlags::command},
    {u"super", ModifierFlags::command},
    {u"meta", ModifierFlags::command},
    {u"opt", ModifierFlags::option},
    {u"option", ModifierFlags::option},
    {u"alt", ModifierFlags::option},
    {u"ctrl", ModifierFlags::control},
    {u"control", ModifierFlags::control},
    {u"shift", ModifierFlags::shift},
});

struct ModifierGlyph {
    char16_t glyph;
    ModifierFlags flag;
};
constexpr auto modifierGlyphs = std::to_array<ModifierGlyph>({
    {u'⌘', ModifierFlags::command},
    {u'⌥', ModifierFlags::option},
    {u'⌃', ModifierFlags::control},
    {u'⇧', ModifierFlags::shift},
});

struct SpelledKey {
    const char16_t* name;
    std::uint16_t keyCode;
};
// Keys whose displayed name is a glyph that nobody types.
constexpr auto spelledKeys = std::to_array<SpelledKey>({
    {u"tab", 48},
    {u"return", 36},
    {u"enter", 76},
    {u"esc", 53},
    {u"delete", 51},
    {u"forwarddelete", 117},
    {u"left", 123},
    {u"right", 124},
    {u"up", 126},
    {u"down", 125},
});

template <typename Row, std::size_t size>
const Row* rowNamed(const std::array<Row, size>& rows, const QString& word) {
    const auto found = std::ranges::find_if(rows, [&word](const Row& row) {
        return word.compare(QStringView(row.name), Qt::CaseInsensitive) == 0;
    });
    return found == rows.end() ? nullptr : &*found;
}

Failure malformed(const QString& detail) {
    return {Failure::Kind::malformed, detail};
}

QString quoted(const QString& word) {
    return u'"' + word + u'"';
}

// "key" and a decimal code.
std::optional<std::uint16_t> numberedKey(const QString& word) {
    constexpr qsizetype prefix = 3;
    if (!word.startsWith(u"key", Qt::CaseInsensitive) || word.size() == prefix)
        return std::nullopt;
    std::uint32_t code = 0;
    for (const QChar digit : word.sliced(prefix)) {
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
        code = code * 10 + static_cast<std::uint32_t>(digit.unicode() - u'0');
        if (code > std::numeric_limits<std::uint16_t>::max())
            return std::nullopt;
    }
    return static_cast<std::uint16_t>(code);
}

std::optional<std::uint16_t> keyNamed(const QString& word) {
    if (word.size() == 1) {
        if (const auto code = platform::UsKeyboardLayout::keyCode(word.at(0).toLower()))
            return code;
    }
    if (const SpelledKey* spelled = rowNamed(spelledKeys, word))
        return spelled->keyCode;
    if (const auto code = keyWithFixedName(word))
        return code;
    return numberedKey(word);
}

// The words between the joiners. The keypad's plus key is the one name that holds a plus sign.
QStringList wordsOf(const QString& text) {
    const QString keypadPlus = QStringLiteral("+\u20E3");
    const QString trimmed = text.trimmed();
    if (!trimmed.endsWith(keypadPlus))
        return trimmed.split(u'+');
    const QString before = trimmed.chopped(keypadPlus.size()).trimmed();
    if (before.endsWith(u'+'))
        return before.chopped(1).split(u'+') << keypadPlus;
    QStringList parts = before.split(u'+');
    parts.last() += keypadPlus;
    return parts;
}

} // namespace

Result<KeyCombo> parseCombo(const QString& text) {
    if (text.trimmed().isEmpty())
        return malformed(QStringLiteral("the combo is empty"));

    KeyCombo combo;
    const auto add = [&combo](ModifierFlags flag) {
        const bool isNew = combo.modifiers.isDisjoint(flag);
        combo.modifiers = combo.modifiers | flag;
        return isNew;
    };
    const QStringList parts = wordsOf(text);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const bool last = i == parts.size() - 1;
        QString word = parts.at(i).trimmed();
        if (word.isEmpty()) {
            return malformed(QStringLiteral("a word is empty in %1; the key that types a plus sign "
                                            "is \"=\"")
                                 .arg(quoted(text)));
        }
        bool glyphs = false;
        while (!word.isEmpty()) {
            const auto glyph =
                std::ranges::find(modifierGlyphs, word.at(0).unicode(), &ModifierGlyph::glyph);
            if (glyph == modifierGlyphs.end())
                break;
            if (!add(glyph->flag))
                return malformed(quoted(word.left(1)) + QStringLiteral(" is there twice"));
            word = word.sliced(1).trimmed();
            glyphs = true;
        }
        if (const ModifierName* modifier = rowNamed(modifierNames, word)) {
            if (!add(modifier->flag))
                return malformed(quoted(word) + QStringLiteral(" is there twice"));
            word.clear();
            glyphs = true;
        }
        if (!last) {
            if (!glyphs || !word.isEmpty())
                return malformed(quoted(word) + QStringLiteral(" is no modifier"));
            continue;
        }
        if (word.isEmpty())
            return malformed(quoted(text) + QStringLiteral(" names no key"));
        const auto keyCode = keyNamed(word);
        if (!keyCode)
            return malformed(quoted(word) + QStringLiteral(" is no key"));
        combo.keyCode = *keyCode;
    }
    return combo;
}

} // namespace skipnest::model
