// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"

#include <functional>
#include <vector>

namespace skipnest::model {

struct ImportReport {
    int added = 0;
    int updated = 0;
    int unchanged = 0;
    int conflicting = 0; // of those: their combo is another record's too
    int unconfirmed = 0; // of those: applications from elsewhere, disabled until confirmed

    [[nodiscard]] int takenOver() const { return added + updated + unchanged; }
    bool operator==(const ImportReport&) const = default;
};

// What an import makes of a list.
struct ImportMerge {
    std::vector<ShortcutItem> shortcuts;
    std::vector<RecordId> unconfirmed;
    ImportReport report;
};

// Known ids are replaced where they stand, new ones follow in their own order, and sortOrder is
// dealt out anew from 0. Of several imported records with one id the last one counts.
//
// `isForeign` says whether pressing a record's key could run something that nobody installed. It is
// asked of records that are new or aim at something new: what the person has at that place already
// needs no second word.
[[nodiscard]] ImportMerge mergeImport(const std::vector<ShortcutItem>& list,
                                      const std::vector<ShortcutItem>& imported,
                                      const std::function<bool(const ShortcutItem&)>& isForeign);

// Whether a combo of this record is another record's too.
[[nodiscard]] bool sharesCombo(const std::vector<ShortcutItem>& list, const ShortcutItem& item);

} // namespace skipnest::model
