// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "platform/WallClock.h"

namespace skipnest::sim {

// A calendar that goes with a scheduler's clock: 2026-01-01T00:00:00Z at 0, zone UTC, until set.
class VirtualWallClock final : public platform::WallClock {
public:
    explicit VirtualWallClock(const platform::Scheduler& scheduler);

    [[nodiscard]] QDateTime nowUtc() const override;
    [[nodiscard]] QTimeZone zone() const override { return zone_; }

    // Jumps to `utc`, from where it goes on.
    void setUtc(const QDateTime& utc);
    void setZone(const QTimeZone& zone) { zone_ = zone; }

private:
    const platform::Scheduler& scheduler_;
    QDateTime utc_;
    platform::Instant since_{};
    QTimeZone zone_ = QTimeZone::utc();
};

} // namespace skipnest::sim
