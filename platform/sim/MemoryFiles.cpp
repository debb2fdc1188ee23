// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/MemoryFiles.h"

namespace skipnest::platform::sim {

struct MemoryFiles::Node {
    FileKind kind = FileKind::file;
    QByteArray seenContent;
    QByteArray diskContent;
    Entries seenEntries;
    Entries diskEntries;
    Entries lastChange; // since the last flush; null for a name that went
};

namespace {

Failure notFound(const QString& path) {
    return {Failure::Kind::notFound, path + QStringLiteral(": no such file or folder")};
}

Failure refused(const QString& path, const QString& why) {
    return {Failure::Kind::system, path + QStringLiteral(": ") + why};
}

Failure faultFailure(const QString& path) {
    return refused(path, QStringLiteral("no space left on device"));
}

QString nameOf(const QString& path) {
    return path.mid(path.lastIndexOf(u'/') + 1);
}

} // namespace

MemoryFiles::MemoryFiles() : root_(std::make_shared<Node>()) {
    root_->kind = FileKind::folder;
}

MemoryFiles::~MemoryFiles() = default;

std::shared_ptr<MemoryFiles::Node> MemoryFiles::node(const QString& path) const {
    std::shared_ptr<Node> current = root_;
    for (const QString& name : path.split(u'/', Qt::SkipEmptyParts)) {
        const auto found = current->seenEntries.find(name);
        if (found == current->seenEntries.end())
            return nullptr;
        current = found->second;
    }
    return current;
}

std::shared_ptr<MemoryFiles::Node> MemoryFiles::folderOf(const QString& path) const {
    const std::shared_ptr<Node> folder = node(path.left(path.lastIndexOf(u'/')));
    return folder && folder->kind == FileKind::folder ? folder : nullptr;
}

MemoryFiles::Fault MemoryFiles::begin(const QString& operation) {
    operations_ << operation;
    if (stopAfter_ && *stopAfter_ <= 0)
        return --*stopAfter_ == -1 ? Fault::failing : Fault::stopped;
    if (stopAfter_)
        --*stopAfter_;
    if (failAfter_ && (*failAfter_)-- == 0) {
        failAfter_.reset();
        return Fault::failing;
    }
    return Fault::none;
}

FileKind MemoryFiles::kind(const QString& path) const {
    const std::shared_ptr<Node> found = node(path);
    return found ? found->kind : FileKind::none;
}

Result<QByteArray> MemoryFiles::read(const QString& path, std::int64_t limit) {
    if (begin(QStringLiteral("read ") + path) != Fault::none || unreadable_.contains(path))
        return refused(path, QStringLiteral("input/output error"));
    const std::shared_ptr<Node> found = node(path);
    if (!found)
        return notFound(path);
    if (found->kind != FileKind::file)
        return refused(path, QStringLiteral("is a folder"));
    if (found->seenContent.size() > limit)
        return Failure{Failure::Kind::tooLarge, path + QStringLiteral(": too large")};
    return found->seenContent;
}

Result<QStringList> MemoryFiles::list(const QString& folder) {
    if (begin(QStringLiteral("list ") + folder) != Fault::none)
        return refused(folder, QStringLiteral("input/output error"));
    const std::shared_ptr<Node> found = node(folder);
    if (!found || found->kind != FileKind::folder)
        return notFound(folder);
    QStringList names;
    for (const auto& [name, entry] : found->seenEntries)
        names << name;
    return names;
}

Outcome MemoryFiles::createFolder(const QString& path) {
    if (begin(QStringLiteral("createFolder ") + path) != Fault::none)
        return faultFailure(path);
    std::shared_ptr<Node> current = root_;
    for (const QString& name : path.split(u'/', Qt::SkipEmptyParts)) {
        std::shared_ptr<Node>& entry = current->seenEntries[name];
        if (!entry) {
            entry = std::make_shared<Node>();
            entry->kind = FileKind::folder;
        }
        if (entry->kind != FileKind::folder)
            return refused(path, QStringLiteral("a file is in the way"));
        current = entry;
    }
    return Done{};
}

Outcome MemoryFiles::write(const QString& path, const QByteArray& bytes) {
    const Fault fault = begin(QStringLiteral("write ") + path);
    if (fault == Fault::stopped)
        return faultFailure(path);
    const std::shared_ptr<Node> folder = folderOf(path);
    if (!folder)
        return notFound(path);
    std::shared_ptr<Node>& entry = folder->seenEntries[nameOf(path)];
    if (!entry) {
        entry = std::make_shared<Node>();
        folder->lastChange = {{nameOf(path), entry}};
    }
    if (entry->kind != FileKind::file)
        return refused(path, QStringLiteral("is a folder"));
    entry->seenContent = fault == Fault::none ? bytes : bytes.left(bytes.size() / 2);
    return fault == Fault::none ? Outcome(Done{}) : faultFailure(path);
}

Outcome MemoryFiles::flush(const QString& path) {
    if (begin(QStringLiteral("flush ") + path) != Fault::none)
        return faultFailure(path);
    const std::shared_ptr<Node> found = node(path);
    if (!found)
        return notFound(path);
    found->diskContent = found->seenContent;
    return Done{};
}

Outcome MemoryFiles::flushFolder(const QString& path) {
    if (begin(QStringLiteral("flushFolder ") + path) != Fault::none)
        return faultFailure(path);
    const std::shared_ptr<Node> found = node(path);
    if (!found || found->kind != FileKind::folder)
        return notFound(path);
    found->diskEntries = found->seenEntries;
    found->lastChange.clear();
    return Done{};
}

Outcome MemoryFiles::rename(const QString& from, const QString& to) {
    if (begin(QStringLiteral("rename ") + from + u' ' + to) != Fault::none)
        return faultFailure(from);
    const std::shared_ptr<Node> moved = node(from);
    const std::shared_ptr<Node> target = folderOf(to);
    if (!moved || !target)
        return notFound(moved ? to : from);
    const std::shared_ptr<Node> replaced = node(to);
    if (replaced && (replaced->kind == FileKind::folder || moved->kind == FileKind::folder))
        return refused(to, QStringLiteral("is in the way"));
    const std::shared_ptr<Node> source = folderOf(from);
    source->seenEntries.erase(nameOf(from));
    source->lastChange = {{nameOf(from), nullptr}};
    target->seenEntries[nameOf(to)] = moved;
    if (target != source)
        target->lastChange.clear();
    target->lastChange[nameOf(to)] = moved;
    return Done{};
}

Outcome MemoryFiles::remove(const QString& path) {
    if (begin(QStringLiteral("remove ") + path) != Fault::none)
        return faultFailure(path);
    const std::shared_ptr<Node> folder = folderOf(path);
    if (!folder || folder->seenEntries.erase(nameOf(path)) == 0)
        return notFound(path);
    folder->lastChange = {{nameOf(path), nullptr}};
    return Done{};
}

void MemoryFiles::put(const QString& path, const QByteArray& bytes) {
    std::shared_ptr<Node> current = root_;
    const QStringList names = path.split(u'/', Qt::SkipEmptyParts);
    for (const QString& name : names) {
        std::shared_ptr<Node>& entry = current->seenEntries[name];
        if (!entry) {
            entry = std::make_shared<Node>();
            entry->kind = FileKind::folder;
        }
        current->diskEntries[name] = entry;
        current = entry;
    }
    current->kind = FileKind::file;
    current->seenContent = bytes;
    current->diskContent = bytes;
}

std::optional<QByteArray> MemoryFiles::content(const QString& path) const {
    const std::shared_ptr<Node> found = node(path);
    if (!found || found->kind != FileKind::file)
        return std::nullopt;
    return found->seenContent;
}

void MemoryFiles::settle(Node& node, Reached reached) {
    switch (reached) {
    case Reached::nothing:
        node.seenContent = node.diskContent;
        node.seenEntries = node.diskEntries;
        break;
    case Reached::lastName:
        node.seenContent = node.diskContent;
        node.seenEntries = node.diskEntries;
        for (const auto& [name, entry] : node.lastChange) {
            if (entry)
                node.seenEntries[name] = entry;
            else
                node.seenEntries.erase(name);
        }
        break;
    case Reached::namesOnly:
        if (node.seenContent != node.diskContent)
            node.seenContent.truncate(node.seenContent.size() / 2);
        break;
    case Reached::everything:
        break;
    }
    node.diskContent = node.seenContent;
    node.diskEntries = node.seenEntries;
    node.lastChange.clear();
    for (const auto& [name, entry] : node.seenEntries)
        settle(*entry, reached);
}

void MemoryFiles::crash(Reached reached) {
    failAfter_.reset();
    stopAfter_.reset();
    settle(*root_, reached);
}

} // namespace skipnest::platform::sim
