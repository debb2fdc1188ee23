// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "switcher/AppWindows.h"
#include "switcher/BrowserTabs.h"

#include <QImage>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace skipnest::switcher {

// A tab as the bar lists it.
struct TabRef {
    std::int64_t windowIndex = 0;
    std::int64_t tabIndex = 0;
    QString title;
    QString domain; // host of `url`
    bool active = false;
    QString url;

    [[nodiscard]] static TabRef from(const BrowserTabs::BrowserTab& tab);
    [[nodiscard]] BrowserTabs::BrowserTab browserTab() const;
};

// An entry of the bar.
struct Win {
    QString title;
    AppWindows::Element element; // none: raised through the Window menu
    std::optional<QRectF> frame;
    QString identifier; // "AXWindowID", empty where unknown
    QImage image;       // null while there is no preview
    std::optional<std::int64_t> browserWindowIndex;
    std::vector<TabRef> tabs;

    // The tab that its window shows; null in a window without tabs.
    [[nodiscard]] const TabRef* activeTab() const;
};

} // namespace skipnest::switcher
