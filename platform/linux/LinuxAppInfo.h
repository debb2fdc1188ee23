// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"

#include <QProcessEnvironment>

namespace skipnest::linuxdesktop {

// What this process is and where its things are, by the XDG base directories: `XDG_CONFIG_HOME` for
// the support folder, `XDG_STATE_HOME` for the log, `XDG_RUNTIME_DIR` for socket and lock, each
// with "Skipnest" in it. Values that are empty or relative are ignored. A runtime folder that is
// missing or another user's (after `su`) is too: the state folder takes its place.
[[nodiscard]] platform::AppInfo linuxAppInfo(const QProcessEnvironment& environment);

} // namespace skipnest::linuxdesktop
