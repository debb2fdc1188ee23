// SPDX-License-Identifier: Apache-2.0
#include "stats/ChallengeService.h"

#include "platform/sim/SimDesktop.h"

#include <QJsonArray>

#include <gmock/gmock.h>

namespace skipnest::stats {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using platform::Failure;
using platform::HttpReply;
using Joining = ChallengeService::Joining;
using State = ChallengeService::State;
using testing::ElementsAre;
using testing::IsEmpty;

const QString page = u"/leaderboard.php"_s;
const QString key = QLatin1String(ChallengeService::key);
const platform::Duration day = 24h;

// The program with its counts and its place on the board, on a desktop with a web service.
class ChallengeServiceTest : public testing::Test {
protected:
    ChallengeServiceTest() {
        desk.setServiceAddress(u"https://jumps.example"_s);
        start();
    }
    void start() {
        const auto& ports = desk.ports();
        service.reset();
        stats.emplace(ports.files, ports.scheduler, ports.executor, ports.wallClock,
                      ports.diagnostics, ports.app);
        web.emplace(ports.http, ports.scheduler, ports.app.serviceAddress);
        service.emplace(*web, *stats, ports.defaults, ports.scheduler, ports.wallClock,
                        ports.diagnostics, ports.app);
    }
    // Every request from now on.
    void answer(const QByteArray& body, int status = 200, platform::Duration after = {}) {
        desk.http().setAnswer(page, HttpReply{status, body}, after);
    }
    void answerNothing() {
        desk.http().setAnswer(page, Failure{Failure::Kind::refused, u"no network"_s});
    }
    void jump(int times = 1) {
        for (int i = 0; i < times; ++i)
            stats->record(JumpStats::Kind::keyboard, u"Notes"_s);
        desk.advance(0ms);
        service->jumped();
        desk.advance(0ms);
    }
    std::optional<Joining> join(const QString& name, const QString& country = u"de"_s) {
        std::optional<Joining> result;
        service->join(name, country, [&result](Joining joining) {
            EXPECT_EQ(result, std::nullopt);
            result = joining;
        });
        EXPECT_EQ(result, std::nullopt) << "told from inside";
        desk.advance(0ms);
        return result;
    }
    // On the board at rank 10 of 100, the journal empty.
    void joined() {
        answer(R"({"available":true,"ok":true,"rank":10,"of":100})");
        ASSERT_EQ(join(u"Ada"_s), Joining::joined);
        desk.advance(0ms);
        ASSERT_EQ(service->state().lastRank, 10);
        desk.journal().clear();
    }
    std::optional<bool> leave() {
        std::optional<bool> result;
        service->leave([&result](bool left) { result = left; });
        EXPECT_EQ(result, std::nullopt) << "told from inside";
        desk.advance(0ms);
        return result;
    }
    // Without the identifier, which is another one each time.
    std::vector<std::string> requests() {
        std::vector<std::string> all;
        for (std::string line : desk.journal().calls()) {
            const QString id = service->state().id;
            if (const auto at = line.find(id.toStdString()); !id.isEmpty() && at != line.npos)
                line.replace(at, static_cast<std::size_t>(id.size()), "ID");
            if (line.starts_with("http"))
                all.push_back(line);
        }
        return all;
    }
    QJsonObject stored() { return desk.defaults().value(key).toObject(); }

    sim::SimDesktop desk;
    std::optional<JumpStats> stats;
    std::optional<platform::WebService> web;
    std::optional<ChallengeService> service;
};

TEST_F(ChallengeServiceTest, joiningChecksTheNameAndSubmitsAtOnce) {
    jump(30);
    EXPECT_THAT(requests(), IsEmpty()); // nothing leaves before the person joined
    answer(R"({"available":true,"ok":true,"rank":3,"of":120})");
    EXPECT_EQ(join(u" Zoë & Co \n"_s, u"DE"_s), Joining::joined);
    desk.advance(0ms);
    EXPECT_THAT(
        requests(),
        ElementsAre(
            "http method=GET path=/leaderboard.php?api=checkname&n=Zo%C3%AB%20%26%20Co&i=ID",
            "http form=i=ID&n=Zo%C3%AB%20%26%20Co&j=30&m=3&s=1&v=" +
                desk.appInfo().version.toStdString() +
                "&e=pro&c=de method=POST path=/leaderboard.php"));
    EXPECT_EQ(desk.http().lastRequest().contentType, "application/x-www-form-urlencoded");
    EXPECT_THAT(desk.journal().logLines(), ElementsAre("challenge: rank #3 of 120"));

    const State& state = service->state();
    EXPECT_EQ(state.id.size(), 36);
    EXPECT_EQ(stored(), (QJsonObject{{u"joined"_s, true},
                                     {u"name"_s, u"Zoë & Co"_s},
                                     {u"country"_s, u"de"_s},
                                     {u"id"_s, state.id},
                                     {u"lastRank"_s, 3},
                                     {u"lastOf"_s, 120},
                                     {u"lastSubmit"_s, u"2026-01-01T00:00:00Z"_s},
                                     {u"awarded"_s, QJsonArray{}},
                                     {u"weekAnchorRank"_s, 3},
                                     {u"weekAnchorDate"_s, u"2026-01-01T00:00:00Z"_s}}));
    const State before = state;
    start();
    EXPECT_EQ(service->state(), before);
}

TEST_F(ChallengeServiceTest, aNameThatCannotBeHadChangesNothing) {
    struct Row {
        QString name;
        HttpReply reply;
        Joining result;
    };
    const Row rows[] = {
        {u"Ada"_s, {200, R"({"available":false})"}, Joining::nameTaken},
        {u"\u200d"_s, {200, R"({"available":true})"}, Joining::nameUnfit},
        {QString(25, u'a'), {200, R"({"available":true})"}, Joining::nameUnfit},
        {u"Ada"_s, {200, R"({"available":1})"}, Joining::unreachable},
        {u"Ada"_s, {200, R"({})"}, Joining::unreachable},
        {u"Ada"_s, {200, QByteArray("\x00\xff{", 3)}, Joining::unreachable},
        {u"Ada"_s, {500, R"({"available":true})"}, Joining::unreachable},
        {u"Ada"_s, {302, R"({"available":false})"}, Joining::unreachable},
    };
    for (const bool isRenaming : {false, true}) {
        if (isRenaming)
            joined();
        const State before = service->state();
        const QJsonObject storedBefore = stored();
        for (const Row& row : rows) {
            answer(row.reply.body, row.reply.status);
            EXPECT_EQ(join(row.name), row.result) << row.reply.body.constData();
        }
        answerNothing();
        EXPECT_EQ(join(u"Ada"_s), Joining::unreachable);
        EXPECT_EQ(service->state(), before);
        EXPECT_EQ(stored(), storedBefore);
    }
}

TEST_F(ChallengeServiceTest, renamingKeepsTheEntryAndSubmitsTheNewName) {
    joined();
    const State before = service->state();
    answer(R"({"available":true,"ok":true,"rank":9,"of":100})");
    EXPECT_EQ(join(u"Countess"_s, u"gb"_s), Joining::joined);
    desk.advance(0ms);
    State expected = before;
    expected.name = u"Countess"_s;
    expected.country = u"gb"_s;
    expected.lastRank = 9;
    EXPECT_EQ(service->state(), expected);
    EXPECT_EQ(service->climbThisWeek(), std::nullopt); // the anchor's own instant
    EXPECT_THAT(desk.journal().logLines(), ElementsAre("challenge: rank #9 of 100"));
}

TEST_F(ChallengeServiceTest, aRenameDuringASubmissionIsSubmittedAfterIt) {
    joined();
    answer(R"({"ok":true,"rank":9,"of":100})", 200, 5s);
    service->submit();
    answer(R"({"available":true,"ok":true,"rank":8,"of":100})");
    EXPECT_EQ(join(u"Countess"_s), Joining::joined);
    EXPECT_EQ(requests().size(), 2U);
    desk.advance(6s);
    ASSERT_EQ(requests().size(), 3U);
    EXPECT_THAT(requests().back(), testing::HasSubstr("n=Countess"));
    EXPECT_EQ(service->state().lastRank, 8);
}

TEST_F(ChallengeServiceTest, jumpsSubmitEvery300Seconds) {
    joined();
    desk.advance(299999ms);
    jump();
    EXPECT_THAT(requests(), IsEmpty());
    desk.advance(1ms);
    jump();
    jump();
    EXPECT_EQ(requests().size(), 1U);

    // The timer of the shell does not wait, but for the answer.
    answer(R"({"ok":true,"rank":9,"of":100})", 200, 10s);
    service->submit();
    service->submit();
    desk.advance(9s);
    service->submit();
    EXPECT_EQ(requests().size(), 2U);
    desk.advance(1s);

    // A failure is tried again at the next jump.
    answerNothing();
    desk.advance(300s);
    jump();
    jump();
    EXPECT_EQ(requests().size(), 4U);
}

TEST_F(ChallengeServiceTest, aClockThatWasAheadDoesNotBlockForEver) {
    desk.wallClock().setUtc(QDateTime(QDate(2031, 1, 1), QTime(0, 0), Qt::UTC));
    joined();
    desk.wallClock().setUtc(QDateTime(QDate(2026, 6, 1), QTime(0, 0), Qt::UTC));
    answer(R"({"ok":true,"rank":7,"of":100})");
    jump();
    EXPECT_EQ(requests().size(), 1U);
    EXPECT_EQ(service->state().weekAnchorDate, desk.wallClock().nowUtc());
    EXPECT_EQ(service->state().lastSubmit, desk.wallClock().nowUtc());
}

TEST_F(ChallengeServiceTest, theAnchorMovesAfterMoreThanSevenDays) {
    struct Row {
        platform::Duration age;
        std::int64_t anchor;
        std::optional<std::int64_t> climb;
    };
    const Row rows[] = {
        {6 * day, 10, 7},
        {7 * day, 10, 7},
        {7 * day + 1ms, 3, std::nullopt},
        {8 * day, 3, std::nullopt},
    };
    joined();
    const QJsonObject start = stored();
    for (const Row& row : rows) {
        (void)desk.defaults().setValue(key, start);
        desk.wallClock().setUtc(QDateTime(QDate(2026, 1, 1), QTime(0, 0), Qt::UTC));
        this->start();
        desk.advance(row.age);
        answer(R"({"ok":true,"rank":3,"of":100})");
        service->submit();
        desk.advance(0ms);
        EXPECT_EQ(service->state().lastRank, 3);
        EXPECT_EQ(service->state().weekAnchorRank, row.anchor);
        EXPECT_EQ(service->climbThisWeek(), row.climb);
    }
    // Down again, and seen so.
    answer(R"({"ok":true,"rank":5,"of":100})");
    desk.advance(300s);
    jump();
    EXPECT_EQ(service->climbThisWeek(), -2);
}

class WrongReply : public ChallengeServiceTest, public testing::WithParamInterface<HttpReply> {};

TEST_P(WrongReply, leavesTheStateUnchanged) {
    joined();
    const State before = service->state();
    desk.http().setAnswer(page, GetParam());
    desk.advance(300s);
    jump();
    EXPECT_EQ(requests().size(), 1U);
    EXPECT_EQ(service->state(), before);
    EXPECT_THAT(desk.journal().logLines(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(ChallengeService, WrongReply,
                         testing::Values(HttpReply{200, ""},
                                         HttpReply{200, QByteArray("\xff\x00\xfe", 3)},
                                         HttpReply{200, "[]"},
                                         HttpReply{200, R"({"ok":true,"rank":4,"of":9)"},
                                         HttpReply{200, R"({"rank":4,"of":9})"},
                                         HttpReply{200, R"({"ok":false,"rank":4,"of":9})"},
                                         HttpReply{200, R"({"ok":"true","rank":4,"of":9})"},
                                         HttpReply{200, R"({"ok":true,"of":9})"},
                                         HttpReply{200, R"({"ok":true,"rank":0,"of":9})"},
                                         HttpReply{200, R"({"ok":true,"rank":-4,"of":9})"},
                                         HttpReply{200, R"({"ok":true,"rank":4.5,"of":9})"},
                                         HttpReply{200, R"({"ok":true,"rank":"4","of":9})"},
                                         HttpReply{200, R"({"ok":true,"rank":1e300,"of":9})"},
                                         HttpReply{200, R"({"ok":true,"rank":4,"of":-9})"},
                                         HttpReply{500, R"({"ok":true,"rank":4,"of":9})"},
                                         HttpReply{200, QByteArray(100'000, '[')}));

TEST_F(ChallengeServiceTest, aReplyNeedNotSayHowManyTakePart) {
    joined();
    answer(R"({"ok":true,"rank":4})");
    service->submit();
    desk.advance(0ms);
    EXPECT_EQ(service->state().lastOf, 0);
    EXPECT_EQ(service->standing()->rank, 4);
}

TEST_F(ChallengeServiceTest, leavingDeletesTheEntryThereAndThenHere) {
    joined();
    for (const int status : {404, 500, 302}) {
        const State before = service->state();
        desk.journal().clear();
        answer("", status);
        EXPECT_EQ(leave(), false);
        EXPECT_EQ(service->state(), before);
        EXPECT_THAT(desk.journal().logLines(),
                    ElementsAre("challenge: remove attempt",
                                "failed (code " + std::to_string(status) + ")"));
    }
    answerNothing();
    EXPECT_EQ(leave(), false);
    EXPECT_EQ(desk.journal().logLines().back(), "failed (code 0)");

    answer("anything", 204);
    desk.journal().clear();
    const QString id = service->state().id;
    EXPECT_EQ(leave(), true);
    EXPECT_THAT(requests(), ElementsAre("http form=action=remove&i=" + id.toStdString() +
                                        " method=POST path=/leaderboard.php"));
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("challenge: remove attempt", "challenge: left board (id removed)"));
    EXPECT_EQ(service->state(), State{});
    EXPECT_EQ(service->standing(), std::nullopt);
    EXPECT_FALSE(stored().value(u"joined"_s).toBool());
    desk.advance(day);
    jump();
    EXPECT_EQ(requests().size(), 1U);

    joined();
    EXPECT_NE(service->state().id, id);
}

TEST_F(ChallengeServiceTest, aSubmissionOnItsWayNeverOutlivesTheRemoval) {
    joined();
    answer(R"({"ok":true,"rank":1,"of":9})", 200, 10s);
    service->submit();
    answer("", 200, 1s);
    EXPECT_EQ(leave(), std::nullopt);
    EXPECT_EQ(join(u"Bea"_s), Joining::unreachable); // one thing at a time
    EXPECT_EQ(requests().size(), 1U);                // the removal waits
    desk.advance(10s);
    ASSERT_EQ(requests().size(), 2U);
    EXPECT_THAT(requests().back(), testing::HasSubstr("action=remove"));
    EXPECT_EQ(service->state().lastRank, 10);
    jump(); // nor does one begin meanwhile
    EXPECT_EQ(requests().size(), 2U);
    desk.advance(1s);
    EXPECT_EQ(service->state(), State{});
}

TEST_F(ChallengeServiceTest, aStateThatDoesNotDecodeStaysUntilThePersonJoins) {
    const QJsonObject damaged{{u"joined"_s, u"perhaps"_s}, {u"name"_s, u"Ada"_s}, {u"newer"_s, 7}};
    (void)desk.defaults().setValue(key, damaged);
    start();
    EXPECT_FALSE(service->state().joined);
    service->award(u"ch.1"_s);
    jump();
    EXPECT_EQ(leave(), true);
    EXPECT_EQ(stored(), damaged);
    joined();
    EXPECT_EQ(stored().value(u"newer"_s), 7);
    service->award(u"ch.1"_s);
    service->award(u"ch.1"_s);
    EXPECT_EQ(stored().value(u"awarded"_s), QJsonArray{u"ch.1"_s});
}

TEST_F(ChallengeServiceTest, theBoardIsFetchedOrSaysWhyNot) {
    joined();
    std::vector<std::string> heard;
    const auto fetch = [&] {
        service->fetchBoard([&heard](const platform::Result<ChallengeBoard>& board) {
            heard.push_back(board ? std::to_string(board->entries.size())
                                  : board.failure().detail.toStdString());
        });
        desk.advance(0ms);
    };
    answer(R"({"ok":true,"of":2,"board":[{"rank":1,"n":"Ada","me":true},{"rank":2,"n":"Ben"}]})");
    fetch();
    EXPECT_THAT(requests(), ElementsAre("http method=GET path=/leaderboard.php?api=full&i=ID"));
    answer("<html>");
    fetch();
    answer(R"({"ok":true,"board":[]})", 503);
    fetch();
    answerNothing();
    fetch();
    EXPECT_THAT(heard, ElementsAre("2", "the reply is no leaderboard",
                                   "the leaderboard answered with code 503", "no network"));
    EXPECT_EQ(service->boardPage(), QUrl(u"https://jumps.example/leaderboard.php"_s));
}

TEST_F(ChallengeServiceTest, aBuildWithoutAServiceSendsNothing) {
    desk.setServiceAddress({});
    start();
    EXPECT_EQ(join(u"Ada"_s), Joining::unreachable);
    EXPECT_EQ(service->availability().state, platform::Availability::State::unavailable);
    EXPECT_TRUE(service->boardPage().isEmpty());
    EXPECT_THAT(requests(), IsEmpty());
}

TEST_F(ChallengeServiceTest, answersAfterTheEndOfTheServiceAreDropped) {
    joined();
    answer(R"({"available":true,"ok":true,"rank":1,"of":9})", 200, 1s);
    bool told = false;
    service->submit();
    service->fetchBoard([&told](const auto&) { told = true; });
    service->leave([&told](bool) { told = true; });
    service.reset();
    desk.advance(1min);
    EXPECT_FALSE(told);
}

} // namespace
} // namespace skipnest::stats
