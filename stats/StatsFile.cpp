// SPDX-License-Identifier: Apache-2.0
#include "stats/StatsFile.h"

#include "model/FreePath.h"

#include <utility>

namespace skipnest::stats {

using platform::FileKind;
using platform::Outcome;
using platform::Result;

StatsFile::StatsFile(platform::Files& files, QString path)
    : files_(files), path_(std::move(path)) {}

StatsFile::Loaded StatsFile::load() {
    const std::scoped_lock lock(writing_);
    if (files_.kind(path_) == FileKind::none)
        return {};
    const Result<QByteArray> bytes = files_.read(path_, largestStats);
    Result<DecodedStats> decoded = bytes ? decodeStats(*bytes) : bytes.failure();
    isWrong_ = !decoded || !decoded->problems.isEmpty();
    if (!decoded)
        return {{}, decoded.failure().detail};
    DecodedStats read = std::move(decoded).value();
    content_ = read.store;
    return {std::move(read.store), read.problems.join(QStringLiteral("; "))};
}

void StatsFile::put(StatsStore changed) {
    const std::scoped_lock lock(inboxLock_);
    inbox_.push_back(std::move(changed));
}

void StatsFile::takeInbox() {
    std::vector<StatsStore> changes;
    {
        const std::scoped_lock lock(inboxLock_);
        changes.swap(inbox_);
    }
    for (StatsStore& changed : changes) {
        isDirty_ = true;
        for (const auto& [day, count] : changed.byDay) {
            if (count == 0)
                content_.byDay.erase(day);
            else
                content_.byDay.insert_or_assign(day, count);
        }
        for (auto it = changed.byTarget.cbegin(); it != changed.byTarget.cend(); ++it)
            content_.byTarget.insert(it.key(), it.value());
        content_.total = changed.total;
        content_.voice = changed.voice;
        content_.switcher = changed.switcher;
        content_.firstUse = std::move(changed.firstUse);
        content_.celebrated = std::move(changed.celebrated);
        content_.used = std::move(changed.used);
    }
}

Result<QString> StatsFile::keepBeside(const QDateTime& local) {
    const QString kept = model::freePathBeside(files_, path_, QStringLiteral("corrupt"), local);
    const auto name = [](const QString& path) { return path.mid(path.lastIndexOf(u'/') + 1); };
    // A copy where that can be: until the new file is there, the parts that were right still are.
    if (files_.kind(path_) == FileKind::file) {
        if (const Result<QByteArray> bytes = files_.read(path_, largestStats)) {
            if (const Outcome written = platform::writeDurably(files_, kept, *bytes); !written)
                return written.failure();
            return name(kept);
        }
    }
    if (const Outcome moved = files_.rename(path_, kept); !moved)
        return moved.failure();
    if (const Outcome flushed = files_.flushFolder(path_.left(path_.lastIndexOf(u'/'))); !flushed)
        return flushed.failure();
    return name(kept);
}

StatsFile::Saved StatsFile::save(const QDateTime& local) {
    const std::scoped_lock lock(writing_);
    takeInbox();
    if (!isDirty_ || isClosed_)
        return {};
    Saved saved;
    saved.outcome = files_.createFolder(path_.left(path_.lastIndexOf(u'/')));
    if (!saved.outcome)
        return saved;
    if (isWrong_ && files_.kind(path_) != FileKind::none) {
        const Result<QString> kept = keepBeside(local);
        if (!kept) {
            saved.outcome = kept.failure();
            return saved;
        }
        saved.movedTo = *kept;
    }
    isWrong_ = false;
    saved.outcome = platform::writeDurably(files_, path_, encodeStats(content_));
    isDirty_ = !saved.outcome;
    return saved;
}

void StatsFile::close() {
    const std::scoped_lock lock(writing_);
    isClosed_ = true;
}

} // namespace skipnest::stats
