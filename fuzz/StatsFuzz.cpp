// SPDX-License-Identifier: Apache-2.0
#include "stats/Milestones.h"
#include "stats/StatsStore.h"
#include "stats/TimeSaved.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace skipnest::stats;

void require(bool holds) {
    if (!holds)
        std::abort();
}

bool isCount(std::int64_t count) {
    return count >= 0 && count <= largestCount;
}

} // namespace

// Any bytes are refused with a reason or give a store that survives being written and read, and
// whose figures are figures.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto decoded =
        decodeStats(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (!decoded) {
        require(!decoded.failure().detail.isEmpty());
        return 0;
    }
    require(decoded->problems.size() <= 10);
    const StatsStore& store = decoded->store;
    const QByteArray written = encodeStats(store);
    const auto again = decodeStats(written);
    require(again && again->problems.isEmpty() && again->store == store);
    require(encodeStats(again->store) == written);

    require(isCount(store.total) && isCount(store.voice) && isCount(store.keyboard()));
    const QDate today = store.byDay.empty() ? QDate(2026, 3, 3) : store.byDay.rbegin()->first;
    require(std::ranges::all_of(weeks(store, today, 12), isCount));
    require(streakDays(store, today) <= static_cast<std::int64_t>(store.byDay.size()));
    for (const auto& milestone : {jumpMilestone(store), recap(store, today)})
        require(!milestone || !store.celebrated.contains(milestone->id));
    require(!timeSavedText(store.total).isEmpty());
    return 0;
}
