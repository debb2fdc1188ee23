// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/CrashRecordFile.h"

#include "platform/linux/SystemError.h"
#include "platform/linux/crash/CodePlaces.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {

using platform::Failure;

platform::Outcome CrashRecordFile::prepare(const QString& path) {
    const QByteArray encoded = QFile::encodeName(path);
    const QByteArray temporary = encoded + ".new";
    if (temporary.size() >= PATH_MAX)
        return Failure{Failure::Kind::tooLarge, path + QStringLiteral(" is too long a path")};
    const QString folder = QFileInfo(path).path();
    if (!QFileInfo(folder).isDir())
        return Failure{Failure::Kind::notFound, folder + QStringLiteral(" is no folder")};
    mappings_ = ::open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    if (mappings_ < 0)
        return systemFailure(errno, QStringLiteral("opening"), QStringLiteral("/proc/self/maps"));
    std::copy_n(encoded.constData(), encoded.size() + 1, path_.data());
    std::copy_n(temporary.constData(), temporary.size() + 1, temporary_.data());
    return platform::Done{};
}

void CrashRecordFile::readMappings(CodePlaces& places) {
    std::array<char, 4096> piece; // NOLINT(cppcoreguidelines-pro-type-member-init): read() fills it
    for (;;) {
        const ssize_t count = ::read(mappings_, piece.data(), piece.size());
        if (count > 0)
            places.read(piece.data(), static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return;
    }
}

void CrashRecordFile::replace(std::string_view record) {
    (void)::close(std::exchange(mappings_, -1));
    // What another crash left half written is not ours to write into.
    (void)::unlink(temporary_.data());
    const int file =
        ::open(temporary_.data(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        return;
    while (!record.empty()) {
        const ssize_t count = ::write(file, record.data(), record.size());
        if (count > 0)
            record.remove_prefix(static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            break;
    }
    const bool isWhole = record.empty() && ::fsync(file) == 0;
    (void)::close(file);
    if (!isWhole || ::rename(temporary_.data(), path_.data()) != 0)
        (void)::unlink(temporary_.data());
}

} // namespace skipnest::linuxdesktop
