// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

namespace skipnest::browserhost {

// Whether the browser says that our extension asked for this program. Chromium browsers give its
// origin as the first argument; Firefox gives the host's manifest and the extension's identifier.
// The browser has checked that against the manifest already; this holds where somebody changed it.
[[nodiscard]] bool isOurExtension(const QStringList& arguments);

} // namespace skipnest::browserhost
