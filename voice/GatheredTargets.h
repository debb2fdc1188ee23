// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "platform/HomeFolders.h"
#include "platform/InstalledApplications.h"
#include "platform/RunningApplication.h"
#include "switcher/AppWindows.h"
#include "switcher/BrowserTabs.h"
#include "voice/JumpReach.h"
#include "voice/TargetList.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace skipnest::voice {

// What the sources of targets said, as far as they have been asked.
struct GatheredTargets {
    struct Windows {
        platform::RunningApplication app;
        std::vector<switcher::AppWindows::Info> windows;
    };
    struct Tabs {
        platform::RunningApplication browser;
        std::vector<switcher::BrowserTabs::BrowserTab> tabs;
    };

    std::vector<model::ShortcutItem> shortcuts;
    std::vector<platform::InstalledApplication> installed;
    std::vector<platform::RunningApplication> running; // the one in front first
    bool hasFront = false;                             // whether it is there
    switcher::AppWindows::Element focused;             // the window in front
    std::vector<Windows> windows;
    std::vector<Tabs> tabs;

    // Shortcuts, running applications, standard folders, installed applications, tabs, windows.
    [[nodiscard]] std::vector<JumpTarget> targets(const std::shared_ptr<JumpReach>& reach,
                                                  const platform::HomeFolders& folders) const;

private:
    void addShortcuts(TargetCollector& collector, const std::shared_ptr<JumpReach>& reach,
                      const QString& home) const;
    void addApplications(TargetCollector& collector, const std::shared_ptr<JumpReach>& reach) const;
    void addTabs(TargetCollector& collector, const std::shared_ptr<JumpReach>& reach) const;
    void addWindows(TargetCollector& collector, const std::shared_ptr<JumpReach>& reach) const;
    [[nodiscard]] bool isInFront(const platform::RunningApplication& app) const;
};

} // namespace skipnest::voice
