// SPDX-License-Identifier: Apache-2.0
#include "stats/ChallengeCoding.h"
#include "stats/ChallengeName.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gmock/gmock.h>

namespace skipnest::stats {
namespace {

using namespace Qt::StringLiterals;
using State = ChallengeService::State;

QJsonObject json(const QByteArray& text) {
    return QJsonDocument::fromJson(text).object();
}

const QDateTime noon(QDate(2026, 7, 24), QTime(12, 0), Qt::UTC);

TEST(ChallengeCoding, aStateIsReadAsItWasWritten) {
    const State state{true,
                      u"Ada"_s,
                      u"gb"_s,
                      u"ID"_s,
                      3,
                      120,
                      noon,
                      {u"ch.join"_s},
                      5,
                      noon.addMSecs(-1),
                      json(R"({"newer":{"a":1}})")};
    EXPECT_EQ(decodeChallenge(encodeChallenge(state)), state);
    EXPECT_EQ(decodeChallenge(encodeChallenge({})), State{});
}

TEST(ChallengeCoding, datesMayBeSecondsSinceTheBeginningOf2001) {
    const auto state = decodeChallenge(json(
        R"({"joined":true,"name":"A","id":"I","lastSubmit":806587200,"weekAnchorDate":null})"));
    EXPECT_TRUE(state.joined);
    EXPECT_EQ(state.lastSubmit, noon);
    EXPECT_EQ(state.weekAnchorDate, std::nullopt);
}

class WrongState : public testing::TestWithParam<const char*> {};

TEST_P(WrongState, countsAsNotJoined) {
    State right;
    right.joined = true;
    right.name = u"Ada"_s;
    right.id = u"ID"_s;
    QJsonObject object = encodeChallenge(right);
    ASSERT_TRUE(decodeChallenge(object).joined);
    const QJsonObject wrong = json(GetParam());
    for (auto each = wrong.begin(); each != wrong.end(); ++each)
        object.insert(each.key(), each.value());
    object.insert(u"newer"_s, 1);
    State none;
    none.unknown = json(R"({"newer":1})");
    EXPECT_EQ(decodeChallenge(object), none);
}

INSTANTIATE_TEST_SUITE_P(ChallengeCoding, WrongState,
                         testing::Values(R"({"joined":1})", R"({"name":7})", R"({"name":""})",
                                         R"({"id":""})", R"({"id":null})", R"({"lastRank":-1})",
                                         R"({"lastRank":1.5})", R"({"lastOf":"9"})",
                                         R"({"lastOf":1e300})", R"({"lastSubmit":"yesterday"})",
                                         R"({"lastSubmit":"2026-02-30T00:00:00Z"})",
                                         R"({"lastSubmit":1e300})",
                                         R"({"lastSubmit":252500000000})", R"({"awarded":"ch.1"})",
                                         R"({"awarded":["ch.1",2]})", R"({"weekAnchorDate":[]})"));

TEST(ChallengeCoding, whatIsNoObjectIsNoState) {
    for (const QJsonValue& value : {QJsonValue(), QJsonValue(7), QJsonValue(u"{}"_s),
                                    QJsonValue(QJsonArray{1}), QJsonValue(QJsonValue::Undefined)})
        EXPECT_EQ(decodeChallenge(value), State{});
}

TEST(ChallengeName, isOneVisibleLineOfAtMost24CodePoints) {
    struct Row {
        QString typed;
        std::optional<QString> sent;
    };
    const QString family = u"👩\u200d👧"_s;
    const Row rows[] = {
        {u"  Ada \t Lovelace\n"_s, u"Ada Lovelace"_s},
        {u"a\u202eb\u2066c\u200fd\u0007e"_s, u"abcd e"_s},
        {u"Žofie ✨"_s, u"Žofie ✨"_s},
        {u"דנה"_s, u"דנה"_s},
        {family, family},
        {QString(24, u'x'), QString(24, u'x')},
        {u"🎉"_s.repeated(24), u"🎉"_s.repeated(24)},
        {QString(25, u'x'), std::nullopt},
        {u' ' + QString(24, u'x') + u' ', QString(24, u'x')},
        {u""_s, std::nullopt},
        {u" \n "_s, std::nullopt},
        {u"\u200d\u0301\u3164"_s, std::nullopt},
        {QString(QChar(0xd83c)), std::nullopt},
    };
    for (const Row& row : rows)
        EXPECT_EQ(challengerName(row.typed), row.sent) << qPrintable(row.typed);
}

} // namespace
} // namespace skipnest::stats
