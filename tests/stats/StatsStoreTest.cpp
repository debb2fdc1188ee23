// SPDX-License-Identifier: Apache-2.0
#include "stats/StatsStore.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gmock/gmock.h>

namespace skipnest::stats {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// What is in a store, empty parts left out.
std::string parts(const StatsStore& store) {
    QJsonObject object = QJsonDocument::fromJson(encodeStats(store)).object();
    for (const QString& key : object.keys()) {
        const QJsonValue value = object[key];
        if (value == QJsonValue(0) || value == QJsonValue(QJsonObject()) ||
            value == QJsonValue(QJsonArray()))
            object.remove(key);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

TEST(StatsStore, takesEveryPartThatIsRight) {
    struct Row {
        const char* document;
        const char* taken;
        const char* problem; // the only one, or none
    };
    const Row rows[] = {
        {"{}", "{}", ""},
        {R"({"byDay":{"2026-01-31":3,"2026-02-30":4,"2026-02-01":2}})",
         R"({"byDay":{"2026-01-31":3,"2026-02-01":2}})", "byDay.2026-02-30: no such day"},
        {R"({"byDay":{"2026-01-31":-3},"total":9})", R"({"total":9})",
         "byDay.2026-01-31: no whole"},
        {R"({"byDay":[3],"voice":2})", R"({"voice":2})", "byDay: not an object"},
        {R"({"byTarget":{" Notes ":2,"Notes":3}})", R"({"byTarget":{"Notes":5}})", ""},
        {R"({"byTarget":{" \t":2,"B":1}})", R"({"byTarget":{"B":1}})", ": no name"},
        {R"({"byTarget":{"A\nB":true}})", "{}", R"(byTarget.A\nB: no whole)"},
        {R"({"byTarget":{"a":9007199254740991," a":9007199254740991}})",
         R"({"byTarget":{"a":9007199254740991}})", ""},
        {R"({"byTarget":{"half \ud83d":1}})", R"({"byTarget":{"half �":1}})", ""},
        {R"({"total":3.0})", R"({"total":3})", ""},
        {R"({"total":9007199254740992,"voice":1})", R"({"voice":1})", "total: no whole"},
        {R"({"total":1e300})", "{}", "total: no whole"},
        {R"({"total":2.5})", "{}", "total: no whole"},
        {R"({"total":"3"})", "{}", "total: no whole"},
        {R"({"total":null})", "{}", "total: no whole"},
        {R"({"firstUse":"2026-07-24T11:30:00.5+02:00"})",
         R"({"firstUse":"2026-07-24T09:30:00.500Z"})", ""},
        {R"({"firstUse":806578200.5})", R"({"firstUse":"2026-07-24T09:30:00.500Z"})", ""},
        {R"({"firstUse":-1})", R"({"firstUse":"2000-12-31T23:59:59Z"})", ""},
        {R"({"firstUse":null})", "{}", ""},
        {R"({"firstUse":1e12})", "{}", "firstUse: no date"},
        {R"({"firstUse":"2026-02-30T00:00:00Z"})", "{}", "firstUse: no date"},
        {R"({"celebrated":["j100",7,"first","j100"],"used":["hide"]})",
         R"({"celebrated":["j100","first"],"used":["hide"]})", "celebrated: an entry"},
        {R"({"used":"hide"})", "{}", "used: not a list"},
        {R"({"newer":{"a":[1,{}]},"total":1})", R"({"newer":{"a":[1,{}]},"total":1})", ""},
    };
    for (const Row& row : rows) {
        const auto decoded = decodeStats(row.document);
        ASSERT_TRUE(decoded) << row.document;
        EXPECT_EQ(parts(decoded->store), row.taken) << row.document;
        EXPECT_EQ(decoded->problems.size(), *row.problem == '\0' ? 0 : 1) << row.document;
        EXPECT_THAT(decoded->problems.join(u' ').toStdString(), HasSubstr(row.problem));
        const auto again = decodeStats(encodeStats(decoded->store));
        ASSERT_TRUE(again) << row.document;
        EXPECT_TRUE(again->store == decoded->store) << row.document;
        EXPECT_TRUE(again->problems.isEmpty()) << row.document;
    }
}

TEST(StatsStore, refusesWhatIsNoObjectAndListsTenProblems) {
    for (const char* bytes : {"", "{\"total\":1", "[]", "null", "\xff\xfe", "{\"total\":1}x"})
        EXPECT_FALSE(decodeStats(bytes)) << bytes;
    EXPECT_EQ(decodeStats(QByteArray(largestStats + 1, ' ')).failure().kind,
              platform::Failure::Kind::tooLarge);
    QByteArray many = "{\"byDay\":{";
    for (int day = 10; day < 99; ++day)
        many += "\"2026-13-" + QByteArray::number(day) + "\":1,";
    const auto decoded = decodeStats(many + "\"2026-12-31\":1}}");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->problems.size(), 10);
    EXPECT_EQ(decoded->store.byDay.size(), 1U);
}

TEST(StatsStore, isWrittenInOneOrder) {
    StatsStore store;
    store.byDay = {{QDate(2026, 1, 2), 1}, {QDate(2025, 12, 31), 2}};
    store.byTarget = {{QStringLiteral("Zettel \"x\"\\\n"), 1}, {QStringLiteral("Größe"), 2}};
    store.total = 3;
    store.used = {QStringLiteral("keyboard")};
    store.unknown = {{QStringLiteral("alpha"), QJsonArray{1}}};
    EXPECT_EQ(encodeStats(store).toStdString(), R"({
    "byDay": {
        "2025-12-31": 2,
        "2026-01-02": 1
    },
    "byTarget": {
        "Größe": 2,
        "Zettel \"x\"\\\u000a": 1
    },
    "total": 3,
    "voice": 0,
    "switcher": 0,
    "celebrated": [],
    "used": [
        "keyboard"
    ],
    "alpha": [
        1
    ]
}
)");
    store.voice = 2;
    store.switcher = 2;
    EXPECT_EQ(store.keyboard(), 0);
}

} // namespace
} // namespace skipnest::stats
