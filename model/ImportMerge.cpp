// SPDX-License-Identifier: Apache-2.0
#include "model/ImportMerge.h"

#include "model/SortOrder.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace skipnest::model {
namespace {

// Ascending in sortOrder, each id once.
std::vector<ShortcutItem> withoutRepeats(const std::vector<ShortcutItem>& imported) {
    std::unordered_map<RecordId, std::size_t> last;
    for (std::size_t i = 0; i < imported.size(); ++i)
        last[imported[i].id] = i;
    std::vector<ShortcutItem> records;
    for (std::size_t i = 0; i < imported.size(); ++i) {
        if (last[imported[i].id] == i)
            records.push_back(imported[i]);
    }
    sortByOrder(records);
    return records;
}

bool aimsElsewhere(const ShortcutItem& before, const ShortcutItem& after) {
    return before.targetPath != after.targetPath || before.bookmarkData != after.bookmarkData;
}

bool uses(const ShortcutItem& item, const std::optional<KeyCombo>& combo) {
    return combo && (item.keyCombo == combo || item.hideKeyCombo == combo);
}

} // namespace

bool sharesCombo(const std::vector<ShortcutItem>& list, const ShortcutItem& item) {
    return std::ranges::any_of(list, [&item](const ShortcutItem& other) {
        return other.id != item.id &&
               (uses(other, item.keyCombo) || uses(other, item.hideKeyCombo));
    });
}

ImportMerge mergeImport(const std::vector<ShortcutItem>& list,
                        const std::vector<ShortcutItem>& imported,
                        const std::function<bool(const ShortcutItem&)>& isForeign) {
    ImportMerge merge{list, {}, {}};
    std::unordered_map<RecordId, std::size_t> places;
    for (std::size_t i = 0; i < list.size(); ++i)
        places.emplace(list[i].id, i);

    const std::vector<ShortcutItem> records = withoutRepeats(imported);
    for (const ShortcutItem& record : records) {
        const auto place = places.find(record.id);
        if (place == places.end()) {
            merge.shortcuts.push_back(record);
            ++merge.report.added;
            if (isForeign(record))
                merge.unconfirmed.push_back(record.id);
            continue;
        }
        ShortcutItem& known = merge.shortcuts[place->second];
        ShortcutItem changed = record;
        changed.sortOrder = known.sortOrder;
        if (changed == known) {
            ++merge.report.unchanged;
            continue;
        }
        ++merge.report.updated;
        if (aimsElsewhere(known, changed) && isForeign(changed))
            merge.unconfirmed.push_back(changed.id);
        known = std::move(changed);
    }

    std::int64_t order = 0;
    for (ShortcutItem& item : merge.shortcuts)
        item.sortOrder = order++;
    merge.report.unconfirmed = static_cast<int>(merge.unconfirmed.size());
    merge.report.conflicting =
        static_cast<int>(std::ranges::count_if(records, [&merge](const ShortcutItem& record) {
            return sharesCombo(merge.shortcuts, record);
        }));
    return merge;
}

} // namespace skipnest::model
