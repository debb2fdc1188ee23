// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/linux/browser/ExtensionTabs.h"

#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

namespace skipnest::linuxdesktop {

struct BrowserWindow {
    QString title;
    std::optional<QRectF> frame;
};

// Which of a browser's windows shows the tab that it has just selected: the one whose title begins
// with the tab's, of several the one that lies where the browser says. Nothing where that does not
// tell them apart; the browser has raised its window by itself then, or nobody can.
[[nodiscard]] std::optional<std::size_t> windowThatShows(const ExtensionTabs::Selected& tab,
                                                         const std::vector<BrowserWindow>& windows);

} // namespace skipnest::linuxdesktop
