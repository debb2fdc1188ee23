// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Ports.h"

#include <functional>
#include <optional>

namespace skipnest::app {

// A place from which the program cannot go on for long.
enum class Misplacement {
    translocated, // started from a random copy that the system made of a download
    diskImage,
};

// Nothing where the program lies well, and on systems where its place does not matter.
[[nodiscard]] std::optional<Misplacement> misplacement(const platform::AppInfo& app);

// The shell command that moves the program to the applications folder and starts it there; the new
// one then ends this one. The bundle's path may hold any character.
[[nodiscard]] QString moveCommand(const QString& bundlePath);

// Calls `goOn` at once where the place is right, else when the person has answered the alert. The
// program runs on after a move too: the copy takes over from it, and where moving fails it is the
// one there is.
void checkLocation(const platform::Ports& ports, std::function<void()> goOn);

} // namespace skipnest::app
