// SPDX-License-Identifier: Apache-2.0
#include "platform/PanelHost.h"

namespace skipnest::platform {

QString screenName(PopoverScreen screen) {
    switch (screen) {
    case PopoverScreen::list:
        return QStringLiteral("list");
    case PopoverScreen::add:
        return QStringLiteral("add");
    case PopoverScreen::importing:
        return QStringLiteral("import");
    case PopoverScreen::exporting:
        return QStringLiteral("export");
    case PopoverScreen::settings:
        return QStringLiteral("settings");
    case PopoverScreen::feedback:
        return QStringLiteral("feedback");
    case PopoverScreen::statistics:
        return QStringLiteral("statistics");
    case PopoverScreen::challenge:
        return QStringLiteral("challenge");
    case PopoverScreen::crash:
        return QStringLiteral("crash");
    case PopoverScreen::browsers:
        return QStringLiteral("browsers");
    }
    Q_UNREACHABLE();
}

} // namespace skipnest::platform
