// SPDX-License-Identifier: Apache-2.0
#include "stats/LocalDays.h"

#include <algorithm>
#include <array>

namespace skipnest::stats {

QString dayKey(QDate day) {
    return day.toString(Qt::ISODate);
}

std::optional<QDate> dayFromKey(QStringView key) {
    constexpr QStringView form = u"dddd-dd-dd";
    if (key.size() != form.size())
        return std::nullopt;
    std::array<int, 3> numbers{};
    auto number = numbers.begin();
    for (qsizetype i = 0; i < form.size(); ++i) {
        const char16_t letter = key[i].unicode();
        if (form[i] == u'-') {
            if (letter != u'-')
                return std::nullopt;
            ++number;
        } else if (letter < u'0' || letter > u'9') {
            return std::nullopt;
        } else {
            *number = *number * 10 + (letter - u'0');
        }
    }
    // QDate has a year before the first, but no year 0.
    const QDate day(numbers[0], numbers[1], numbers[2]);
    return day.isValid() ? std::optional(day) : std::nullopt;
}

QDate LocalDays::at(const QDateTime& utc) {
    constexpr qint64 dayLength = 24LL * 60 * 60 * 1000;
    const qint64 moment = utc.toMSecsSinceEpoch();
    if (moment >= from_ && moment < until_)
        return day_;
    day_ = utc.toTimeZone(zone_).date();
    from_ = moment;
    // Up to midnight by the present offset, or to the next change of it: that alone can end a day
    // early, late, or leave one out.
    const qint64 local = moment + zone_.offsetFromUtc(utc) * 1000LL;
    const qint64 sinceMidnight = (local % dayLength + dayLength) % dayLength;
    until_ = moment + dayLength - sinceMidnight;
    if (const auto change = zone_.nextTransition(utc); change.atUtc.isValid())
        until_ = std::min(until_, change.atUtc.toMSecsSinceEpoch());
    return day_;
}

void LocalDays::askZone() {
    QTimeZone zone = clock_.zone();
    if (zone == zone_)
        return;
    zone_ = std::move(zone);
    until_ = from_;
}

} // namespace skipnest::stats
