// SPDX-License-Identifier: Apache-2.0
#include "app/ReadyBindings.h"

#include "app/KeySpellings.h"

#include <QStringBuilder>

#include <algorithm>

namespace skipnest::app {

using model::ShortcutItem;

namespace {

struct Binding {
    QString id;      // "skipnest-" and the record's id: what a second run finds again
    QString title;   // one line
    QString name;    // what `jump` is given
    QString keyText; // as the desktop writes it; empty where it cannot
};

QString shellQuoted(QString text) {
    text.replace(u'\'', QStringLiteral("'\\''"));
    return u'\'' % text % u'\'';
}

// A string as gsettings reads values.
QString variantQuoted(QString text) {
    text.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' % text % u'"';
}

// One argument of a desktop entry's Exec line: quoted for the command, then for the file.
QString execQuoted(QString text) {
    for (const char16_t special : {u'\\', u'"', u'`', u'$'})
        text.replace(QChar(special), QString(u'\\') + QChar(special));
    text.replace(u'\\', QStringLiteral("\\\\")).replace(u'%', QStringLiteral("%%"));
    return u'"' % text % u'"';
}

// An entry of a list in KDE's configuration files.
QString kdeListEntry(QString text) {
    return text.replace(u'\\', QStringLiteral("\\\\")).replace(u',', QStringLiteral("\\,"));
}

bool canStandInALine(const QString& name) {
    return !name.isEmpty() && !name.startsWith(u'-') && std::ranges::all_of(name, [](QChar c) {
        return c.category() != QChar::Other_Control && c != QChar::LineSeparator &&
               c != QChar::ParagraphSeparator;
    });
}

// sway reads quotes, escapes, variables and separators of its own before the shell sees the line.
bool canStandInSway(const QString& name) {
    return std::ranges::none_of(name,
                                [](QChar c) { return QStringView(u"'\"\\$;,[]{}").contains(c); });
}

std::vector<Binding> bindingsOf(const std::vector<ShortcutItem>& shortcuts, BindingsFor desktop,
                                const platform::KeyboardLayout& layout) {
    std::vector<Binding> bindings;
    for (const ShortcutItem& item : shortcuts) {
        if (!item.keyCombo)
            continue;
        const bool isUnique = std::ranges::count(shortcuts, item.name, &ShortcutItem::name) == 1;
        const bool byName = isUnique && canStandInALine(item.name) &&
                            (desktop != BindingsFor::sway || canStandInSway(item.name));
        std::optional<QString> key;
        switch (desktop) {
        case BindingsFor::gnome:
            key = gnomeSpelling(*item.keyCombo, layout);
            break;
        case BindingsFor::kde:
            key = kdeSpelling(*item.keyCombo, layout);
            break;
        case BindingsFor::sway:
            key = swaySpelling(*item.keyCombo, layout);
            break;
        }
        bindings.push_back({u"skipnest-" % item.id.text().toLower(), item.name.simplified(),
                            byName ? item.name : item.id.text(), key.value_or(QString())});
    }
    return bindings;
}

// The full stop keeps a backslash at the end of a title from joining the next line to the comment.
QString leftOut(const Binding& binding) {
    return u"# " % binding.title % u": its key has no name here.\n";
}

QString gnome(const std::vector<Binding>& bindings, const QString& program) {
    QString text = QStringLiteral(R"(#!/bin/sh
# Binds the shortcuts of Skipnest in GNOME.
keys=org.gnome.settings-daemon.plugins.media-keys
folder=/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings
list=$(gsettings get "$keys" custom-keybindings)
shortcut() {
    path=$folder/$1/
    gsettings set "$keys.custom-keybinding:$path" name "$2"
    gsettings set "$keys.custom-keybinding:$path" command "$3"
    gsettings set "$keys.custom-keybinding:$path" binding "$4"
    case $list in
    *"'$path'"*) ;;
    '@as []' | '[]') list="['$path']" ;;
    *) list="${list%]}, '$path']" ;;
    esac
}
)");
    for (const Binding& binding : bindings) {
        if (binding.keyText.isEmpty()) {
            text += leftOut(binding);
            continue;
        }
        const QString command = shellQuoted(program) % u" jump " % shellQuoted(binding.name);
        text += u"shortcut " % binding.id % u' ' %
                shellQuoted(variantQuoted(u"Skipnest: " % binding.title)) % u' ' %
                shellQuoted(variantQuoted(command)) % u' ' %
                shellQuoted(variantQuoted(binding.keyText)) % u'\n';
    }
    return text % u"gsettings set \"$keys\" custom-keybindings \"$list\"\n";
}

QString kde(const std::vector<Binding>& bindings, const QString& program) {
    // Plasma 6 keeps the combo of a command alone, Plasma 5 as a list with the default and the
    // title.
    QString text = QStringLiteral(R"(#!/bin/sh
# Binds the shortcuts of Skipnest in KDE Plasma; they work from the next login on.
entries=${XDG_DATA_HOME:-$HOME/.local/share}/applications
mkdir -p "$entries"
shortcut() {
    if command -v kwriteconfig6 >/dev/null; then
        kwriteconfig6 --file kglobalshortcutsrc --group services --group "$1" --key _launch "$2"
    else
        kwriteconfig5 --file kglobalshortcutsrc --group "$1" --key _launch "$3,none,$4"
    fi
}
)");
    for (const Binding& binding : bindings) {
        if (binding.keyText.isEmpty()) {
            text += leftOut(binding);
            continue;
        }
        const QString entry = binding.id % u".desktop";
        const QString title = u"Skipnest: " % binding.title;
        QString titleInFile = title;
        titleInFile.replace(u'\\', QStringLiteral("\\\\"));
        text += u"cat >\"$entries/" % entry % u"\" <<'END'\n" %
                u"[Desktop Entry]\nType=Application\nName=" % titleInFile % u"\nExec=" %
                execQuoted(program) % u" jump " % execQuoted(binding.name) %
                u"\nNoDisplay=true\nX-KDE-GlobalAccel-CommandShortcut=true\nEND\n" % u"shortcut " %
                entry % u' ' % shellQuoted(binding.keyText) % u' ' %
                shellQuoted(kdeListEntry(binding.keyText)) % u' ' %
                shellQuoted(kdeListEntry(title)) % u'\n';
    }
    return text;
}

QString sway(const std::vector<Binding>& bindings, const QString& program) {
    QString text;
    for (const Binding& binding : bindings) {
        if (binding.keyText.isEmpty()) {
            text += leftOut(binding);
            continue;
        }
        text += u"# " % binding.title % u".\nbindsym " % binding.keyText % u" exec " %
                shellQuoted(program) % u" jump " % shellQuoted(binding.name) % u'\n';
    }
    return text;
}

} // namespace

QString readyBindings(const std::vector<ShortcutItem>& shortcuts, BindingsFor desktop,
                      const QString& program, const platform::KeyboardLayout& layout) {
    const std::vector<Binding> bindings = bindingsOf(shortcuts, desktop, layout);
    switch (desktop) {
    case BindingsFor::gnome:
        return gnome(bindings, program);
    case BindingsFor::kde:
        return kde(bindings, program);
    case BindingsFor::sway:
        return sway(bindings, program);
    }
    Q_UNREACHABLE();
}

} // namespace skipnest::app
