// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/DesktopSession.h"

#include <QString>

namespace skipnest::e2e {

// Real programs for shortcuts to point at.

// An application of the session: a terminal with a class and a desktop entry of its own. Returns
// the entry's path.
[[nodiscard]] QString installTerminal(DesktopSession& session, const QString& className);

// Starts it the way its entry does and brings its window to front; none where it did not come.
xcb_window_t openTerminal(DesktopSession& session, const QString& className);

// mousepad for text and pcmanfm-qt for folders, whatever else this machine has installed.
void setDefaultApplications(DesktopSession& session);

// The entry of a program that came with the system; empty where it is not installed.
[[nodiscard]] QString systemEntry(const QString& desktopId);

} // namespace skipnest::e2e
