// SPDX-License-Identifier: Apache-2.0
#include "stats/LocalDays.h"

#include <gtest/gtest.h>

#include <set>

namespace skipnest::stats {
namespace {

struct SetZone final : platform::WallClock {
    QTimeZone local;
    explicit SetZone(const char* name) : local(name) {}
    [[nodiscard]] QDateTime nowUtc() const override { return {}; }
    [[nodiscard]] QTimeZone zone() const override { return local; }
};

QDateTime utc(QDate day, QTime time = QTime(0, 0)) {
    return {day, time, Qt::UTC};
}

// Days that are not 24 hours long, from before to after. What is remembered of a day must end where
// the day does.
TEST(LocalDays, endWhereTheZoneSaysAlsoOnDaysOfOddLength) {
    struct Row {
        const char* zone;
        QDate change;
        int days; // of the calendar, seen within 120 hours around it
    };
    const Row rows[] = {
        {"Europe/Berlin", {2026, 3, 29}, 6},     // 23 hours
        {"Europe/Berlin", {2026, 10, 25}, 6},    // 25 hours
        {"America/Sao_Paulo", {2018, 11, 4}, 6}, // has no midnight
        {"America/Sao_Paulo", {2018, 2, 18}, 6}, // at midnight it is 23:00 again
        {"America/Havana", {2026, 11, 1}, 6},    // has midnight twice
        {"Pacific/Apia", {2011, 12, 30}, 6}, // is left out: the clock went from -10 to +14 hours
        {"Pacific/Kwajalein", {1969, 10, 1}, 5}, // lasts 47 hours
        {"Asia/Kathmandu", {2026, 12, 31}, 6},   // nothing happens
        {"UTC", {2024, 2, 29}, 5},
    };
    for (const Row& row : rows) {
        const SetZone clock(row.zone);
        LocalDays days(clock);
        std::set<QDate> seen;
        for (QDateTime at = utc(row.change.addDays(-2)); at < utc(row.change.addDays(3));
             at = at.addSecs(449)) {
            const QDate day = at.toTimeZone(clock.local).date();
            EXPECT_EQ(days.at(at), day)
                << row.zone << ' ' << at.toString(Qt::ISODate).toStdString();
            seen.insert(day);
        }
        EXPECT_EQ(seen.size(), static_cast<std::size_t>(row.days)) << row.zone;
    }
}

TEST(LocalDays, midnightToTheMillisecondAndAClockSetBack) {
    SetZone clock("Europe/Berlin");
    LocalDays days(clock);
    const QDateTime midnight = utc({2026, 12, 31}, QTime(23, 0));
    EXPECT_EQ(days.at(midnight.addMSecs(-1)), QDate(2026, 12, 31));
    EXPECT_EQ(days.at(midnight), QDate(2027, 1, 1));
    EXPECT_EQ(days.at(midnight.addMSecs(-1)), QDate(2026, 12, 31));
    clock.local = QTimeZone("Pacific/Auckland");
    EXPECT_EQ(days.at(midnight.addMSecs(-2)), QDate(2026, 12, 31));
    days.askZone();
    EXPECT_EQ(days.at(midnight.addMSecs(-1)), QDate(2027, 1, 1));
}

TEST(LocalDays, keysAreDaysThatExistInOneForm) {
    for (const QDate day : {QDate(2026, 7, 4), QDate(2024, 2, 29), QDate(1, 1, 1)})
        EXPECT_EQ(dayFromKey(dayKey(day)), day);
    EXPECT_EQ(dayKey(QDate(2026, 7, 4)), QStringLiteral("2026-07-04"));
    for (const char16_t* key :
         {u"2026-02-29", u"2026-00-01", u"2026-13-01", u"0000-01-01", u"2026-7-04", u"2026/07/04",
          u"26-07-04", u"2026-07-04 ", u"+026-07-04", u"2026-07-0a", u"٢٠٢٦-٠٧-٠٤", u"", u"-"})
        EXPECT_FALSE(dayFromKey(key)) << QString::fromUtf16(key).toStdString();
}

} // namespace
} // namespace skipnest::stats
