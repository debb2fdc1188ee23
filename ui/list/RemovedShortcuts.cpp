// SPDX-License-Identifier: Apache-2.0
#include "ui/list/RemovedShortcuts.h"

#include <algorithm>

namespace skipnest::ui {

using model::RecordId;
using model::ShortcutItem;

RemovedShortcuts::RemovedShortcuts(model::ShortcutListViewModel& list,
                                   platform::Scheduler& scheduler, QObject* parent)
    : QObject(parent), list_(list), scheduler_(scheduler) {}

void RemovedShortcuts::remove(const RecordId& id) {
    const auto& items = list_.shortcuts();
    const auto found = std::ranges::find(items, id, &ShortcutItem::id);
    if (found == items.end())
        return;
    removed_.push_back({*found, found - items.begin(), list_.isConfirmed(id)});
    list_.remove(id);
    offer();
}

bool RemovedShortcuts::undo() {
    if (removed_.empty())
        return false;
    const Removed last = removed_.back();
    removed_.pop_back();
    // An import or a restored snapshot may have brought it back in the meantime. The way of an
    // import is also ours: it keeps the id, where adding would make a new one.
    const bool isBack = !list_.item(last.item.id) && list_.merge({last.item}).ok();
    if (isBack) {
        // What the person had confirmed is not asked for again.
        if (last.wasConfirmed)
            (void)list_.confirm(last.item.id);
        (void)list_.move(last.item.id, last.row);
    }
    offer();
    return isBack;
}

void RemovedShortcuts::offer() {
    end_ = removed_.empty() ? platform::Timer()
                            : scheduler_.after(offeredFor, "undo of a removal", [this] {
                                  removed_.clear();
                                  Q_EMIT changed();
                              });
    Q_EMIT changed();
}

} // namespace skipnest::ui
