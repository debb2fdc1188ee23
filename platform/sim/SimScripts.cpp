// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimScripts.h"

#include <algorithm>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::CycleDirection;
using platform::ScriptAnswer;
using platform::ScriptError;
using platform::ScriptText;

SimScripts::SimScripts(VirtualScheduler& scheduler, Journal& journal, SimApplications& apps)
    : scheduler_(scheduler), journal_(journal), apps_(apps) {}

void SimScripts::setAnswer(const QString& receiver, const ScriptAnswer& answer) {
    answers_.insert_or_assign(receiver, answer);
}

ScriptAnswer SimScripts::run(const platform::ScriptRequest& request, platform::Duration budget) {
    if (!std::holds_alternative<platform::CycleWindows>(request.meaning))
        return ScriptError{notRunning, u"Application isn’t running."_s};
    const auto& cycle = std::get<platform::CycleWindows>(request.meaning);
    journal_.call(u"script"_s, {{u"to"_s, cycle.bundleIdentifier}, {u"source"_s, request.source}});
    const auto told = answers_.find(cycle.bundleIdentifier);
    if (told == answers_.end())
        return carryOut(cycle);
    if (std::holds_alternative<platform::ScriptBudgetExceeded>(told->second))
        scheduler_.block(budget);
    return told->second;
}

ScriptAnswer SimScripts::carryOut(const platform::CycleWindows& cycle) {
    const auto apps = apps_.runningApplications();
    const bool runs = std::ranges::any_of(
        apps, [&cycle](const auto& app) { return app.bundleIdentifier == cycle.bundleIdentifier; });
    if (!runs)
        return ScriptError{notRunning, u"Application isn’t running."_s};
    const bool done = cycle.direction == CycleDirection::next
                          ? apps_.minimizeNext(cycle.bundleIdentifier)
                          : apps_.restorePrevious(cycle.bundleIdentifier);
    if (!done)
        return ScriptError{noSuchWindow, u"Invalid index."_s};
    return ScriptText{};
}

} // namespace skipnest::sim
