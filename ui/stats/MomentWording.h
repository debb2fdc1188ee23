// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/AppConfiguration.h"
#include "platform/AppInfo.h"
#include "stats/Milestones.h"

#include <QString>

#include <optional>

namespace skipnest::ui {

// What the statistics have to say of themselves, in the person's language. In English these are the
// catalogue's own words; what nobody has worded here stays as the catalogue has it.
struct Moment {
    enum class Kind { none, milestone, recap, tip };
    Kind kind = Kind::none;
    QString id;
    QString title;
    QString text;

    bool operator==(const Moment&) const = default;
};

[[nodiscard]] Moment wordedMilestone(const stats::Milestone& milestone,
                                     const std::optional<stats::ChallengeStanding>& standing);
// `weekJumps` and `streakDays` are those of the recap.
[[nodiscard]] Moment wordedRecap(const stats::Milestone& recap, std::int64_t weekJumps,
                                 std::int64_t streakDays);
// With the keys as this person reads and has set them.
[[nodiscard]] Moment wordedTip(const stats::Tip& tip, const model::AppConfiguration& configuration,
                               platform::ModifierStyle style);

} // namespace skipnest::ui
