// SPDX-License-Identifier: Apache-2.0
#include "stats/TimeSaved.h"

namespace skipnest::stats {

std::int64_t minutesSaved(std::int64_t jumps) {
    constexpr std::int64_t secondsPerJump = 5;
    // Rounded half up; divided first, so that no count overflows.
    const std::int64_t perMinute = 60 / secondsPerJump;
    return jumps / perMinute + (jumps % perMinute >= perMinute / 2 ? 1 : 0);
}

QString timeSavedText(std::int64_t jumps) {
    const std::int64_t minutes = minutesSaved(jumps);
    if (minutes < 1)
        return QStringLiteral("<1 min");
    if (minutes < 60)
        return QStringLiteral("%1 min").arg(minutes);
    return QStringLiteral("%1 h %2 min").arg(minutes / 60).arg(minutes % 60);
}

} // namespace skipnest::stats
