// SPDX-License-Identifier: Apache-2.0
#include "model/ComboRules.h"

#include "platform/KeyboardLayout.h"

#include <algorithm>
#include <array>

namespace skipnest::model {
namespace {

constexpr ModifierFlags command = ModifierFlags::command;
constexpr ModifierFlags control = ModifierFlags::control;
constexpr ModifierFlags shift = ModifierFlags::shift;

constexpr auto systemShortcuts = std::to_array<KeyCombo>({
    {48, command},         // Tab
    {49, command},         // Space
    {12, command},         // Q
    {13, command},         // W
    {4, command},          // H
    {46, command},         // M
    {20, command | shift}, // 3
    {21, command | shift}, // 4
    {23, command | shift}, // 5
    {49, control},         // Space
    {126, control},        // ↑
    {125, control},        // ↓
    {123, control},        // ←
    {124, control},        // →
});

struct CommonCommand {
    char16_t key;
    const char16_t* name;
};
constexpr auto commonCommands = std::to_array<CommonCommand>({
    {u'S', u"Save"},
    {u'C', u"Copy"},
    {u'V', u"Paste"},
    {u'X', u"Cut"},
    {u'Z', u"Undo"},
    {u'A', u"Select All"},
    {u'W', u"Close"},
    {u'Q', u"Quit"},
    {u'F', u"Find"},
    {u'N', u"New"},
    {u'T', u"New Tab"},
    {u'P', u"Print"},
    {u'O', u"Open"},
    {u'R', u"Reload"},
});

} // namespace

bool isSystemShortcut(const KeyCombo& combo) {
    return std::ranges::find(systemShortcuts, combo) != systemShortcuts.end();
}

std::optional<QString> refusal(const KeyCombo& combo, const platform::KeyboardLayout& layout) {
    if (combo.keyCode == escapeKeyCode)
        return std::nullopt;
    const ModifierFlags all = ModifierFlags::command | ModifierFlags::option |
                              ModifierFlags::control | ModifierFlags::shift;
    if (combo.modifiers.isDisjoint(all))
        return QStringLiteral("Please include at least one modifier key (Cmd, Opt, Ctrl, Shift)");
    if (isSystemShortcut(combo))
        return words(combo, layout) + QStringLiteral(" is a system shortcut and cannot be used.");
    return std::nullopt;
}

std::optional<QString> commandWarning(const KeyCombo& combo,
                                      const platform::KeyboardLayout& layout) {
    const bool shifted = combo.modifiers == (command | shift);
    if (!shifted && combo.modifiers != command)
        return std::nullopt;
    const QString name = keyName(combo.keyCode, layout);
    if (name.size() != 1)
        return std::nullopt;
    const auto row =
        std::ranges::find(commonCommands, name.at(0).toUpper().unicode(), &CommonCommand::key);
    if (row == commonCommands.end())
        return std::nullopt;
    return QStringLiteral(
               "%1%2 is “%3” in most apps. A global shortcut would override it everywhere "
               "- a Control (⌃) or Option (⌥) shortcut is safer.")
        .arg(shifted ? QStringLiteral("⌘⇧") : QStringLiteral("⌘"), name,
             QString::fromUtf16(row->name));
}

} // namespace skipnest::model
