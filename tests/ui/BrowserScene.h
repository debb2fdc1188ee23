// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/BrowserExtensions.h"

#include <vector>

namespace skipnest::test {

// One browser of each kind that a person may have.
inline std::vector<platform::ExtensibleBrowser> severalBrowsers() {
    using Browser = platform::ExtensibleBrowser;
    const auto manifest = [](const QString& folder) {
        return QStringLiteral("/home/person/%1/com.skipnest.browser_host.json").arg(folder);
    };
    return {
        {.name = QStringLiteral("Chromium"),
         .identifier = QStringLiteral("org.chromium.Chromium"),
         .manifest = manifest(QStringLiteral(".config/chromium/NativeMessagingHosts")),
         .extensionsPage = QStringLiteral("chrome://extensions")},
        {.name = QStringLiteral("Brave"),
         .identifier = QStringLiteral("com.brave.Browser"),
         .host = Browser::Host::installed,
         .manifest =
             manifest(QStringLiteral(".config/BraveSoftware/Brave-Browser/NativeMessagingHosts")),
         .extensionsPage = QStringLiteral("brave://extensions"),
         .isConnected = true},
        {.name = QStringLiteral("Firefox"),
         .identifier = QStringLiteral("org.mozilla.firefox"),
         .host = Browser::Host::installed,
         .manifest = manifest(QStringLiteral(".mozilla/native-messaging-hosts")),
         .extensionsPage = QStringLiteral("about:debugging#/runtime/this-firefox"),
         .keepsSignedOnly = true},
        {.name = QStringLiteral("Firefox"),
         .identifier = QStringLiteral("org.mozilla.firefox"),
         .packaging = Browser::Packaging::flatpak,
         .host = Browser::Host::unreachable},
    };
}

} // namespace skipnest::test
