// SPDX-License-Identifier: Apache-2.0
#include "app/PopoverPlacement.h"

#include <algorithm>

namespace skipnest::app {
namespace {

// Between the popover and what it belongs to, so that the icon's own highlight stays visible.
constexpr int gap = 4;

const platform::Screen* screenAt(const std::vector<platform::Screen>& screens, QPoint point) {
    const auto found = std::ranges::find_if(
        screens, [point](const platform::Screen& screen) { return screen.frame.contains(point); });
    return found == screens.end() ? nullptr : &*found;
}

QRect inside(const QRect& available, QRect frame) {
    frame.moveLeft(std::clamp(frame.left(), available.left(),
                              available.left() + available.width() - frame.width()));
    frame.moveTop(std::clamp(frame.top(), available.top(),
                             available.top() + available.height() - frame.height()));
    return frame;
}

QRect underItem(const platform::Screen& screen, const QRect& item, QSize size) {
    QRect frame(QPoint(), size.boundedTo(screen.available.size()));
    frame.moveLeft(item.center().x() - frame.width() / 2);
    if (item.center().y() <= screen.frame.center().y())
        frame.moveTop(item.bottom() + 1 + gap);
    else
        frame.moveBottom(item.top() - 1 - gap);
    return inside(screen.available, frame);
}

QRect atPointer(const QRect& available, QPoint pointer, QSize size) {
    QRect frame(QPoint(), size);
    frame.moveLeft(pointer.x() - size.width() / 2);
    frame.moveTop(pointer.y() + gap);
    if (frame.bottom() > available.bottom())
        frame.moveBottom(pointer.y() - gap);
    return inside(available, frame);
}

} // namespace

QRect popoverFrame(const platform::Screens& screens, const std::optional<QRect>& statusItem,
                   QSize size) {
    // Some trays report an empty or outdated place: what lies on no screen is none.
    if (statusItem && !statusItem->isEmpty()) {
        const std::vector<platform::Screen> all = screens.screens();
        if (const platform::Screen* screen = screenAt(all, statusItem->center()))
            return underItem(*screen, *statusItem, size);
    }
    const platform::Screen screen = platform::screenForPanel(screens);
    if (screen.frame.isEmpty())
        return {QPoint(), size};
    const QRect& available = screen.available;
    const QSize fitting = size.boundedTo(available.size());
    if (const auto pointer = screens.pointer(); pointer && screen.frame.contains(*pointer))
        return atPointer(available, *pointer, fitting);
    return {QPoint(available.left() + (available.width() - fitting.width()) / 2,
                   available.top() + (available.height() - fitting.height()) / 3),
            fitting};
}

} // namespace skipnest::app
