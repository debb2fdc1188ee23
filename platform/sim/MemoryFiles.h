// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Files.h"

#include <QStringList>

#include <map>
#include <memory>
#include <optional>

namespace skipnest::platform::sim {

// A file system in memory that is honest about what survives a power cut, and fails on demand.
//
// Every entry has two states: what programs see, and what the disk holds. write() changes only what
// programs see until flush(); creating, renaming and removing change only what programs see until
// flushFolder() of the folder concerned. A crash() drops what programs saw, in one of the ways that
// real disks do it.
//
// Paths are absolute; the root folder always exists.
class MemoryFiles final : public Files {
public:
    // What had reached the disk, of what was not flushed, when the power went.
    enum class Reached {
        nothing,   // the state of the last flushes
        lastName,  // of each folder the last change of a name, but none before it: out of order
        namesOnly, // new names and renames did, contents not: a file not flushed is cut in half
        everything,
    };

    MemoryFiles();
    ~MemoryFiles() override;

    [[nodiscard]] FileKind kind(const QString& path) const override;
    // There are no links here.
    [[nodiscard]] QString followLinks(const QString& path) const override { return path; }
    [[nodiscard]] Result<QByteArray> read(const QString& path, std::int64_t limit) override;
    [[nodiscard]] Result<QStringList> list(const QString& folder) override;
    Outcome createFolder(const QString& path) override;
    Outcome write(const QString& path, const QByteArray& bytes) override;
    Outcome flush(const QString& path) override;
    Outcome flushFolder(const QString& path) override;
    Outcome rename(const QString& from, const QString& to) override;
    Outcome remove(const QString& path) override;

    // Puts a file there, folders included, safely on the disk. No operation, never fails.
    void put(const QString& path, const QByteArray& bytes);
    // The content as programs see it. No operation either.
    [[nodiscard]] std::optional<QByteArray> content(const QString& path) const;

    // The operation after `n` more ones fails with "no space left on device", once. A write that
    // fails leaves half of its bytes.
    void failAfter(int n) { failAfter_ = n; }
    // After `n` more operations the power is gone: the next one and all others fail without effect,
    // but for a write, which may have got half way.
    void stopAfter(int n) { stopAfter_ = n; }
    // The power is back.
    void crash(Reached reached);

    // Reading this path fails from now on.
    void makeUnreadable(const QString& path) { unreadable_ << path; }

    // One line an operation since the start, as "rename /a/b.new /a/b".
    [[nodiscard]] const QStringList& operations() const { return operations_; }

private:
    struct Node;
    using Entries = std::map<QString, std::shared_ptr<Node>>;

    enum class Fault { none, failing, stopped };
    Fault begin(const QString& operation);
    [[nodiscard]] std::shared_ptr<Node> node(const QString& path) const;
    [[nodiscard]] std::shared_ptr<Node> folderOf(const QString& path) const;
    static void settle(Node& node, Reached reached);

    std::shared_ptr<Node> root_;
    QStringList unreadable_;
    QStringList operations_;
    std::optional<int> failAfter_;
    std::optional<int> stopAfter_;
};

} // namespace skipnest::platform::sim
