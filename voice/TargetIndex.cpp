// SPDX-License-Identifier: Apache-2.0
#include "voice/TargetIndex.h"

#include "platform/Diagnostics.h"
#include "platform/Executor.h"
#include "platform/Workspace.h"
#include "voice/GatheredTargets.h"

#include <QStringBuilder>

#include <algorithm>
#include <utility>

namespace skipnest::voice {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using model::ShortcutItem;
using platform::RunningApplication;
using switcher::BrowserTabs;

namespace {

// A browser that took longer than this is hung, or as good as.
constexpr platform::Duration patience = 1s;

} // namespace

// One build, from its start to its last list.
struct TargetIndex::Run {
    Built built;
    GatheredTargets gathered;
    std::vector<RunningApplication> browsers;
    std::size_t nextApp = 0;
    std::size_t nextBrowser = 0;
    bool hasWaited = false; // for a browser, longer than is right
};

TargetIndex::TargetIndex(const platform::Ports& ports, switcher::BrowserTabs& tabs,
                         platform::InstalledApplications& installed, platform::HomeFolders folders)
    : ports_(ports), installed_(installed), folders_(std::move(folders)),
      reach_(std::make_shared<JumpReach>(ports, tabs)) {}

void TargetIndex::setShortcutJump(std::function<void(const ShortcutItem&)> jump) {
    reach_->shortcutJump = std::move(jump);
}

void TargetIndex::soon(const std::shared_ptr<Run>& run,
                       void (TargetIndex::*step)(const std::shared_ptr<Run>&)) {
    // The run is this object's alone: it is gone with it, or when another one begins.
    ports_.scheduler.post([this, step, weak = std::weak_ptr(run)] {
        if (const auto present = weak.lock())
            (this->*step)(present);
    });
}

void TargetIndex::build(std::vector<ShortcutItem> shortcuts, Built built) {
    run_ = std::make_shared<Run>();
    run_->built = std::move(built);
    GatheredTargets& gathered = run_->gathered;
    gathered.shortcuts = std::move(shortcuts);
    gathered.installed = installed_.list();
    std::vector<RunningApplication>& running = gathered.running;
    running = ports_.workspace.runningApplications();
    std::erase_if(running, [this](const auto& app) { return app.pid == ports_.app.pid; });
    forgetEnded(running);
    if (const auto front = ports_.workspace.frontmostApplication()) {
        const auto place = std::ranges::find(running, front->pid, &RunningApplication::pid);
        gathered.hasFront = place != running.end();
        if (gathered.hasFront) {
            std::rotate(running.begin(), place, place + 1);
            gathered.focused = reach_->windows.focusedWindow(*front);
        }
    }
    std::ranges::copy_if(running, std::back_inserter(run_->browsers),
                         [this](const auto& app) { return reach_->tabs.isSupported(app); });
    soon(run_, &TargetIndex::nextWindows);
}

void TargetIndex::forgetEnded(const std::vector<RunningApplication>& running) {
    const auto hasEnded = [&running](const auto& known) {
        return std::ranges::find(running, known.first, &RunningApplication::pid) == running.end();
    };
    std::erase_if(windows_, hasEnded);
    std::erase_if(waitedFor_, hasEnded);
}

void TargetIndex::nextWindows(const std::shared_ptr<Run>& run) {
    if (run->nextApp < run->gathered.running.size()) {
        listWindows(*run, run->gathered.running[run->nextApp++]);
        return soon(run, &TargetIndex::nextWindows);
    }
    publish(run,
            run->browsers.empty() ? TargetList::State::complete : TargetList::State::withoutTabs);
}

void TargetIndex::nextTabs(const std::shared_ptr<Run>& run) {
    if (run->nextBrowser < run->browsers.size()) {
        listTabs(*run, run->browsers[run->nextBrowser++]);
        return soon(run, &TargetIndex::nextTabs);
    }
    publish(run, TargetList::State::complete);
}

void TargetIndex::listWindows(Run& run, const RunningApplication& app) {
    const platform::Instant now = ports_.scheduler.now();
    auto known = windows_.find(app.pid);
    const bool isCached = known != windows_.end() && now - known->second.listedAt < windowsKept;
    if (!isCached)
        known =
            windows_.insert_or_assign(app.pid, KnownWindows{now, reach_->windows.list(app)}).first;
    const auto& windows = known->second.windows;
    ports_.diagnostics.log(u"voiceindex: "_s % app.name % u' ' % QString::number(windows.size()) %
                           (isCached ? u" cached"_s : u""_s));
    run.gathered.windows.push_back({app, windows});
}

void TargetIndex::listTabs(Run& run, const RunningApplication& browser) {
    const platform::Instant asked = ports_.scheduler.now();
    const auto waited = waitedFor_.find(browser.pid);
    if (waited != waitedFor_.end() && asked - waited->second < windowsKept)
        return;
    run.gathered.tabs.push_back(
        {browser, reach_->tabs.enumerate(browser, BrowserTabs::Prompt::never)});
    const bool isSlow = ports_.scheduler.now() - asked >= patience;
    // Behind one that hangs the next may be late without its own fault: scripts wait in a queue.
    if (isSlow && !std::exchange(run.hasWaited, true))
        waitedFor_.insert_or_assign(browser.pid, asked);
    else if (!isSlow)
        waitedFor_.erase(browser.pid);
}

void TargetIndex::publish(const std::shared_ptr<Run>& run, TargetList::State state) {
    const auto list = std::make_shared<TargetList>();
    list->state = state;
    list->targets = run->gathered.targets(reach_, folders_);
    // What commits a target stays on this thread, its end too.
    struct Words {
        std::vector<JumpTarget> targets;
        TargetScorer scorer;
    };
    const auto words = std::make_shared<Words>();
    for (const JumpTarget& target : list->targets) {
        words->targets.push_back({.title = target.title,
                                  .subtitle = target.subtitle,
                                  .kind = target.kind,
                                  .owner = target.owner,
                                  .hot = target.hot});
    }
    ports_.executor.background([words] { words->scorer = TargetScorer(words->targets); },
                               [this, list, words, weak = std::weak_ptr(run)] {
                                   const auto present = weak.lock();
                                   if (!present)
                                       return;
                                   list->scorer = std::move(words->scorer);
                                   // Whoever is told may begin another build, or end this one.
                                   if (list->state == TargetList::State::withoutTabs)
                                       soon(present, &TargetIndex::nextTabs);
                                   present->built(list);
                               });
}

} // namespace skipnest::voice
