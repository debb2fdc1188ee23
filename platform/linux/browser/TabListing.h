// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdint>

namespace skipnest::linuxdesktop {

// What one profile of a browser answered to a listing.
struct TabListing {
    QString lines; // as platform::EnumerateTabs asks for them
    std::int64_t windows = 0;
    double focusedAt = 0; // when one of its windows came to the front last, in ms; 0 for unknown
};

// Windows are numbered from `firstWindow`. Total: a tab that is not what it should be is left out
// and keeps its number.
[[nodiscard]] TabListing tabListing(const QJsonObject& answer, std::int64_t firstWindow);

} // namespace skipnest::linuxdesktop
