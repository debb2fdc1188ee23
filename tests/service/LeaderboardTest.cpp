// SPDX-License-Identifier: Apache-2.0
#include "tests/service/Leaderboard.h"

#include <QJsonArray>

#include <gmock/gmock.h>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;

Leaderboard::Entry entry(const QString& id, std::int64_t jumps) {
    return {.id = id, .name = u"Name "_s + id, .country = u"de"_s, .jumps = jumps};
}

TEST(LeaderboardTest, ranksByJumpsAndThenByWhoCameFirst) {
    Leaderboard board;
    board.submit(entry(u"a"_s, 5));
    board.submit(entry(u"b"_s, 9));
    board.submit(entry(u"c"_s, 5));
    EXPECT_EQ(board.rank(u"b"_s), 1);
    EXPECT_EQ(board.rank(u"a"_s), 2);
    EXPECT_EQ(board.rank(u"c"_s), 3);
    board.submit(entry(u"c"_s, 10)); // replaced, not added
    EXPECT_EQ(board.rank(u"c"_s), 1);
    EXPECT_EQ(board.entries().size(), 3U);
    board.remove(u"c"_s);
    EXPECT_EQ(board.rank(u"c"_s), 0);
}

TEST(LeaderboardTest, aNameIsTakenInAnyCaseButNotFromItself) {
    Leaderboard board;
    board.submit(entry(u"a"_s, 5));
    EXPECT_FALSE(board.isFree(u"NAME A"_s, u"b"_s));
    EXPECT_TRUE(board.isFree(u"name a"_s, u"a"_s));
}

TEST(LeaderboardTest, theBoardShowsTheBestHundredAndOnesOwn) {
    Leaderboard board;
    for (int i = 0; i < 150; ++i)
        board.submit(entry(QString::number(i), i));
    const QJsonObject shown = board.board(u"0"_s);
    const QJsonArray rows = shown[u"board"_s].toArray();
    EXPECT_EQ(shown[u"of"_s].toInt(), 150);
    ASSERT_EQ(rows.size(), 101);
    EXPECT_EQ(rows[0].toObject()[u"j"_s].toInt(), 149);
    EXPECT_FALSE(rows[0].toObject()[u"me"_s].toBool());
    EXPECT_EQ(rows[100].toObject()[u"rank"_s].toInt(), 150);
    EXPECT_TRUE(rows[100].toObject()[u"me"_s].toBool());
}

} // namespace
} // namespace skipnest::tests
