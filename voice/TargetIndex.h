// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/ShortcutItem.h"
#include "platform/HomeFolders.h"
#include "platform/InstalledApplications.h"
#include "platform/Ports.h"
#include "platform/RunningApplication.h"
#include "platform/Scheduler.h"
#include "switcher/AppWindows.h"
#include "voice/JumpReach.h"
#include "voice/TargetList.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace skipnest::voice {

// Gathers what can be named: configured shortcuts, running applications, the standard folders,
// installed applications, browser tabs and windows, in this order.
//
// On the main thread, in turns of one application each, because that is where the ports answer; the
// words are taken apart on another one. A list without tabs comes first. Then the browsers are
// asked, one in a turn, and the list with their tabs follows.
class TargetIndex {
public:
    using Built = std::function<void(std::shared_ptr<const TargetList>)>;

    // The windows of an application are taken from the last look at them for so long. So is a
    // browser that let us wait left alone.
    static constexpr platform::Duration windowsKept = std::chrono::seconds(60);

    // `tabs` must outlive every list that is built.
    TargetIndex(const platform::Ports& ports, switcher::BrowserTabs& tabs,
                platform::InstalledApplications& installed, platform::HomeFolders folders);

    // What committing a target of a shortcut does; without it, its path is opened.
    void setShortcutJump(std::function<void(const model::ShortcutItem&)> jump);

    // `built` is told twice where browsers run, else once; never from inside the call, and not of a
    // build that another one has replaced.
    void build(std::vector<model::ShortcutItem> shortcuts, Built built);
    void cancel() { run_.reset(); }

private:
    struct Run;
    struct KnownWindows {
        platform::Instant listedAt;
        std::vector<switcher::AppWindows::Info> windows;
    };

    void nextWindows(const std::shared_ptr<Run>& run);
    void nextTabs(const std::shared_ptr<Run>& run);
    void publish(const std::shared_ptr<Run>& run, TargetList::State state);
    void listWindows(Run& run, const platform::RunningApplication& app);
    void listTabs(Run& run, const platform::RunningApplication& browser);
    void forgetEnded(const std::vector<platform::RunningApplication>& running);
    // Posts `step` unless the run has been replaced by then.
    void soon(const std::shared_ptr<Run>& run,
              void (TargetIndex::*step)(const std::shared_ptr<Run>&));

    platform::Ports ports_;
    platform::InstalledApplications& installed_;
    const platform::HomeFolders folders_;
    std::shared_ptr<JumpReach> reach_;
    std::map<platform::ProcessIdentifier, KnownWindows> windows_;
    std::map<platform::ProcessIdentifier, platform::Instant> waitedFor_; // browsers, since when
    std::shared_ptr<Run> run_; // the present one; those that others hold are stale
};

} // namespace skipnest::voice
