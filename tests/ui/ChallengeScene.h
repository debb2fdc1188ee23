// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::sim {
class SimDesktop;
}

namespace skipnest::test {

// Of the leaderboard, with the simulated desktop's network.
inline const QString challengePage = QStringLiteral("/leaderboard.php");

// Before the launch: a build without a web service.
void removeWebService(sim::SimDesktop& desk);
// Before the launch: "Ada" takes part, seventh of 1204 and three places up since Monday. The board
// has 59 challengers, whose names are of the kind that is hard to draw.
void takePartInChallenge(sim::SimDesktop& desk);

} // namespace skipnest::test
