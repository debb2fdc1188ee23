// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/keys/KeySpelling.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace skipnest::linuxdesktop {

// What one desktop's settings bind, in their words. Everything here takes any bytes and answers
// with what could be understood.
struct DesktopClaims {
    struct Claim {
        KeySpelling key;
        QString action;
        bool operator==(const Claim&) const = default;
    };
    std::vector<Claim> claims;
    bool superTap = false; // the Super key alone does something

    bool operator==(const DesktopClaims&) const = default;

    // A tap of Super is noted as that; what names no combo is left out.
    void add(const std::optional<KeySpelling>& key, const QString& action);
};

// rc.xml. The first key of a chain is taken, the others are free.
[[nodiscard]] DesktopClaims openboxClaims(const QByteArray& configuration);

// xfce4-keyboard-shortcuts.xml, the system's and the person's: theirs are laid over the defaults,
// or replace them where the file says so.
[[nodiscard]] DesktopClaims xfceClaims(const QByteArray& system, const QByteArray& person);

// kglobalshortcutsrc and kwinrc.
[[nodiscard]] DesktopClaims kdeClaims(const QByteArray& globalShortcuts, const QByteArray& kwin);

// The configuration of i3 or sway. Bindings inside a mode are left out: they hold only while the
// person is in it.
struct I3ConfigFile {
    QString folder;
    QByteArray text;
};
// Files by a pattern as it stands after "include", seen from the including file's folder.
using I3Include =
    std::function<std::vector<I3ConfigFile>(const QString& pattern, const QString& folder)>;
[[nodiscard]] DesktopClaims i3Claims(const I3ConfigFile& configuration, const I3Include& include);

// Settings by schema, as dconf keeps them.
class SettingsSource {
public:
    virtual ~SettingsSource() = default;
    // Empty where the schema is not installed.
    [[nodiscard]] virtual QStringList keys(const QString& schema) const = 0;
    // A text or a list of texts; empty for anything else. `path` only for relocatable schemas.
    [[nodiscard]] virtual QStringList texts(const QString& schema, const QString& path,
                                            const QString& key) const = 0;
};
enum class GtkDesktop { gnome, cinnamon, mate };
[[nodiscard]] DesktopClaims gsettingsClaims(GtkDesktop desktop, const SettingsSource& settings);

// The settings of one menu applet of Cinnamon's panel: whether a tap of Super opens it.
[[nodiscard]] bool cinnamonMenuTakesSuper(const QByteArray& json);

} // namespace skipnest::linuxdesktop
