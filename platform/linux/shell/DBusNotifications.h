// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/DistributedNotifications.h"

namespace skipnest::linuxdesktop {

// Signals on the session bus: a notification "com.example.done" is the signal `done` of the
// interface `com.example`, from any path, with one text or nothing. The bus is connected to when
// something is first observed.
class DBusNotifications final : public platform::DistributedNotifications {
public:
    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::Observation observe(const QString& name, Received received) override;
};

} // namespace skipnest::linuxdesktop
