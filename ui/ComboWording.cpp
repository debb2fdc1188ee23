// SPDX-License-Identifier: Apache-2.0
#include "ui/ComboWording.h"

#include "platform/KeyboardLayout.h"
#include "platform/UserDefaults.h"

#include <QCoreApplication>
#include <QJsonValue>

#include <array>

namespace skipnest::ui {

using model::ModifierFlags;
using platform::ModifierStyle;

namespace {

struct Modifier {
    ModifierFlags flag;
    char16_t glyph;
    const char* name;
};
constexpr auto modifiersInOrder = std::to_array<Modifier>({
    {ModifierFlags::control, u'⌃', QT_TRANSLATE_NOOP("ComboWording", "Ctrl")},
    {ModifierFlags::option, u'⌥', QT_TRANSLATE_NOOP("ComboWording", "Alt")},
    {ModifierFlags::shift, u'⇧', QT_TRANSLATE_NOOP("ComboWording", "Shift")},
    {ModifierFlags::command, u'⌘', QT_TRANSLATE_NOOP("ComboWording", "Super")},
});

} // namespace

ModifierStyle modifierStyle(const platform::AppInfo& app, const platform::UserDefaults& defaults) {
    const QJsonValue chosen = defaults.value(QStringLiteral("sk.comboGlyphs"));
    if (!chosen.isBool())
        return app.modifierStyle;
    return chosen.toBool() ? ModifierStyle::glyphs : ModifierStyle::names;
}

QStringList modifierKeys(ModifierFlags modifiers, ModifierStyle style) {
    QStringList keys;
    for (const Modifier& modifier : modifiersInOrder)
        if (modifiers.contains(modifier.flag))
            keys.append(style == ModifierStyle::glyphs
                            ? QString(QChar(modifier.glyph))
                            : QCoreApplication::translate("ComboWording", modifier.name));
    return keys;
}

QStringList comboKeys(const std::optional<model::KeyCombo>& combo,
                      const platform::KeyboardLayout& layout, ModifierStyle style) {
    if (!combo)
        return {};
    return modifierKeys(combo->modifiers, style) << model::keyName(combo->keyCode, layout);
}

QString comboText(const std::optional<model::KeyCombo>& combo,
                  const platform::KeyboardLayout& layout, ModifierStyle style) {
    return comboKeys(combo, layout, style)
        .join(style == ModifierStyle::glyphs ? QString() : QStringLiteral("+"));
}

} // namespace skipnest::ui
