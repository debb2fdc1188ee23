// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/DesktopEntryIndex.h"

#include <QString>
#include <QStringList>

namespace skipnest::linuxdesktop {

// What a window tells of the program that it belongs to. Anything may be empty.
struct WindowFacts {
    QString gtkApplicationId; // _GTK_APPLICATION_ID
    QString instance;         // first name of WM_CLASS
    QString windowClass;      // second name of WM_CLASS
    QString executable;       // target of /proc/PID/exe
    QStringList commandLine;
    QString launchedFrom; // the .desktop file that this very process was started from by GIO

    bool operator==(const WindowFacts&) const = default;
};

// Windows with the same `id` are one application. `id` is empty for a window that tells nothing.
struct ApplicationIdentity {
    QString id;
    QString path; // its .desktop file; empty where none was found
    QString bundleIdentifier;
    QString name;

    bool operator==(const ApplicationIdentity&) const = default;
};

// The application that a window belongs to. An application that is not recognised is started again
// at each press of its shortcut, so every name a window has is tried, the most telling one first:
// the GTK application id, StartupWMClass, the desktop id, the entry it was launched from, the
// program of Exec. A window that no entry fits stands for itself, by its class.
[[nodiscard]] ApplicationIdentity identify(const WindowFacts& facts,
                                           const DesktopEntryIndex& index);

// Whether the window may count as one of `entry` although `identify` chose another entry: two
// entries can describe the same program, and starting the second must find the first running.
[[nodiscard]] bool alsoBelongsTo(const WindowFacts& facts, const DesktopEntry& entry);

} // namespace skipnest::linuxdesktop
