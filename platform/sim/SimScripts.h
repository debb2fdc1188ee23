// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ScriptRunner.h"
#include "platform/sim/Journal.h"
#include "platform/sim/SimApplications.h"
#include "platform/sim/VirtualScheduler.h"

#include <map>

namespace skipnest::sim {

// Answers scripts: as told for their receiver, otherwise by doing to the simulated windows what the
// script means, with the error numbers that the system gives.
class SimScripts final : public platform::ScriptRunner {
public:
    static constexpr int noSuchWindow = -1719;
    static constexpr int notRunning = -600;

    SimScripts(VirtualScheduler& scheduler, Journal& journal, SimApplications& apps);

    // Every script for this receiver (a bundle identifier) gets this answer from now on, and
    // changes nothing. A ScriptBudgetExceeded lets the whole budget pass first.
    void setAnswer(const QString& receiver, const platform::ScriptAnswer& answer);

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] platform::ScriptAnswer run(const platform::ScriptRequest& request,
                                             platform::Duration budget) override;

private:
    [[nodiscard]] platform::ScriptAnswer carryOut(const platform::CycleWindows& cycle);

    VirtualScheduler& scheduler_;
    Journal& journal_;
    SimApplications& apps_;
    std::map<QString, platform::ScriptAnswer> answers_;
};

} // namespace skipnest::sim
