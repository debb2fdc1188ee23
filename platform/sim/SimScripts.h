// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ScriptRunner.h"
#include "platform/sim/Journal.h"
#include "platform/sim/SimApplications.h"
#include "platform/sim/VirtualScheduler.h"

#include <map>
#include <optional>

namespace skipnest::sim {

// What a browser answers when it is asked for its tabs.
struct SimTabs {
    enum class Relocation { found, missed, hang };
    enum class Activation { ok, fail };

    // A ScriptBudgetExceeded is a browser that hangs.
    platform::ScriptAnswer listing = platform::ScriptText{};
    // Without these two, the error or hang of the listing, else found and ok.
    std::optional<Relocation> relocation = {};
    std::optional<Activation> activation = {};
    platform::Duration after = {}; // each answer takes that long
};

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
    // The scripts for tabs of the browser with this identifier. One that nothing is told of has no
    // tabs.
    void setTabs(const QString& bundleIdentifier, const SimTabs& tabs);
    void setFurtherBrowsers(const QStringList& identifiers) { furtherBrowsers_ = identifiers; }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] QStringList furtherBrowsers() const override { return furtherBrowsers_; }
    [[nodiscard]] platform::ScriptAnswer run(const platform::ScriptRequest& request,
                                             platform::Duration budget) override;

private:
    struct Queued {
        platform::ScriptAnswer answer;
        platform::Duration takes;
    };

    [[nodiscard]] platform::ScriptAnswer cycle(const platform::CycleWindows& meaning,
                                               platform::Duration budget);
    [[nodiscard]] platform::ScriptAnswer carryOut(const platform::CycleWindows& meaning);
    [[nodiscard]] SimTabs tabsOf(const QString& bundleIdentifier) const;
    [[nodiscard]] platform::ScriptAnswer queue(const Queued& script, platform::Duration budget);
    void bringToFront(const QString& bundleIdentifier);

    VirtualScheduler& scheduler_;
    Journal& journal_;
    SimApplications& apps_;
    std::map<QString, platform::ScriptAnswer> answers_;
    std::map<QString, SimTabs> tabs_;
    QStringList furtherBrowsers_;
    platform::Instant queueIsFree_;
};

} // namespace skipnest::sim
