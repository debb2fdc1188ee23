// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/RunningApplication.h"

#include <QString>
#include <QStringList>

namespace skipnest::platform {

// How this system's people write modifier keys: ⌃⌥⇧⌘, or Ctrl, Alt, Shift, Super.
enum class ModifierStyle { glyphs, names };

// What the program knows of itself and where it keeps things. A plain value, filled by the backend
// at start. Folders are absolute, without a trailing slash, and may not exist yet.
struct AppInfo {
    ProcessIdentifier pid;
    QString bundlePath;
    QString bundleIdentifier;
    QString version;
    QString build;
    QString home;
    QString supportFolder; // config.json, defaults.json, Backups, stats.json
    QString logFolder;     // Skipnest-debug.log
    QString runtimeFolder; // control socket, instance lock; user-only
    // Where programs are put by hand to be installed; empty where the system has no such place, and
    // then it does not matter where this one lies.
    QString applicationsFolder;
    ModifierStyle modifierStyle = ModifierStyle::glyphs;
    QString liteConfig; // the lighter edition's document; empty where there is none
    // Where installed applications lie. An application anywhere else may have come with a download.
    QStringList installedApplications;
    // The person's own folders, by the desktop's names for them.
    QString downloadsFolder;
    QString desktopFolder;
    QString documentsFolder;
    QString serviceAddress = {}; // the makers' web service; empty where this build has none
    // Of the person's locale: ISO 639 and 3166, lower case, empty where unknown.
    QString language = {};
    QString country = {};
};

} // namespace skipnest::platform
