// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Backend.h"
#include "platform/linux/SessionKind.h"

#include <memory>

namespace skipnest::linuxdesktop {

// The ports of this machine and session. For an X11 session a QGuiApplication on Qt's xcb platform
// must exist; without one the backend is that of a session without a display, which is what the
// command line needs to work on the configuration file.
[[nodiscard]] std::unique_ptr<platform::Backend>
makeLinuxBackend(SessionKind session, platform::Alerts& alerts, platform::PanelHost& panels);

} // namespace skipnest::linuxdesktop
