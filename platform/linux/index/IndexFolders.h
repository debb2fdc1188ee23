// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Scheduler.h"

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <vector>

namespace skipnest::linuxdesktop {

// A folder that desktops give a name in the person's language: "Dokumente" for "Documents".
struct UserFolder {
    QString path;
    QStringList names; // besides the one on the disk
};

// What the index reads, and how. Paths are absolute.
struct IndexFolders {
    QString home;
    std::vector<UserFolder> userFolders;
    QStringList applications; // folders of desktop entries
    // Drives below these folders are read too. The table of mounts is the kernel's; it also tells
    // what below home is not read: other machines' disks, and what is no disk.
    QStringList driveFolders;
    QString mountTable = QStringLiteral("/proc/self/mountinfo");
    // Not read, with everything below, besides what FolderReader leaves out everywhere.
    QStringList leftOut;
    QString cacheFile;
    // Folders from the top downwards whose changes are seen at once. One takes about a kilobyte of
    // the kernel's memory, and all programs of a person share 8192 on small machines.
    int mostWatched = 4096;
    // How soon changes elsewhere are seen. Reading 100,000 folders takes seconds of an idle disk.
    platform::Duration rescanPeriod = std::chrono::minutes(30);

    [[nodiscard]] static IndexFolders ofSession(const platform::AppInfo& app,
                                                const QProcessEnvironment& environment);
};

// Drives mounted below `driveFolders`, and mount points that are not entered. Unreadable: none.
struct MountedFolders {
    QStringList drives;
    QStringList foreign;

    bool operator==(const MountedFolders&) const = default;

    [[nodiscard]] static MountedFolders read(const QString& mountTable,
                                             const QStringList& driveFolders);
};

} // namespace skipnest::linuxdesktop
