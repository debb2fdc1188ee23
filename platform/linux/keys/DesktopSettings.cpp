// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopSettings.h"

#include "platform/linux/keys/RunningDesktops.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace skipnest::linuxdesktop {

using platform::DesktopShortcut;
using platform::DesktopShortcutReading;

namespace {

constexpr qint64 largestFile = qint64{1} << 20;

class Settings {
public:
    Settings(const DesktopSession& session, const SettingsSource& settings)
        : session_(session), settings_(settings) {}

    [[nodiscard]] DesktopClaims read(KeyDesktop desktop);
    [[nodiscard]] const QStringList& sources() const { return sources_; }

private:
    // Nothing where there is no such regular file: a pipe would never end.
    std::optional<QByteArray> file(const QString& path) {
        const QFileInfo info(path);
        QFile file(path);
        if (!info.isFile() || info.size() > largestFile || !file.open(QIODevice::ReadOnly))
            return std::nullopt;
        sources_.append(path);
        return file.read(largestFile);
    }
    // The first of these that is there.
    struct Found {
        QString path;
        QByteArray text;
    };
    std::optional<Found> first(const QStringList& paths) {
        for (const QString& path : paths) {
            if (auto text = file(path))
                return Found{path, std::move(*text)};
        }
        return std::nullopt;
    }
    // A name below the person's configuration folder, then below the system's.
    [[nodiscard]] QStringList everywhere(const QString& name) const {
        QStringList paths{session_.configHome + u'/' + name};
        for (const QString& folder : session_.configFolders)
            paths.append(folder + u'/' + name);
        return paths;
    }

    DesktopClaims gtk(GtkDesktop desktop, const QString& source);
    DesktopClaims cinnamon();
    DesktopClaims xfce();
    DesktopClaims kde();
    DesktopClaims i3(const QStringList& paths);
    DesktopClaims openbox();
    std::vector<I3ConfigFile> included(const QString& pattern, const QString& folder);

    const DesktopSession& session_;
    const SettingsSource& settings_;
    QStringList sources_;
};

DesktopClaims Settings::gtk(GtkDesktop desktop, const QString& source) {
    DesktopClaims claims = gsettingsClaims(desktop, settings_);
    if (claims != DesktopClaims{})
        sources_.append(source);
    return claims;
}

DesktopClaims Settings::cinnamon() {
    DesktopClaims claims = gtk(GtkDesktop::cinnamon, QStringLiteral("gsettings org.cinnamon"));
    const QDir applet(session_.configHome + QStringLiteral("/cinnamon/spices/menu@cinnamon.org"));
    for (const QFileInfo& info : applet.entryInfoList({QStringLiteral("*.json")}, QDir::Files)) {
        if (const auto json = file(info.filePath()))
            claims.superTap = claims.superTap || cinnamonMenuTakesSuper(*json);
    }
    return claims;
}

DesktopClaims Settings::xfce() {
    const QString name =
        QStringLiteral("xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml");
    const QStringList paths = everywhere(name);
    const auto system = first(paths.sliced(1));
    const auto person = file(paths.first());
    return xfceClaims(system ? system->text : QByteArray(), person.value_or(QByteArray()));
}

DesktopClaims Settings::kde() {
    const auto shortcuts = file(session_.configHome + QStringLiteral("/kglobalshortcutsrc"));
    const auto kwin = file(session_.configHome + QStringLiteral("/kwinrc"));
    return kdeClaims(shortcuts.value_or(QByteArray()), kwin.value_or(QByteArray()));
}

DesktopClaims Settings::i3(const QStringList& paths) {
    const auto configuration = first(paths);
    if (!configuration)
        return {};
    return i3Claims({QFileInfo(configuration->path).path(), configuration->text},
                    [this](const QString& pattern, const QString& folder) {
                        return included(pattern, folder);
                    });
}

std::vector<I3ConfigFile> Settings::included(const QString& pattern, const QString& folder) {
    QString path = pattern;
    path.replace(QStringLiteral("$HOME"), session_.home);
    if (path.startsWith(u"~/"))
        path = session_.home + path.sliced(1);
    const QFileInfo target(QDir(folder), path);
    // Wildcards stand in the last part of the path, as good as always.
    const QDir parent = target.dir();
    std::vector<I3ConfigFile> files;
    for (const QString& name : parent.entryList({target.fileName()}, QDir::Files, QDir::Name)) {
        if (const auto text = file(parent.filePath(name)))
            files.push_back({parent.path(), *text});
    }
    return files;
}

DesktopClaims Settings::openbox() {
    QStringList paths;
    if (!session_.openboxFile.isEmpty())
        paths.append(session_.openboxFile);
    // LXDE and LXQt start it with a file of their own name.
    const QString desktop = session_.currentDesktop.toLower();
    for (const QString& name : {QStringLiteral("lxde"), QStringLiteral("lxqt")}) {
        if (desktop.contains(name))
            paths += everywhere(QStringLiteral("openbox/%1-rc.xml").arg(name));
    }
    paths += everywhere(QStringLiteral("openbox/rc.xml"));
    const auto configuration = first(paths);
    return configuration ? openboxClaims(configuration->text) : DesktopClaims{};
}

DesktopClaims Settings::read(KeyDesktop desktop) {
    switch (desktop) {
    case KeyDesktop::gnome:
        return gtk(GtkDesktop::gnome, QStringLiteral("gsettings org.gnome"));
    case KeyDesktop::cinnamon:
        return cinnamon();
    case KeyDesktop::mate:
        return gtk(GtkDesktop::mate, QStringLiteral("gsettings org.mate"));
    case KeyDesktop::xfce:
        return xfce();
    case KeyDesktop::kde:
        return kde();
    case KeyDesktop::i3:
        return i3(QStringList{session_.configHome + QStringLiteral("/i3/config"),
                              session_.home + QStringLiteral("/.i3/config")} +
                  everywhere(QStringLiteral("i3/config")).sliced(1) +
                  QStringList{QStringLiteral("/etc/i3/config")});
    case KeyDesktop::sway:
        return i3(QStringList{session_.home + QStringLiteral("/.sway/config"),
                              session_.configHome + QStringLiteral("/sway/config"),
                              session_.home + QStringLiteral("/.i3/config"),
                              session_.configHome + QStringLiteral("/i3/config"),
                              QStringLiteral("/etc/sway/config")});
    case KeyDesktop::openbox:
        return openbox();
    }
    Q_UNREACHABLE();
}

} // namespace

DesktopSession::DesktopSession(const QProcessEnvironment& environment)
    : currentDesktop(environment.value(QStringLiteral("XDG_CURRENT_DESKTOP"))),
      home(environment.value(QStringLiteral("HOME"), QDir::homePath())),
      configHome(environment.value(QStringLiteral("XDG_CONFIG_HOME"))),
      configFolders(
          environment.value(QStringLiteral("XDG_CONFIG_DIRS")).split(u':', Qt::SkipEmptyParts)) {
    if (!configHome.startsWith(u'/'))
        configHome = home + QStringLiteral("/.config");
    if (const QString usual = QStringLiteral("/etc/xdg"); !configFolders.contains(usual))
        configFolders.append(usual);
}

DesktopShortcutReading readDesktopSettings(const DesktopSession& session,
                                           const DesktopKeyNames& keys,
                                           const SettingsSource& settings) {
    Settings reader(session, settings);
    DesktopShortcutReading reading;
    for (const KeyDesktop desktop :
         runningDesktops(session.currentDesktop, session.windowManager)) {
        const QString owner = ownerName(desktop);
        const DesktopClaims claims = reader.read(desktop);
        if (claims.superTap && !reading.reactsToSuperTap) {
            reading.reactsToSuperTap = true;
            reading.superTapOwner = owner;
        }
        for (const DesktopClaims::Claim& claim : claims.claims) {
            const auto keyCode = keys.keyCode(claim.key);
            if (!keyCode)
                continue;
            const DesktopShortcut shortcut{*keyCode, claim.key.carbonModifiers, owner,
                                           claim.action};
            if (std::ranges::find(reading.shortcuts, shortcut) == reading.shortcuts.end())
                reading.shortcuts.push_back(shortcut);
        }
    }
    reading.sources = reader.sources();
    return reading;
}

} // namespace skipnest::linuxdesktop
