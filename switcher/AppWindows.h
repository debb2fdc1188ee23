// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Accessibility.h"
#include "platform/DelayedTasks.h"
#include "platform/Ports.h"

#include <QRectF>
#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

namespace skipnest::switcher {

// Whether two titles name the same window: equal, or one within the other, after an ellipsis at the
// end of either was dropped. An empty title matches nothing.
[[nodiscard]] bool titlesMatch(const QString& a, const QString& b);

// The windows of a running application, and bringing one of them forward. Nothing is kept between
// calls but the steps of a raise that come later. What cannot be read counts as absent.
class AppWindows {
public:
    using Element = platform::AccessibilityElement;

    struct Info {
        QString title; // not empty
        Element element;
        std::optional<QRectF> frame;
    };
    struct WindowMenuItem {
        QString title; // not empty
        Element item;
        bool marked = false;
    };

    explicit AppWindows(const platform::Ports& ports);

    // The titled standard windows, minimised ones too, in the order of the application.
    [[nodiscard]] std::vector<Info> list(const platform::RunningApplication& app) const;
    [[nodiscard]] Element focusedWindow(const platform::RunningApplication& app) const;
    [[nodiscard]] std::optional<std::size_t> indexOfFocused(const platform::RunningApplication& app,
                                                            const std::vector<Info>& windows) const;
    [[nodiscard]] std::optional<QString> title(const Element& element) const;
    [[nodiscard]] std::optional<QRectF> frame(const Element& element) const;
    [[nodiscard]] bool isMinimized(const Element& element) const;
    [[nodiscard]] std::vector<Element> children(const Element& element) const;

    // The window list of the Window menu, the last menu but one.
    [[nodiscard]] std::vector<WindowMenuItem>
    windowMenuItems(const platform::RunningApplication& app) const;

    // Brings the window forward, out of the Dock where it is there; checks 0.25 s later and logs.
    void raise(const Element& window, const platform::RunningApplication& app,
               const QString& wantedTitle);
    // Presses the last entry of the Window menu that names this window. False where none could be.
    bool menuRaise(const platform::RunningApplication& app, const QString& wantedTitle);

private:
    void bringForward(const Element& window, const platform::RunningApplication& app,
                      const QString& wantedTitle);

    platform::Ports ports_;
    platform::DelayedTasks later_;
};

} // namespace skipnest::switcher
