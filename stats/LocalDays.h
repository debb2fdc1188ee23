// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/WallClock.h"

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QStringView>
#include <QTimeZone>

#include <optional>

namespace skipnest::stats {

// "2026-07-24", in ASCII digits whatever the locale.
[[nodiscard]] QString dayKey(QDate day);
// Nothing for any other form and for days that no calendar has.
[[nodiscard]] std::optional<QDate> dayFromKey(QStringView key);

// Which local calendar day a moment lies in, without asking for the zone each time: that reads the
// system's zone files and takes up to 60 µs, too long for a key press. Between two asks the zone is
// taken to be the same.
class LocalDays {
public:
    explicit LocalDays(const platform::WallClock& clock) : clock_(clock), zone_(clock.zone()) {}

    // In the zone as last asked.
    [[nodiscard]] QDate at(const QDateTime& utc);
    void askZone();

private:
    const platform::WallClock& clock_;
    QTimeZone zone_;
    // day_ lasts from one to before the other, milliseconds since 1970.
    qint64 from_ = 0;
    qint64 until_ = 0;
    QDate day_;
};

} // namespace skipnest::stats
