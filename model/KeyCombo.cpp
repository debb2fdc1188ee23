// SPDX-License-Identifier: Apache-2.0
#include "model/KeyCombo.h"

#include "model/KeyNames.h"
#include "platform/EventFlags.h"
#include "platform/KeyboardLayout.h"

#include <QList>

#include <array>

namespace skipnest::model {
namespace {

struct ModifierText {
    ModifierFlags flag;
    const char16_t* symbol;
    const char16_t* word;
};

// In the order in which a combo is written, whatever order the keys were pressed in.
constexpr auto modifierTexts = std::to_array<ModifierText>({
    {ModifierFlags::control, u"⌃", u"Ctrl"},
    {ModifierFlags::option, u"⌥", u"Opt"},
    {ModifierFlags::shift, u"⇧", u"Shift"},
    {ModifierFlags::command, u"⌘", u"Cmd"},
});

// Some layouts answer a control character or a blank for keys that type nothing one could show.
bool canBeShown(const QString& text) {
    for (const char32_t character : text.toUcs4()) {
        if (QChar::isPrint(character) && !QChar::isSpace(character))
            return true;
    }
    return false;
}

} // namespace

std::uint32_t ModifierFlags::carbonModifiers() const {
    using platform::CarbonModifiers;
    return (contains(command) ? CarbonModifiers::command : 0) |
           (contains(shift) ? CarbonModifiers::shift : 0) |
           (contains(option) ? CarbonModifiers::option : 0) |
           (contains(control) ? CarbonModifiers::control : 0);
}

QString keyName(std::uint16_t keyCode, const platform::KeyboardLayout& layout) {
    if (const auto fixed = fixedKeyName(keyCode))
        return *fixed;
    const std::optional<QString> character = layout.character(keyCode);
    if (!character || !canBeShown(*character))
        return QStringLiteral("Key") + QString::number(keyCode);
    const QString upper = character->toUpper();
    return upper.size() == character->size() ? upper : *character;
}

QString displayString(const KeyCombo& combo, const platform::KeyboardLayout& layout) {
    QString text;
    for (const ModifierText& modifier : modifierTexts) {
        if (combo.modifiers.contains(modifier.flag))
            text += QStringView(modifier.symbol);
    }
    return text + keyName(combo.keyCode, layout);
}

QString words(const KeyCombo& combo, const platform::KeyboardLayout& layout) {
    QString text;
    for (const ModifierText& modifier : modifierTexts) {
        if (combo.modifiers.contains(modifier.flag))
            text += QString::fromUtf16(modifier.word) + QStringLiteral(" + ");
    }
    return text + keyName(combo.keyCode, layout);
}

} // namespace skipnest::model
