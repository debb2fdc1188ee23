// SPDX-License-Identifier: Apache-2.0
#include "model/SortOrder.h"

#include <algorithm>
#include <limits>

namespace skipnest::model {

void sortByOrder(std::vector<ShortcutItem>& items) {
    std::ranges::stable_sort(items, {}, &ShortcutItem::sortOrder);
}

std::int64_t nextSortOrder(std::vector<ShortcutItem>& items) {
    if (items.empty())
        return 0;
    if (items.back().sortOrder == std::numeric_limits<std::int64_t>::max()) {
        std::int64_t order = 0;
        for (ShortcutItem& item : items)
            item.sortOrder = order++;
    }
    return items.back().sortOrder + 1;
}

} // namespace skipnest::model
