// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Files.h"

#include <QStringList>

namespace skipnest::linuxdesktop {

// How other programs of the desktop start this one.
struct InstalledProgram {
    QString path; // of what a person calls `skipnest`
    // False for one that lies in a build folder, which goes as it came.
    bool installed = true;
};
[[nodiscard]] InstalledProgram installedProgram(const platform::Files& files,
                                                const platform::AppInfo& app);

// The value of an Exec key in a desktop entry. Each word comes out as it went in, whatever is in
// it; `fieldCode` such as "%f" stands last, unquoted, for what the desktop puts there.
[[nodiscard]] QString execLine(const QStringList& words, const QString& fieldCode = {});

// The same words for /bin/sh.
[[nodiscard]] QString shellLine(const QStringList& words);

} // namespace skipnest::linuxdesktop
