// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Result.h"

namespace skipnest::platform {

// Whether the system starts this program when the person logs in.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    // Unavailable for a program that is not installed where the system will find it again.
    [[nodiscard]] virtual Availability availability() const = 0;
    [[nodiscard]] virtual bool isRegistered() const = 0;
    virtual Outcome registerItem() = 0;
    virtual Outcome unregisterItem() = 0; // fine where it is not registered
};

} // namespace skipnest::platform
