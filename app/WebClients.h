// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Ports.h"
#include "platform/Scheduler.h"
#include "platform/WebService.h"
#include "services/CrashReporter.h"
#include "services/FeedbackService.h"
#include "services/InstallIdentity.h"
#include "services/Pings.h"
#include "services/UpdateChecker.h"
#include "stats/ChallengeService.h"
#include "stats/JumpStats.h"

namespace skipnest::app {

// Everything that talks to the makers' web service, and what starts each of it. In a build without
// a service nothing here ever sends.
struct WebClients {
    WebClients(const platform::Ports& ports, stats::JumpStats& jumps);

    // The program is up. Updates are asked for here, and the standing in the challenge from time to
    // time.
    enum class Updates { check, leave };
    void start(Updates updates);
    // At the start and after every change of the settings.
    void settingsApplied(bool crashReports, bool onboarded);

    platform::WebService web;
    services::InstallIdentity identity;
    services::Pings pings;
    services::FeedbackService feedback;
    services::UpdateChecker updates;
    services::CrashReporter crashes;
    stats::ChallengeService challenge;

private:
    platform::Scheduler& scheduler_;
    platform::Timer leaderboardTimer_;
    std::optional<bool> crashReports_; // as last applied
};

} // namespace skipnest::app
