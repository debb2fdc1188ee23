// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/previews/LiveWindows.h"

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;

// What previews may cost the server: nine windows of 1280x800 or five of 1920x1080, and for a
// moment some more. With what its allocator keeps of it, that stays under 64 MB.
constexpr qsizetype liveBytes = qsizetype{40} << 20;
constexpr qsizetype visitBytes = qsizetype{10} << 20;
// A window that is uncovered for us has drawn itself by then.
constexpr platform::Duration visitTime = 300ms;

qsizetype bytesOf(const RedirectedWindows::Window& window) {
    return qsizetype{window.frameSize.width()} * window.frameSize.height() * 4;
}

} // namespace

LiveWindows::LiveWindows(RedirectedWindows& redirected, const X11Windows& windows,
                         platform::Scheduler& scheduler)
    : redirected_(redirected), windows_(windows), scheduler_(scheduler) {}

void LiveWindows::choose() {
    redirected_.follow(windows_.stacking());
    hasCompositor_ = redirected_.hasCompositor();
    std::erase_if(seen_, [this](auto client) { return redirected_.find(client) == nullptr; });
    setLive();
}

void LiveWindows::setLive() {
    std::unordered_set<xcb_window_t> live;
    bool anyUnseen = false;
    qsizetype left = liveBytes;
    const auto& stacking = windows_.stacking();
    for (auto client = stacking.rbegin(); client != stacking.rend(); ++client) {
        const auto* window = redirected_.find(*client);
        if (window == nullptr || !window->viewable)
            continue;
        // The uppermost one in any case.
        const bool fits = hasCompositor_ || live.empty() || bytesOf(*window) <= left;
        if (fits)
            left -= bytesOf(*window);
        if (fits || visited_.contains(*client))
            live.insert(*client);
        else
            anyUnseen = anyUnseen || !seen_.contains(*client);
    }
    seen_.insert(live.begin(), live.end());
    redirected_.setLive(live);
    if (anyUnseen && !visits_)
        visits_ = scheduler_.every(visitTime, "unseen windows", [this] { visit(); });
}

void LiveWindows::visit() {
    visited_.clear();
    qsizetype left = visitBytes;
    for (const xcb_window_t client : windows_.stacking()) {
        const auto* window = redirected_.find(client);
        if (window == nullptr || !window->viewable || seen_.contains(client))
            continue;
        if (!visited_.empty() && bytesOf(*window) > left)
            break;
        left -= bytesOf(*window);
        visited_.insert(client);
    }
    if (visited_.empty())
        visits_.reset();
    setLive();
}

} // namespace skipnest::linuxdesktop
