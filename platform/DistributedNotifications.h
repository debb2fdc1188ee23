// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Observers.h"

#include <QString>

#include <functional>

namespace skipnest::platform {

// Notifications from other processes of the same person (Linux: signals on the session bus).
class DistributedNotifications {
public:
    using Received = std::function<void(const QString& object)>;

    virtual ~DistributedNotifications() = default;

    [[nodiscard]] virtual Availability availability() const = 0;
    // `received` is told on the main thread with the notification's one text, which may be empty.
    [[nodiscard]] virtual Observation observe(const QString& name, Received received) = 0;
};

} // namespace skipnest::platform
