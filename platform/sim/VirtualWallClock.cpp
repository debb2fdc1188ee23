// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/VirtualWallClock.h"

namespace skipnest::sim {

VirtualWallClock::VirtualWallClock(const platform::Scheduler& scheduler)
    : scheduler_(scheduler), utc_(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC) {}

QDateTime VirtualWallClock::nowUtc() const {
    const auto passed =
        std::chrono::duration_cast<std::chrono::milliseconds>(scheduler_.now() - since_);
    return utc_.addMSecs(passed.count());
}

void VirtualWallClock::setUtc(const QDateTime& utc) {
    utc_ = utc.toUTC();
    since_ = scheduler_.now();
}

} // namespace skipnest::sim
