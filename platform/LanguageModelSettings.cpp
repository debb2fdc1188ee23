// SPDX-License-Identifier: Apache-2.0
#include "platform/LanguageModelSettings.h"

#include <algorithm>
#include <cmath>

namespace skipnest::platform {
namespace {

Duration deadlineOf(const QJsonValue& seconds) {
    using Settings = LanguageModelSettings;
    if (!seconds.isDouble())
        return Settings::usualDeadline;
    const double shortest = std::chrono::duration<double>(Settings::shortestDeadline).count();
    const double longest = std::chrono::duration<double>(Settings::longestDeadline).count();
    const double bounded = std::clamp(seconds.toDouble(), shortest, longest);
    return std::chrono::milliseconds(std::llround(bounded * 1000));
}

} // namespace

LanguageModelSettings LanguageModelSettings::read(const UserDefaults& defaults) {
    const auto value = [&defaults](const char* key) {
        return defaults.value(QString::fromLatin1(key));
    };
    return {.endpoint = value(endpointKey).toString().trimmed(),
            .name = value(nameKey).toString().trimmed(),
            .deadline = deadlineOf(value(deadlineKey)),
            .asksAlways = value(alwaysKey).toBool(false),
            .allowsOtherMachines = value(otherMachinesKey).toBool(false)};
}

} // namespace skipnest::platform
