// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDateTime>
#include <QTimeZone>

namespace skipnest::platform {

// The calendar: for dates that people see or that files carry, never for measuring a wait.
class WallClock {
public:
    virtual ~WallClock() = default;

    [[nodiscard]] virtual QDateTime nowUtc() const = 0;
    [[nodiscard]] virtual QTimeZone zone() const = 0;

    [[nodiscard]] QDateTime nowLocal() const { return nowUtc().toTimeZone(zone()); }
    [[nodiscard]] QDate today() const { return nowLocal().date(); }
};

} // namespace skipnest::platform
