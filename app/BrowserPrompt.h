// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Ports.h"
#include "platform/RunningApplication.h"

#include <functional>

namespace skipnest::app {

// Says that the browser needs an extension before its tabs can be listed; `showHow` runs when the
// person wants to see what to do.
void promptForExtension(const platform::Ports& ports, const platform::RunningApplication& browser,
                        std::function<void()> showHow);

} // namespace skipnest::app
