// SPDX-License-Identifier: Apache-2.0
#include "stats/ChallengeBoard.h"

#include <gmock/gmock.h>

namespace skipnest::stats {
namespace {

using namespace Qt::StringLiterals;
using Entry = ChallengeBoard::Entry;
using testing::ElementsAre;

TEST(ChallengeBoard, isSortedAndWithoutEntriesThatAreNotRight) {
    const auto board = decodeBoard(R"({"ok":true,"of":120,"board":[
        {"rank":2,"n":"  Ben\nB\u202e ","c":"DE","j":7},
        {"rank":1,"n":"Ada","c":"gb","j":120,"m":10,"s":5,"me":true,"new":[1]},
        {"rank":0,"n":"Zero","j":1},
        {"rank":1.5,"n":"Half","j":1},
        {"rank":"3","n":"Text","j":1},
        {"rank":3,"n":"\u0000\u2066 ","j":1},
        {"rank":3,"n":"Minus","j":-1},
        {"rank":3,"n":"Words","j":1,"m":"many"},
        {"rank":3,"j":1},
        7, null, [],
        {"rank":9007199254740991,"n":"Last and with a name beyond all measure","c":"xyz"}]})");
    ASSERT_TRUE(board.ok());
    EXPECT_EQ(board->of, 120);
    EXPECT_THAT(board->entries, ElementsAre(Entry{1, u"Ada"_s, u"gb"_s, 120, 10, 5, true},
                                            Entry{2, u"Ben B"_s, u"de"_s, 7, 0, 0, false},
                                            Entry{9007199254740991, u"Last and with a name bey"_s,
                                                  u""_s, 0, 0, 0, false}));
}

TEST(ChallengeBoard, hasAtMostAThousandEntriesAndNeverFewerParticipants) {
    QByteArray list;
    for (int rank = 1; rank <= 1001; ++rank)
        list += R"({"rank":)" + QByteArray::number(rank) + R"(,"n":"A"},)";
    list.chop(1);
    const auto board = decodeBoard(R"({"ok":true,"of":3,"board":[)" + list + "]}");
    ASSERT_TRUE(board.ok());
    EXPECT_EQ(board->entries.size(), 1000U);
    EXPECT_EQ(board->of, 1000);
}

TEST(ChallengeBoard, isNothingElse) {
    for (const QByteArray& bytes :
         {QByteArray(""), QByteArray("\xff\x00", 2), QByteArray("[]"), QByteArray("{"),
          QByteArray(R"({"board":[]})"), QByteArray(R"({"ok":false,"board":[]})"),
          QByteArray(R"({"ok":1,"board":[]})"), QByteArray(R"({"ok":true,"board":{}})"),
          QByteArray(200'000, '[')})
        EXPECT_FALSE(decodeBoard(bytes).ok()) << bytes.left(40).constData();
    const auto empty = decodeBoard(R"({"ok":true,"board":[]})");
    ASSERT_TRUE(empty.ok());
    EXPECT_EQ(*empty, ChallengeBoard{});
}

} // namespace
} // namespace skipnest::stats
