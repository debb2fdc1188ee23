// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DesktopShortcuts.h"
#include "platform/linux/keys/DesktopClaims.h"
#include "platform/linux/keys/DesktopKeyNames.h"

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace skipnest::linuxdesktop {

// Whose settings count in this session, and where they are.
struct DesktopSession {
    explicit DesktopSession(const QProcessEnvironment& environment);

    QString currentDesktop; // XDG_CURRENT_DESKTOP
    QString windowManager;  // its own name, empty where unknown
    QString openboxFile;    // where the running openbox says that it read its configuration
    QString home;
    QString configHome;
    QStringList configFolders; // the system's, the most important first
};

// Reads the files and settings of the desktops that run. What is missing, unreadable or above 1 MB
// is left out. Any thread.
[[nodiscard]] platform::DesktopShortcutReading readDesktopSettings(const DesktopSession& session,
                                                                   const DesktopKeyNames& keys,
                                                                   const SettingsSource& settings);

} // namespace skipnest::linuxdesktop
