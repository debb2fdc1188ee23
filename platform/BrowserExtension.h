// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringView>

namespace skipnest::platform {

// What the extension, its host and the agent have to agree on.

// Follows from the public key in the extension's manifest.
inline constexpr QStringView chromiumExtensionId = u"plofoicbbpionlpihkkiiaoicejapdpi";
inline constexpr QStringView firefoxExtensionId = u"tabs@skipnest.com";
inline constexpr QStringView nativeHostName = u"com.skipnest.browser_host";

// The longest message to the agent: the titles and addresses of some thousand tabs at their cut.
// Browsers themselves would let 64 MiB through.
inline constexpr qsizetype longestTabsAnswer = 16 << 20;
// The longest message to a browser: one title and one address at their cut, every character
// escaped. Browsers end a host that sends more than 1 MiB.
inline constexpr qsizetype longestTabsRequest = 64 << 10;

// Where the agent of this user waits for hosts. It understands messages about tabs, nothing else.
[[nodiscard]] inline QString tabsSocketPath(const QString& runtimeFolder) {
    return runtimeFolder + QStringLiteral("/tabs.sock");
}

} // namespace skipnest::platform
