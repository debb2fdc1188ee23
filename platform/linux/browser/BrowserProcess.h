// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <cstdint>

namespace skipnest::linuxdesktop {

// The browser that started the process, as a bundle identifier; empty where no browser did. Looks
// at the executables of its nearest ancestors, since a browser may start hosts by way of a
// launcher.
[[nodiscard]] QString browserThatStarted(std::int64_t pid);

// The browser whose main executable this is; empty for every other program.
[[nodiscard]] QString browserOfExecutable(const QString& path);

} // namespace skipnest::linuxdesktop
