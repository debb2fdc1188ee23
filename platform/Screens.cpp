// SPDX-License-Identifier: Apache-2.0
#include "platform/Screens.h"

#include <algorithm>

namespace skipnest::platform {

Screen screenForPanel(const Screens& screens) {
    const std::vector<Screen> all = screens.screens();
    const auto around = [&all](const std::optional<QPoint>& point) {
        return point ? std::ranges::find_if(
                           all, [&](const Screen& screen) { return screen.frame.contains(*point); })
                     : all.end();
    };
    const std::optional<QRect> window = screens.activeWindowFrame();
    auto found = around(window ? std::optional(window->center()) : std::nullopt);
    if (found == all.end())
        found = around(screens.pointer());
    if (found == all.end())
        found = std::ranges::find_if(all, &Screen::primary);
    if (found == all.end())
        found = all.begin();
    return found == all.end() ? Screen{} : *found;
}

} // namespace skipnest::platform
