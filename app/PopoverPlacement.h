// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Screens.h"

#include <QRect>
#include <QSize>

#include <optional>

namespace skipnest::app {

// Where the popover opens: centred under the status item where its place is known (above it where
// the bar is at the bottom), else at the pointer where that is on the screen for panels, else in
// the upper third of that screen. Always inside the screen's available area, and cut to it.
[[nodiscard]] QRect popoverFrame(const platform::Screens& screens,
                                 const std::optional<QRect>& statusItem, QSize size);

} // namespace skipnest::app
