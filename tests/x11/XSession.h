// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/QtScheduler.h"

#include <QByteArray>

#include <chrono>
#include <functional>

namespace skipnest::tests {

// Runs the event loop until the condition holds; false when it does not within five seconds.
[[nodiscard]] bool waitUntil(platform::QtScheduler& scheduler,
                             const std::function<bool()>& condition);

// Runs a program of the X server's own (setxkbmap, xmodmap) to its end.
[[nodiscard]] bool runTool(const char* commandLine);

} // namespace skipnest::tests
