// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"

#include <cstdint>
#include <vector>

namespace skipnest::model {

// Ascending in sortOrder; equal numbers keep their order.
void sortByOrder(std::vector<ShortcutItem>& items);

// The number for a record after all of these, which must be sorted: the last one's plus one, 0 for
// an empty list. Where the last one has the largest number there is, all are numbered anew from 0.
[[nodiscard]] std::int64_t nextSortOrder(std::vector<ShortcutItem>& items);

} // namespace skipnest::model
