// SPDX-License-Identifier: Apache-2.0
#include "app/WebClients.h"

namespace skipnest::app {

using services::Pings;

namespace {

using namespace std::chrono_literals;

// A rank moves slowly, and every jump submits on its own.
constexpr platform::Duration leaderboardPeriod = 30min;

} // namespace

WebClients::WebClients(const platform::Ports& ports, stats::JumpStats& jumps)
    : web(ports.http, ports.scheduler, ports.app.serviceAddress),
      identity(ports.defaults, ports.app),
      pings(web, ports.defaults, identity, ports.diagnostics, ports.app.language),
      feedback(web, ports.diagnostics),
      updates(web, ports.workspace, ports.scheduler, ports.diagnostics, ports.app),
      crashes(web, ports.files, ports.defaults, identity, ports.diagnostics, ports.app),
      challenge(web, jumps, ports.defaults, ports.scheduler, ports.wallClock, ports.diagnostics,
                ports.app),
      scheduler_(ports.scheduler) {
    jumps.setReactions({
        .firstJump = [this] { pings.reached(Pings::Stage::firstJump); },
        .jumped = [this] { challenge.jumped(); },
    });
    jumps.setStanding([this] { return challenge.standing(); });
}

void WebClients::start(Updates wanted) {
    pings.started();
    pings.reached(Pings::Stage::firstStart);
    if (wanted == Updates::check)
        updates.start();
    leaderboardTimer_ =
        scheduler_.every(leaderboardPeriod, "leaderboard", [this] { challenge.submit(); });
}

void WebClients::settingsApplied(bool crashReports, bool onboarded) {
    if (onboarded)
        pings.reached(Pings::Stage::onboarded);
    if (std::exchange(crashReports_, crashReports) != crashReports)
        crashes.start(crashReports);
}

} // namespace skipnest::app
