// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/DesktopClaims.h"

#include <span>

namespace skipnest::linuxdesktop {
namespace {

// Where a desktop keeps its combos. Every key of the first schemas binds one action.
struct SettingsPlaces {
    std::span<const char* const> schemas;
    // The person's own commands: a list of paths, or of names below a path, each with its binding.
    const char* listSchema;
    const char* listKey;
    const char* commandSchema;
    const char* commandFolder;
    // What a tap of Super does.
    const char* tapSchema;
    const char* tapKey;
};

constexpr const char* gnomeSchemas[] = {
    "org.gnome.desktop.wm.keybindings",
    "org.gnome.shell.keybindings",
    "org.gnome.mutter.keybindings",
    "org.gnome.settings-daemon.plugins.media-keys",
};
constexpr const char* cinnamonSchemas[] = {
    "org.cinnamon.desktop.keybindings",
    "org.cinnamon.desktop.keybindings.wm",
    "org.cinnamon.desktop.keybindings.media-keys",
};
constexpr const char* mateSchemas[] = {
    "org.mate.Marco.global-keybindings",
    "org.mate.Marco.window-keybindings",
    "org.mate.SettingsDaemon.plugins.media-keys",
};

constexpr SettingsPlaces gnome{
    gnomeSchemas,
    "org.gnome.settings-daemon.plugins.media-keys",
    "custom-keybindings",
    "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding",
    "",
    "org.gnome.mutter",
    "overlay-key",
};
constexpr SettingsPlaces cinnamon{
    cinnamonSchemas,
    "org.cinnamon.desktop.keybindings",
    "custom-list",
    "org.cinnamon.desktop.keybindings.custom-keybinding",
    "/org/cinnamon/desktop/keybindings/custom-keybindings/",
    nullptr,
    nullptr,
};
// The list of a person's own commands is not a setting here.
constexpr SettingsPlaces mate{mateSchemas, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};

const SettingsPlaces& placesOf(GtkDesktop desktop) {
    switch (desktop) {
    case GtkDesktop::gnome:
        return gnome;
    case GtkDesktop::cinnamon:
        return cinnamon;
    case GtkDesktop::mate:
        return mate;
    }
    Q_UNREACHABLE();
}

void addCommands(const SettingsPlaces& places, const SettingsSource& settings,
                 DesktopClaims& claims) {
    const QString schema = QLatin1String(places.commandSchema);
    const QStringList entries =
        settings.texts(QLatin1String(places.listSchema), {}, QLatin1String(places.listKey));
    for (const QString& entry : entries) {
        const QString path =
            entry.startsWith(u'/') ? entry : QLatin1String(places.commandFolder) + entry + u'/';
        const QString name = settings.texts(schema, path, QStringLiteral("name")).value(0);
        for (const QString& combo : settings.texts(schema, path, QStringLiteral("binding")))
            claims.add(gtkSpelling(combo), name);
    }
}

} // namespace

DesktopClaims gsettingsClaims(GtkDesktop desktop, const SettingsSource& settings) {
    const SettingsPlaces& places = placesOf(desktop);
    DesktopClaims claims;
    for (const char* name : places.schemas) {
        const QString schema = QLatin1String(name);
        for (const QString& key : settings.keys(schema)) {
            // Lists of something else that stand among the combos.
            if (places.listKey != nullptr && key == QLatin1String(places.listKey))
                continue;
            for (const QString& combo : settings.texts(schema, {}, key))
                claims.add(gtkSpelling(combo), key);
        }
    }
    if (places.listSchema != nullptr)
        addCommands(places, settings, claims);
    if (places.tapSchema != nullptr) {
        const QString key =
            settings.texts(QLatin1String(places.tapSchema), {}, QLatin1String(places.tapKey))
                .value(0);
        claims.superTap = claims.superTap || key.startsWith(u"Super");
    }
    return claims;
}

} // namespace skipnest::linuxdesktop
