// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Result.h"

namespace skipnest::platform {

// What this program offers in other programs' menus: "Give it a key" for a file or folder.
class ServicesMenu {
public:
    virtual ~ServicesMenu() = default;

    [[nodiscard]] virtual Availability availability() const = 0;
    // Makes the offer known, or known again after the program moved.
    virtual Outcome refresh() = 0;
};

} // namespace skipnest::platform
