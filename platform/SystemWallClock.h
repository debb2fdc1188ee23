// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/WallClock.h"

namespace skipnest::platform {

// The real WallClock.
class SystemWallClock final : public WallClock {
public:
    [[nodiscard]] QDateTime nowUtc() const override;
    [[nodiscard]] QTimeZone zone() const override;
};

} // namespace skipnest::platform
