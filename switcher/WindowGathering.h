// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "switcher/AppWindows.h"
#include "switcher/BrowserTabs.h"
#include "switcher/Win.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace skipnest::switcher {

// The windows of an application in the order of the bar: the focused one first, the others as the
// application has them, then those that only its Window menu knows. A menu entry is a window's
// where their titles match, each window having one entry at most. Commands such as "Minimize" stand
// above the window list, so entries without a window count only from the first on that has one or
// carries the mark.
[[nodiscard]] std::vector<Win> gatherWindows(const std::vector<AppWindows::Info>& windows,
                                             std::optional<std::size_t> focused,
                                             const std::vector<AppWindows::WindowMenuItem>& menu);

// One entry for each window of a browser, by window number, the tabs in the order listed.
[[nodiscard]] std::vector<Win> groupTabs(const std::vector<BrowserTabs::BrowserTab>& tabs);

// Finds for each window of a browser the one on the desktop that shows its active tab. One that is
// not found stays without element.
void pairWithWindows(std::vector<Win>& browserWindows,
                     const std::vector<AppWindows::Info>& windows);

} // namespace skipnest::switcher
