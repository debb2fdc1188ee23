// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/HomeFolders.h"

namespace skipnest::linuxdesktop {

// By user-dirs.dirs, read afresh. A folder that was given up lies at the home folder itself there,
// and counts as none.
[[nodiscard]] platform::HomeFolders linuxHomeFolders(const platform::AppInfo& app);

} // namespace skipnest::linuxdesktop
