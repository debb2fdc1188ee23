// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/BundleIdentifiers.h"

#include <string_view>

namespace skipnest::linuxdesktop {
namespace {

struct Row {
    std::string_view desktopId; // lower case
    std::string_view bundleIdentifier;
};

// Debian and vendor packages, then Flatpak, then Snap: one program has up to three desktop ids.
constexpr Row table[] = {
    {"google-chrome", "com.google.Chrome"},
    {"google-chrome-stable", "com.google.Chrome"},
    {"com.google.chrome", "com.google.Chrome"},
    {"chromium", "org.chromium.Chromium"},
    {"chromium-browser", "org.chromium.Chromium"},
    {"org.chromium.chromium", "org.chromium.Chromium"},
    {"chromium_chromium", "org.chromium.Chromium"},
    {"firefox", "org.mozilla.firefox"},
    {"firefox-esr", "org.mozilla.firefox"},
    {"org.mozilla.firefox", "org.mozilla.firefox"},
    {"firefox_firefox", "org.mozilla.firefox"},
    {"brave-browser", "com.brave.Browser"},
    {"com.brave.browser", "com.brave.Browser"},
    {"brave_brave", "com.brave.Browser"},
    {"microsoft-edge", "com.microsoft.edgemac"},
    {"microsoft-edge-stable", "com.microsoft.edgemac"},
    {"com.microsoft.edge", "com.microsoft.edgemac"},
    {"vivaldi", "com.vivaldi.Vivaldi"},
    {"vivaldi-stable", "com.vivaldi.Vivaldi"},
    {"com.vivaldi.vivaldi", "com.vivaldi.Vivaldi"},
    {"opera", "com.operasoftware.Opera"},
    {"opera-stable", "com.operasoftware.Opera"},
    {"com.opera.opera", "com.operasoftware.Opera"},
    {"opera_opera", "com.operasoftware.Opera"},
    {"slack", "com.tinyspeck.slackmacgap"},
    {"com.slack.slack", "com.tinyspeck.slackmacgap"},
    {"slack_slack", "com.tinyspeck.slackmacgap"},
    {"telegramdesktop", "ru.keepcoder.Telegram"},
    {"telegram-desktop", "ru.keepcoder.Telegram"},
    {"org.telegram.desktop", "ru.keepcoder.Telegram"},
    {"telegram-desktop_telegram-desktop", "ru.keepcoder.Telegram"},
    {"whatsapp", "net.whatsapp.WhatsApp"},
    {"whatsapp-desktop", "net.whatsapp.WhatsApp"},
    {"whatsapp-for-linux", "net.whatsapp.WhatsApp"},
    {"whatsapp-for-linux_whatsapp-for-linux", "net.whatsapp.WhatsApp"},
    {"signal-desktop", "org.whispersystems.signal-desktop"},
    {"signal", "org.whispersystems.signal-desktop"},
    {"org.signal.signal", "org.whispersystems.signal-desktop"},
    {"signal-desktop_signal-desktop", "org.whispersystems.signal-desktop"},
    {"discord", "com.hnc.Discord"},
    {"com.discordapp.discord", "com.hnc.Discord"},
    {"discord_discord", "com.hnc.Discord"},
    {"teams", "com.microsoft.teams"},
    {"teams-for-linux", "com.microsoft.teams2"},
    {"com.github.ismaelmartinez.teams_for_linux", "com.microsoft.teams2"},
};

} // namespace

QString bundleIdentifierOf(const QString& desktopId) {
    const QString suffix = QStringLiteral(".desktop");
    const QString bare = desktopId.endsWith(suffix) ? desktopId.chopped(suffix.size()) : desktopId;
    const QString lower = bare.toLower();
    for (const Row& row : table) {
        if (lower == QLatin1String(row.desktopId.data(), qsizetype(row.desktopId.size())))
            return QString::fromLatin1(row.bundleIdentifier.data(),
                                       qsizetype(row.bundleIdentifier.size()));
    }
    return bare;
}

} // namespace skipnest::linuxdesktop
