// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/SelectedWindow.h"

#include <cmath>
#include <limits>

namespace skipnest::linuxdesktop {
namespace {

// How far apart two frames lie and how much they differ in size. The window manager's border is in
// one and not in the other, the same for all windows.
double difference(const QRect& told, const std::optional<QRectF>& seen) {
    if (told.isEmpty() || !seen)
        return std::numeric_limits<double>::infinity();
    return std::abs(told.x() - seen->x()) + std::abs(told.y() - seen->y()) +
           std::abs(told.width() - seen->width()) + std::abs(told.height() - seen->height());
}

} // namespace

std::optional<std::size_t> windowThatShows(const ExtensionTabs::Selected& tab,
                                           const std::vector<BrowserWindow>& windows) {
    if (tab.title.isEmpty())
        return std::nullopt;
    std::optional<std::size_t> nearest;
    double least = 0;
    bool isTold = true;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (!windows[i].title.startsWith(tab.title))
            continue;
        const double here = difference(tab.window, windows[i].frame);
        if (!nearest || here < least) {
            nearest = i;
            least = here;
            isTold = true;
        } else if (here == least) {
            isTold = false;
        }
    }
    return isTold ? nearest : std::nullopt;
}

} // namespace skipnest::linuxdesktop
