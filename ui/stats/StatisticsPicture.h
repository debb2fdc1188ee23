// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/Theme.h"
#include "ui/stats/StatisticsFigures.h"

#include <QImage>

namespace skipnest::ui {

// The figures as a picture to show around, in the theme's colours: 1200 by 630 pixels, which is
// what pages and messengers crop a shared picture to. Nothing but figures is on it.
[[nodiscard]] QImage statisticsPicture(const StatisticsFigures& figures, const Palette& palette);

} // namespace skipnest::ui
