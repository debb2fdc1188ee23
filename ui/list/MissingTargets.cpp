// SPDX-License-Identifier: Apache-2.0
#include "ui/list/MissingTargets.h"

#include "platform/Bookmarks.h"
#include "platform/Executor.h"
#include "platform/Files.h"

#include <QPointer>

#include <memory>

namespace skipnest::ui {

using model::ShortcutItem;
using platform::FileKind;

namespace {

bool isFoundByBookmark(const ShortcutItem& item, const platform::Files& files,
                       platform::Bookmarks& bookmarks) {
    if (!item.bookmarkData)
        return false;
    const auto found = bookmarks.resolve(*item.bookmarkData);
    return found && files.kind(*found) != FileKind::none;
}

} // namespace

MissingTargets::MissingTargets(platform::Executor& executor, const platform::Files& files,
                               platform::Bookmarks& bookmarks, QObject* parent)
    : QObject(parent), executor_(executor), files_(files), bookmarks_(bookmarks) {}

void MissingTargets::check(const std::vector<ShortcutItem>& items) {
    const std::uint64_t run = ++run_;
    auto absent = std::make_shared<std::vector<ShortcutItem>>();
    executor_.background(
        [items, absent, &files = files_] {
            for (const ShortcutItem& item : items)
                if (files.kind(item.targetPath) == FileKind::none)
                    absent->push_back(item);
        },
        [self = QPointer<MissingTargets>(this), absent, run] {
            if (self && run == self->run_)
                self->take(*absent);
        });
}

void MissingTargets::take(const std::vector<ShortcutItem>& absent) {
    std::unordered_set<model::RecordId> missing;
    for (const ShortcutItem& item : absent)
        if (!isFoundByBookmark(item, files_, bookmarks_))
            missing.insert(item.id);
    if (missing == missing_)
        return;
    missing_ = std::move(missing);
    Q_EMIT changed();
}

bool isMissing(const ShortcutItem& item, const platform::Files& files,
               platform::Bookmarks& bookmarks) {
    return files.kind(item.targetPath) == FileKind::none &&
           !isFoundByBookmark(item, files, bookmarks);
}

} // namespace skipnest::ui
