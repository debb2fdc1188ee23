// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/X11Windows.h"
#include "platform/linux/previews/RedirectedWindows.h"

#include <unordered_set>

namespace skipnest::linuxdesktop {

// Chooses which windows are live: those that are uppermost, as many as a bounded memory takes.
// Beside a compositor, which has them all in memory already, all that show. A window that lies
// deeper and was never live is so for a moment, to be seen once.
class LiveWindows {
public:
    LiveWindows(RedirectedWindows& redirected, const X11Windows& windows,
                platform::Scheduler& scheduler);

    // As the windows are now.
    void choose();
    // As of the last choice.
    [[nodiscard]] bool hasCompositor() const { return hasCompositor_; }

private:
    void setLive();
    void visit();

    RedirectedWindows& redirected_;
    const X11Windows& windows_;
    platform::Scheduler& scheduler_;
    bool hasCompositor_ = false;
    std::unordered_set<xcb_window_t> seen_; // that were live, of those there are
    std::unordered_set<xcb_window_t> visited_;
    platform::Timer visits_; // while there are windows to be seen
};

} // namespace skipnest::linuxdesktop
