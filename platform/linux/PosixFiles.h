// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Files.h"

namespace skipnest::linuxdesktop {

// Files on the real file system. Nothing here waits for another process: a pipe or a device in the
// place of a file is refused, not opened for good. Failures name the operation and the path.
class PosixFiles final : public platform::Files {
public:
    [[nodiscard]] platform::FileKind kind(const QString& path) const override;
    [[nodiscard]] QString followLinks(const QString& path) const override;
    [[nodiscard]] platform::Result<QByteArray> read(const QString& path,
                                                    std::int64_t limit) override;
    [[nodiscard]] platform::Result<QStringList> list(const QString& folder) override;
    platform::Outcome createFolder(const QString& path) override;
    // A file that exists is unlinked first, so that the new one has its own mode and a link in its
    // place is not written through. What a failed write left behind is removed.
    platform::Outcome write(const QString& path, const QByteArray& bytes) override;
    platform::Outcome flush(const QString& path) override;
    platform::Outcome flushFolder(const QString& path) override;
    platform::Outcome rename(const QString& from, const QString& to) override;
    // Files only: a folder is refused.
    platform::Outcome remove(const QString& path) override;
};

} // namespace skipnest::linuxdesktop
