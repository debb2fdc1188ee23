// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/index/IndexCache.h"

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/PosixFiles.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {

std::optional<NameTable> loadNames(const QString& file) {
    const FileDescriptor descriptor(
        ::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    // Somebody else's file could be cut short while it is mapped.
    if (!descriptor || ::fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid() || status.st_size <= 0)
        return std::nullopt;
    const auto size = static_cast<std::size_t>(status.st_size);
    void* const memory =
        ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, descriptor.get(), 0);
    if (memory == MAP_FAILED)
        return std::nullopt;
    const std::shared_ptr<const void> owner(
        memory, [size](const void* mapped) { ::munmap(const_cast<void*>(mapped), size); });
    return NameTable::open({owner, {static_cast<const char*>(memory), size}});
}

platform::Outcome saveNames(const NameTable& table, const QString& file) {
    PosixFiles files;
    if (const auto created = files.createFolder(QFileInfo(file).path()); !created)
        return created;
    const auto bytes = table.bytes();
    return platform::writeDurably(
        files, file, QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

} // namespace skipnest::linuxdesktop
