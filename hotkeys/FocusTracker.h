// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Workspace.h"

#include <deque>
#include <optional>

namespace skipnest::hotkeys {

// The recent order of applications in front, so that hiding one can give focus back to the one the
// person came from. Our own activations are no part of it.
class FocusTracker {
public:
    FocusTracker(platform::Workspace& workspace, platform::ProcessIdentifier ownProcess);

    // In front before currentApp().
    [[nodiscard]] const std::optional<platform::RunningApplication>& previousApp() const {
        return previousApp_;
    }
    [[nodiscard]] const std::optional<platform::RunningApplication>& currentApp() const {
        return currentApp_;
    }
    // Most recent first, no two of one process, at most six.
    [[nodiscard]] const std::deque<platform::RunningApplication>& history() const {
        return history_;
    }

private:
    void activated(const platform::RunningApplication& app);

    platform::ProcessIdentifier ownProcess_;
    std::optional<platform::RunningApplication> previousApp_;
    std::optional<platform::RunningApplication> currentApp_;
    std::deque<platform::RunningApplication> history_;
    platform::Observation activations_;
};

} // namespace skipnest::hotkeys
