// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace skipnest::platform {

enum class FileKind { none, file, folder, other };

// Every file operation of the stores, each a single step that can fail by itself: tests make each
// one fail or stop in turn. Paths are absolute. New files are for the user only (0600), new folders
// too (0700).
class Files {
public:
    virtual ~Files() = default;

    [[nodiscard]] virtual FileKind kind(const QString& path) const = 0;
    // Where the symbolic links at this path lead; the path itself where nothing is there.
    [[nodiscard]] virtual QString followLinks(const QString& path) const = 0;
    // Whole content; `tooLarge` without reading when the file is above `limit` bytes.
    [[nodiscard]] virtual Result<QByteArray> read(const QString& path, std::int64_t limit) = 0;
    // File names in a folder, sorted, without "." and "..".
    [[nodiscard]] virtual Result<QStringList> list(const QString& folder) = 0;
    // With intermediate folders; an existing folder is fine.
    virtual Outcome createFolder(const QString& path) = 0;
    // Writes a new file; one that exists is replaced.
    virtual Outcome write(const QString& path, const QByteArray& bytes) = 0;
    // Forces a file's content (or a folder's entries) to the disk.
    virtual Outcome flush(const QString& path) = 0;
    virtual Outcome flushFolder(const QString& path) = 0;
    // Replaces `to` in one step.
    virtual Outcome rename(const QString& from, const QString& to) = 0;
    virtual Outcome remove(const QString& path) = 0;
};

// Replaces the file at `path` by `bytes` so that a crash or power loss at any moment leaves the old
// or the new content: temporary file in the same folder, flush, rename, flush of the folder. On
// failure the old file stands and the temporary one is removed where possible. A symbolic link at
// `path` stays: people keep their settings in a folder of their own and link to it.
Outcome writeDurably(Files& files, const QString& path, const QByteArray& bytes);

} // namespace skipnest::platform
