// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/LinuxBookmarks.h"

#include "platform/linux/SystemError.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cerrno>
#include <cstdint>
#include <memory>
#include <optional>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {

using platform::Failure;
using platform::Result;

namespace {

constexpr int maximumBookmarkSize = 64 * 1024; // a path is at most 4,096 bytes
constexpr int maximumEntries = 4096;

struct Identity {
    std::uint64_t inode = 0;
    std::uint64_t device = 0;
    std::int64_t birth = 0; // nanoseconds since 1970; 0 where the file system keeps none
};

// File systems give the inode number of a deleted file to the next new one, so a number alone may
// mean another file. The birth time tells them apart, and makes up for device numbers, which some
// file systems change from one start of the machine to the next.
bool provenSame(const Identity& a, const Identity& b) {
    return a.inode == b.inode && a.birth != 0 && a.birth == b.birth;
}

bool maybeSame(const Identity& a, const Identity& b) {
    if (a.birth != 0 && b.birth != 0)
        return provenSame(a, b);
    return a.inode == b.inode && a.device == b.device;
}

std::optional<Identity> identity(int folder, const char* name) {
    struct statx status {};
    if (::statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_INO | STATX_BTIME,
                &status) != 0)
        return std::nullopt;
    Identity found{status.stx_ino, ::makedev(status.stx_dev_major, status.stx_dev_minor), 0};
    if ((status.stx_mask & STATX_BTIME) != 0)
        found.birth = status.stx_btime.tv_sec * 1'000'000'000 + status.stx_btime.tv_nsec;
    return found;
}

bool opens(const QString& path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0;
}

struct Bookmark {
    QString path;
    Identity identity;
};

// Numbers travel as text: JSON's numbers lose the low bits of 64.
QByteArray encoded(const Bookmark& bookmark) {
    return QJsonDocument(
               QJsonObject{{QStringLiteral("version"), 1},
                           {QStringLiteral("path"), bookmark.path},
                           {QStringLiteral("inode"), QString::number(bookmark.identity.inode)},
                           {QStringLiteral("device"), QString::number(bookmark.identity.device)},
                           {QStringLiteral("birth"), QString::number(bookmark.identity.birth)}})
        .toJson(QJsonDocument::Compact);
}

std::optional<Bookmark> decoded(const QByteArray& bytes) {
    if (bytes.size() > maximumBookmarkSize)
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    const QString path = object.value(QStringLiteral("path")).toString();
    bool hasInode = false;
    bool hasDevice = false;
    const Identity identity{
        object.value(QStringLiteral("inode")).toString().toULongLong(&hasInode),
        object.value(QStringLiteral("device")).toString().toULongLong(&hasDevice),
        object.value(QStringLiteral("birth")).toString().toLongLong()};
    if (!path.startsWith(u'/') || path.contains(QChar(u'\0')) || !hasInode || !hasDevice)
        return std::nullopt;
    return Bookmark{path, identity};
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

template <typename Same> std::optional<QString> siblingOf(const QString& path, Same isSame) {
    const QString folder = path.left(path.lastIndexOf(u'/') + 1);
    const int descriptor = ::open(QFile::encodeName(folder).constData(),
                                  O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC);
    const std::unique_ptr<DIR, CloseFolder> entries(descriptor < 0 ? nullptr
                                                                   : ::fdopendir(descriptor));
    if (!entries) {
        if (descriptor >= 0)
            ::close(descriptor);
        return std::nullopt;
    }
    for (int count = 0; count < maximumEntries + 2; ++count) { // "." and ".." come along
        const dirent* entry = ::readdir(entries.get());
        if (entry == nullptr)
            return std::nullopt;
        const QString name = QFile::decodeName(entry->d_name);
        if (name == u"." || name == u"..")
            continue;
        const auto found = identity(::dirfd(entries.get()), entry->d_name);
        if (found && isSame(*found) && opens(folder + name))
            return folder + name;
    }
    return std::nullopt;
}

} // namespace

Result<QByteArray> LinuxBookmarks::create(const QString& path) {
    if (!path.startsWith(u'/'))
        return Failure{Failure::Kind::malformed,
                       QStringLiteral("%1 is not an absolute path").arg(path)};
    if (!opens(path))
        return systemFailure(errno, QStringLiteral("bookmark"), path);
    const auto found = identity(AT_FDCWD, QFile::encodeName(path).constData());
    if (!found)
        return systemFailure(errno, QStringLiteral("bookmark"), path);
    return encoded({path, *found});
}

Result<QString> LinuxBookmarks::resolve(const QByteArray& bookmark) {
    const auto wanted = decoded(bookmark);
    if (!wanted)
        return Failure{Failure::Kind::malformed,
                       QStringLiteral("the bytes are no bookmark of this system")};
    const QString& path = wanted->path;
    const bool somethingThere = opens(path);
    if (somethingThere) {
        const auto now = identity(AT_FDCWD, QFile::encodeName(path).constData());
        if (now && maybeSame(*now, wanted->identity))
            return path;
    }
    // While something is at the path, only proof leads elsewhere.
    const auto moved = siblingOf(path, [&](const Identity& entry) {
        return somethingThere ? provenSame(entry, wanted->identity)
                              : maybeSame(entry, wanted->identity);
    });
    if (moved)
        return *moved;
    if (somethingThere)
        return path;
    return Failure{
        Failure::Kind::notFound,
        QStringLiteral("%1 is gone, and nothing in its folder is what it was").arg(path)};
}

platform::ScopedAccess LinuxBookmarks::startAccessing(const QString&) {
    return {};
}

} // namespace skipnest::linuxdesktop
