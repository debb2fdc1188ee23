// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/RunningDesktops.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace skipnest::linuxdesktop {
namespace {

struct DesktopName {
    const char* name;
    KeyDesktop desktop;
};

// Words of XDG_CURRENT_DESKTOP.
constexpr auto desktopNames = std::to_array<DesktopName>({
    {"GNOME", KeyDesktop::gnome},
    {"Unity", KeyDesktop::gnome},
    {"Budgie", KeyDesktop::gnome},
    {"X-Cinnamon", KeyDesktop::cinnamon},
    {"Cinnamon", KeyDesktop::cinnamon},
    {"MATE", KeyDesktop::mate},
    {"XFCE", KeyDesktop::xfce},
    {"KDE", KeyDesktop::kde},
    {"i3", KeyDesktop::i3},
    {"sway", KeyDesktop::sway},
    {"openbox", KeyDesktop::openbox},
});

// Beginnings of _NET_WM_NAME, the longer ones first: Cinnamon's calls itself "Mutter (Muffin)".
constexpr auto windowManagers = std::to_array<DesktopName>({
    {"Mutter (Muffin)", KeyDesktop::cinnamon},
    {"Muffin", KeyDesktop::cinnamon},
    {"GNOME Shell", KeyDesktop::gnome},
    {"Mutter", KeyDesktop::gnome},
    {"Metacity (Marco)", KeyDesktop::mate},
    {"Marco", KeyDesktop::mate},
    {"Xfwm4", KeyDesktop::xfce},
    {"KWin", KeyDesktop::kde},
    {"i3", KeyDesktop::i3},
    {"Openbox", KeyDesktop::openbox},
});

} // namespace

std::vector<KeyDesktop> runningDesktops(const QString& currentDesktop,
                                        const QString& windowManager) {
    std::vector<KeyDesktop> running;
    const auto add = [&running](KeyDesktop desktop) {
        if (std::ranges::find(running, desktop) == running.end())
            running.push_back(desktop);
    };
    for (const QString& word : currentDesktop.split(u':')) {
        for (const DesktopName& row : desktopNames) {
            if (word.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0)
                add(row.desktop);
        }
    }
    const auto manager = std::ranges::find_if(windowManagers, [&](const DesktopName& row) {
        return windowManager.startsWith(QLatin1String(row.name), Qt::CaseInsensitive);
    });
    if (manager != windowManagers.end())
        add(manager->desktop);
    return running;
}

QString ownerName(KeyDesktop desktop) {
    switch (desktop) {
    case KeyDesktop::gnome:
        return QStringLiteral("GNOME");
    case KeyDesktop::cinnamon:
        return QStringLiteral("Cinnamon");
    case KeyDesktop::mate:
        return QStringLiteral("MATE");
    case KeyDesktop::xfce:
        return QStringLiteral("Xfce");
    case KeyDesktop::kde:
        return QStringLiteral("KDE");
    case KeyDesktop::i3:
        return QStringLiteral("i3");
    case KeyDesktop::sway:
        return QStringLiteral("sway");
    case KeyDesktop::openbox:
        return QStringLiteral("openbox");
    }
    Q_UNREACHABLE();
}

} // namespace skipnest::linuxdesktop
