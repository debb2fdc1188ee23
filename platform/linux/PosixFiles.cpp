// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/PosixFiles.h"

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SystemError.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {

using platform::Done;
using platform::Failure;
using platform::FileKind;
using platform::Outcome;
using platform::Result;

namespace {

constexpr mode_t ownFile = 0600;
constexpr mode_t ownFolder = 0700;

template <typename Call> auto retried(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

Failure notAFile(const QString& path) {
    return {Failure::Kind::refused, QStringLiteral("%1 is not a regular file").arg(path)};
}

Failure aboveLimit(const QString& path, std::int64_t limit) {
    return {Failure::Kind::tooLarge,
            QStringLiteral("%1 is larger than %2 bytes").arg(path).arg(limit)};
}

// O_NONBLOCK: opening a FIFO would otherwise wait for its writer, for ever.
FileDescriptor openToRead(const QString& path, int flags = 0) {
    const QByteArray name = QFile::encodeName(path);
    return FileDescriptor(retried([&] {
        return ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | flags);
    }));
}

Outcome writeAll(const FileDescriptor& file, const QByteArray& bytes, const QString& path) {
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count = retried([&] {
            return ::write(file.get(), bytes.constData() + written,
                           static_cast<std::size_t>(bytes.size() - written));
        });
        if (count < 0)
            return systemFailure(errno, QStringLiteral("write"), path);
        written += count;
    }
    return Done{};
}

} // namespace

QString PosixFiles::followLinks(const QString& path) const {
    const QString followed = QFileInfo(path).canonicalFilePath();
    return followed.isEmpty() ? path : followed;
}

FileKind PosixFiles::kind(const QString& path) const {
    struct stat status {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return FileKind::none;
    if (S_ISREG(status.st_mode))
        return FileKind::file;
    return S_ISDIR(status.st_mode) ? FileKind::folder : FileKind::other;
}

Result<QByteArray> PosixFiles::read(const QString& path, std::int64_t limit) {
    const FileDescriptor file = openToRead(path);
    if (!file)
        return errno == ENXIO ? notAFile(path) : systemFailure(errno, QStringLiteral("open"), path);
    struct stat status {};
    if (::fstat(file.get(), &status) != 0)
        return systemFailure(errno, QStringLiteral("stat"), path);
    if (!S_ISREG(status.st_mode))
        return notAFile(path);
    if (status.st_size > limit)
        return aboveLimit(path, limit);

    // The size is a first guess: the file may grow under us, and /proc says 0 for everything.
    constexpr qsizetype step = 65'536;
    QByteArray bytes;
    qsizetype length = 0;
    bytes.resize(static_cast<qsizetype>(status.st_size) + 1);
    for (;;) {
        if (length == bytes.size())
            bytes.resize(bytes.size() + step);
        const ssize_t count = retried([&] {
            return ::read(file.get(), bytes.data() + length,
                          static_cast<std::size_t>(bytes.size() - length));
        });
        if (count < 0)
            return systemFailure(errno, QStringLiteral("read"), path);
        length += count;
        if (length > limit)
            return aboveLimit(path, limit);
        if (count == 0)
            break;
    }
    bytes.truncate(length);
    return bytes;
}

Result<QStringList> PosixFiles::list(const QString& folder) {
    const std::unique_ptr<DIR, CloseFolder> entries(
        ::opendir(QFile::encodeName(folder).constData()));
    if (!entries)
        return systemFailure(errno, QStringLiteral("list"), folder);
    QStringList names;
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(entries.get());
        if (entry == nullptr)
            break;
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.append(QFile::decodeName(entry->d_name));
    }
    if (errno != 0)
        return systemFailure(errno, QStringLiteral("list"), folder);
    names.sort();
    return names;
}

Outcome PosixFiles::createFolder(const QString& path) {
    for (qsizetype end = path.indexOf(u'/', 1);; end = path.indexOf(u'/', end + 1)) {
        const QString part = end < 0 ? path : path.left(end);
        if (::mkdir(QFile::encodeName(part).constData(), ownFolder) != 0) {
            // An existing folder may also be answered with EROFS or EACCES by mkdir(2).
            const int error = errno;
            if (kind(part) != FileKind::folder)
                return systemFailure(error, QStringLiteral("create folder"), part);
        }
        if (end < 0)
            return Done{};
    }
}

Outcome PosixFiles::write(const QString& path, const QByteArray& bytes) {
    const QByteArray name = QFile::encodeName(path);
    const auto create = [&] {
        return FileDescriptor(retried([&] {
            return ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ownFile);
        }));
    };
    FileDescriptor file = create();
    if (!file && errno == EEXIST) {
        if (::unlink(name.constData()) != 0)
            return systemFailure(errno, QStringLiteral("replace"), path);
        file = create();
    }
    if (!file)
        return systemFailure(errno, QStringLiteral("create"), path);

    Outcome written = writeAll(file, bytes, path);
    if (file.close() != 0 && written)
        written = systemFailure(errno, QStringLiteral("close"), path);
    if (!written)
        (void)::unlink(name.constData());
    return written;
}

Outcome PosixFiles::flush(const QString& path) {
    const FileDescriptor file = openToRead(path);
    if (!file || retried([&] { return ::fsync(file.get()); }) != 0)
        return systemFailure(errno, QStringLiteral("flush"), path);
    return Done{};
}

Outcome PosixFiles::flushFolder(const QString& path) {
    const FileDescriptor folder = openToRead(path, O_DIRECTORY);
    if (!folder)
        return systemFailure(errno, QStringLiteral("flush folder"), path);
    // Network and FUSE file systems without such an operation answer EINVAL; the rename before has
    // reached their server, and there is nothing more to ask for.
    if (retried([&] { return ::fsync(folder.get()); }) != 0 && errno != EINVAL)
        return systemFailure(errno, QStringLiteral("flush folder"), path);
    return Done{};
}

Outcome PosixFiles::rename(const QString& from, const QString& to) {
    if (::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
        return systemFailure(errno, QStringLiteral("rename"),
                             QStringLiteral("%1 to %2").arg(from, to));
    return Done{};
}

Outcome PosixFiles::remove(const QString& path) {
    if (::unlink(QFile::encodeName(path).constData()) != 0)
        return systemFailure(errno, QStringLiteral("remove"), path);
    return Done{};
}

} // namespace skipnest::linuxdesktop
