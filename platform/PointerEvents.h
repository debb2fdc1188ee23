// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"

#include <functional>

namespace skipnest::platform {

// Clicks on the desktop while someone observes; without an observer the system sends nothing.
class PointerEvents {
public:
    virtual ~PointerEvents() = default;
    // A mouse button went down outside every window of this program.
    [[nodiscard]] virtual Observation observeClicksOutside(std::function<void()> clicked) = 0;
};

} // namespace skipnest::platform
