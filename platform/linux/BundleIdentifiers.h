// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::linuxdesktop {

// The bundle identifier that the rest of the program knows an application by. `desktopId` is a
// desktop id with or without ".desktop", or a WM_CLASS name where there is no desktop entry; letter
// case does not matter. An application that the table does not know keeps its desktop id.
[[nodiscard]] QString bundleIdentifierOf(const QString& desktopId);

} // namespace skipnest::linuxdesktop
