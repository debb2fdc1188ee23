// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/WebService.h"

#include <cstdint>

namespace skipnest::services {

// The figures of the statistics card, and nothing else.
struct SharedFigures {
    std::int64_t weekJumps = 0;
    std::int64_t minutesSaved = 0; // by the jumps of the week
    std::int64_t streakDays = 0;
    std::int64_t total = 0;
};

// The page that shows these figures: "/share.php" with "j" jumps of the week, "m" minutes they
// saved, "s" streak and "t" all jumps. Empty where there is no service.
[[nodiscard]] QUrl shareLink(const platform::WebService& web, const SharedFigures& figures);

} // namespace skipnest::services
