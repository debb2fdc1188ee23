// SPDX-License-Identifier: Apache-2.0
#include "services/ShareLink.h"

namespace skipnest::services {

QUrl shareLink(const platform::WebService& web, const SharedFigures& figures) {
    return web.url(QStringLiteral("/share.php"),
                   {{QStringLiteral("j"), QString::number(figures.weekJumps)},
                    {QStringLiteral("m"), QString::number(figures.minutesSaved)},
                    {QStringLiteral("s"), QString::number(figures.streakDays)},
                    {QStringLiteral("t"), QString::number(figures.total)}});
}

} // namespace skipnest::services
