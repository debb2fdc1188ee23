// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cli/TraceEvents.h"

#include <QDateTime>
#include <QJsonObject>

#include <set>

namespace skipnest::cli::trace {

// The document that a trace's lines before the start describe: keys over the empty document, and
// records whose ids count from 1 so that two replays of one trace print the same.
class TraceStage {
public:
    TraceStage();

    void apply(const SetConfig& event);
    void add(const AddShortcut& event, const QDateTime& createdAt);
    // A record of this path carries a bookmark.
    void setBookmarked(const QString& path) { bookmarked_.insert(path); }

    // Whether any line described a document; without one there is no file.
    [[nodiscard]] bool isDescribed() const { return described_; }
    [[nodiscard]] QJsonObject document() const;
    // The record as the next one after `shortcuts` of them.
    [[nodiscard]] QJsonObject record(const AddShortcut& event, qsizetype shortcuts,
                                     const QDateTime& createdAt);

private:
    QJsonObject document_;
    std::set<QString> bookmarked_;
    int lastRecord_ = 0;
    bool described_ = false;
};

// "application", "file" or "folder", as the document and traces have it.
[[nodiscard]] QString targetTypeName(model::ShortcutItem::TargetType type);

} // namespace skipnest::cli::trace
