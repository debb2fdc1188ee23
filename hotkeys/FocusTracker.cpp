// SPDX-License-Identifier: Apache-2.0
#include "hotkeys/FocusTracker.h"

namespace skipnest::hotkeys {

using platform::RunningApplication;

namespace {

constexpr std::size_t longestHistory = 6;

} // namespace

FocusTracker::FocusTracker(platform::Workspace& workspace, platform::ProcessIdentifier ownProcess)
    : ownProcess_(ownProcess), currentApp_(workspace.frontmostApplication()),
      activations_(
          workspace.observeActivations([this](const RunningApplication& app) { activated(app); })) {
}

void FocusTracker::activated(const RunningApplication& app) {
    if (app.pid == ownProcess_ || (currentApp_ && app.pid == currentApp_->pid))
        return;
    previousApp_ = currentApp_;
    currentApp_ = app;
    std::erase_if(history_, [&app](const RunningApplication& seen) { return seen.pid == app.pid; });
    history_.push_front(app);
    if (history_.size() > longestHistory)
        history_.pop_back();
}

} // namespace skipnest::hotkeys
