// SPDX-License-Identifier: Apache-2.0
#include "platform/SystemWallClock.h"

namespace skipnest::platform {

QDateTime SystemWallClock::nowUtc() const {
    return QDateTime::currentDateTimeUtc();
}

QTimeZone SystemWallClock::zone() const {
    return QTimeZone::systemTimeZone();
}

} // namespace skipnest::platform
