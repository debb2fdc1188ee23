// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/IndexFolders.h"

#include "platform/linux/DesktopEntries.h"

#include <QDir>
#include <QFile>

#include <glib.h>

#include <algorithm>
#include <array>
#include <string_view>

#include <libintl.h>

namespace skipnest::linuxdesktop {
namespace {

struct UserFolderNames {
    GUserDirectory id;
    const char* english;
    const char* german;
};

constexpr std::array<UserFolderNames, 8> userFolderNames{{
    {G_USER_DIRECTORY_DESKTOP, "Desktop", "Schreibtisch"},
    {G_USER_DIRECTORY_DOCUMENTS, "Documents", "Dokumente"},
    {G_USER_DIRECTORY_DOWNLOAD, "Downloads", "Downloads"},
    {G_USER_DIRECTORY_MUSIC, "Music", "Musik"},
    {G_USER_DIRECTORY_PICTURES, "Pictures", "Bilder"},
    {G_USER_DIRECTORY_PUBLIC_SHARE, "Public", "Öffentlich"},
    {G_USER_DIRECTORY_TEMPLATES, "Templates", "Vorlagen"},
    {G_USER_DIRECTORY_VIDEOS, "Videos", "Videos"},
}};

// File systems that lie on a disk of this machine. Of FUSE only those that are disks too: others
// answer over a network, or make their files up.
constexpr std::array<std::string_view, 21> diskFileSystems{
    "bcachefs", "btrfs", "exfat",    "ext2",    "ext3", "ext4",  "f2fs",
    "fuseblk",  "hfs",   "hfsplus",  "iso9660", "jfs",  "msdos", "nilfs2",
    "ntfs",     "ntfs3", "reiserfs", "udf",     "vfat", "xfs",   "zfs",
};

// The kernel writes blanks, tabs, line breaks and backslashes of a path as three octal digits.
QByteArray unescaped(const QByteArray& path) {
    QByteArray plain;
    for (qsizetype at = 0; at < path.size(); ++at) {
        bool isOctal = false;
        const int code = path[at] == '\\' ? path.mid(at + 1, 3).toInt(&isOctal, 8) : 0;
        plain += isOctal ? static_cast<char>(code) : path[at];
        at += isOctal ? 3 : 0;
    }
    return plain;
}

} // namespace

IndexFolders IndexFolders::ofSession(const platform::AppInfo& app,
                                     const QProcessEnvironment& environment) {
    IndexFolders folders;
    folders.home = app.home;
    for (const UserFolderNames& row : userFolderNames) {
        const char* const path = g_get_user_special_dir(row.id);
        const QString folder =
            path == nullptr ? QString() : QDir::cleanPath(QFile::decodeName(path));
        // One that is switched off is set to home.
        if (folder.isEmpty() || folder == app.home)
            continue;
        folders.userFolders.push_back(
            {folder,
             {QString::fromUtf8(::dgettext("xdg-user-dirs", row.english)),
              QString::fromUtf8(row.english), QString::fromUtf8(row.german)}});
    }
    folders.applications = applicationFolders();
    const QString user = QFile::decodeName(g_get_user_name());
    folders.driveFolders = {QStringLiteral("/media"), QStringLiteral("/run/media/") + user,
                            QStringLiteral("/mnt")};
    const QString cache = environment.value(QStringLiteral("XDG_CACHE_HOME"));
    const QString caches =
        cache.startsWith(u'/') ? QDir::cleanPath(cache) : app.home + QStringLiteral("/.cache");
    folders.leftOut = {caches, QFile::decodeName(g_get_user_data_dir()) + QStringLiteral("/Trash")};
    folders.cacheFile = caches + QStringLiteral("/Skipnest/names");
    return folders;
}

MountedFolders MountedFolders::read(const QString& mountTable, const QStringList& driveFolders) {
    MountedFolders mounted;
    QFile table(mountTable);
    if (!table.open(QIODevice::ReadOnly))
        return mounted;
    // 36 35 98:0 /root /mount/point options optional... - type source options
    const QList<QByteArray> lines = table.readAll().split('\n');
    for (const QByteArray& line : lines) {
        const qsizetype separator = line.indexOf(" - ");
        const QList<QByteArray> before = line.left(separator).split(' ');
        if (separator < 0 || before.size() < 5)
            continue;
        const QByteArray type = line.mid(separator + 3).split(' ').front();
        const QString point = QFile::decodeName(unescaped(before[4]));
        const bool isDisk =
            std::ranges::find(diskFileSystems, std::string_view(type.constData())) !=
            diskFileSystems.end();
        const bool isDrive = std::ranges::any_of(driveFolders, [&](const QString& folder) {
            return point == folder || point.startsWith(folder + u'/');
        });
        if (!isDisk)
            mounted.foreign.append(point);
        else if (isDrive)
            mounted.drives.append(point);
    }
    mounted.drives.removeDuplicates();
    mounted.foreign.removeDuplicates();
    return mounted;
}

} // namespace skipnest::linuxdesktop
