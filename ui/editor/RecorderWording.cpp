// SPDX-License-Identifier: Apache-2.0
#include "ui/editor/RecorderWording.h"

#include "model/ComboRules.h"
#include "ui/ComboWording.h"
#include "ui/editor/PlainLine.h"

#include <array>

namespace skipnest::ui {

using model::KeyCombo;
using model::ModifierFlags;
using platform::Availability;
using platform::ModifierStyle;

namespace {

// The commands that the rules name, for the translators.
[[maybe_unused]] constexpr auto commands = std::to_array<const char*>({
    QT_TRANSLATE_NOOP("RecorderWording", "Save"),
    QT_TRANSLATE_NOOP("RecorderWording", "Copy"),
    QT_TRANSLATE_NOOP("RecorderWording", "Paste"),
    QT_TRANSLATE_NOOP("RecorderWording", "Cut"),
    QT_TRANSLATE_NOOP("RecorderWording", "Undo"),
    QT_TRANSLATE_NOOP("RecorderWording", "Select All"),
    QT_TRANSLATE_NOOP("RecorderWording", "Close"),
    QT_TRANSLATE_NOOP("RecorderWording", "Quit"),
    QT_TRANSLATE_NOOP("RecorderWording", "Find"),
    QT_TRANSLATE_NOOP("RecorderWording", "New"),
    QT_TRANSLATE_NOOP("RecorderWording", "New Tab"),
    QT_TRANSLATE_NOOP("RecorderWording", "Print"),
    QT_TRANSLATE_NOOP("RecorderWording", "Open"),
    QT_TRANSLATE_NOOP("RecorderWording", "Reload"),
});

} // namespace

QString RecorderWording::text(const KeyCombo& combo) const {
    return style_ == ModifierStyle::glyphs ? words(combo, layout_)
                                           : comboText(combo, layout_, style_);
}

QString RecorderWording::conflict(const Conflict& conflict, const Availability& keyboard) const {
    using enum Conflict::Kind;
    switch (conflict.kind) {
    case noModifier: {
        constexpr ModifierFlags all = ModifierFlags::control | ModifierFlags::option |
                                      ModifierFlags::shift | ModifierFlags::command;
        return tr("Please include at least one modifier key (%1)")
            .arg(style_ == ModifierStyle::glyphs
                     ? QStringLiteral("Cmd, Opt, Ctrl, Shift")
                     : modifierKeys(all, style_).join(QStringLiteral(", ")));
    }
    case systemShortcut:
        return tr("%1 is a system shortcut and cannot be used.").arg(text(conflict.combo));
    case otherShortcut:
        return tr("%1 is already assigned to \"%2\"")
            .arg(text(conflict.combo), plainLine(conflict.name));
    case desktop: {
        if (conflict.name.isEmpty())
            return tr("%1 is already used by another program.").arg(text(conflict.combo));
        if (conflict.action.isEmpty())
            return tr("%1 is already used by %2.")
                .arg(text(conflict.combo), plainLine(conflict.name));
        return tr("%1 is already used by %2 (%3).")
            .arg(text(conflict.combo), plainLine(conflict.name), plainLine(conflict.action));
    }
    case keyboardTaken:
        return keyboard.state == Availability::State::unavailable
                   ? keyboard.reason
                   : tr("Another program holds the keyboard, so no keys can be recorded. Close its "
                        "menu or dialog and try again.");
    }
    Q_UNREACHABLE();
}

QString RecorderWording::warning(const Warning& warning) const {
    using enum Warning::Kind;
    const QString combo = text(warning.combo);
    const QString owner = plainLine(warning.owner);
    switch (warning.kind) {
    case commonCommand:
        // Super runs no command of an application: nothing is overridden.
        return style_ == ModifierStyle::glyphs ? sentence(warning.combo, warning.combo) : QString();
    case neverFires:
        return tr("%1 belongs to %2: no press of it reaches any program, so this shortcut would "
                  "never fire.")
            .arg(combo, owner);
    case desktopUses:
        if (warning.action.isEmpty())
            return tr("%1 is in the settings of %2 too, which may act on it instead.")
                .arg(combo, owner);
        return tr("%1 is in the settings of %2 too (%3), which may act on it instead.")
            .arg(combo, owner, plainLine(warning.action));
    case hiddenByOther:
        if (warning.action == u"hide")
            return tr("%1 hides “%2” now and will no longer do so.").arg(combo, owner);
        if (warning.action == u"nextWindow")
            return tr("%1 goes to the next window now and will no longer do so.").arg(combo);
        if (warning.action == u"previousWindow")
            return tr("%1 goes to the previous window now and will no longer do so.").arg(combo);
        if (warning.action == u"voice")
            return tr("%1 starts the voice search now and will no longer do so.").arg(combo);
        return tr("%1 opens “%2” now and will no longer do so.").arg(combo, owner);
    }
    Q_UNREACHABLE();
}

QString RecorderWording::commonCommand(const KeyCombo& combo) const {
    if (style_ == ModifierStyle::glyphs || !combo.modifiers.contains(ModifierFlags::control))
        return {};
    return sentence(combo, {combo.keyCode,
                            (combo.modifiers - ModifierFlags::control) | ModifierFlags::command});
}

QString RecorderWording::sentence(const KeyCombo& combo, const KeyCombo& asCommand) const {
    const auto fixed = model::commandWarning(asCommand, layout_);
    if (!fixed)
        return {};
    // The rules name the command in quotation marks, and nothing else.
    const QString command = fixed->section(u'“', 1).section(u'”', 0, 0);
    const QString translated = tr(command.toUtf8().constData());
    if (style_ == ModifierStyle::names)
        return tr("%1 is “%2” in most apps. A global shortcut would override it everywhere - a "
                  "shortcut with Alt or Super is safer.")
            .arg(text(combo), translated);
    return tr("%1 is “%2” in most apps. A global shortcut would override it everywhere - a Control "
              "(⌃) or Option (⌥) shortcut is safer.")
        .arg(fixed->section(u' ', 0, 0), translated);
}

} // namespace skipnest::ui
