// SPDX-License-Identifier: Apache-2.0
#include "stats/JumpStats.h"
#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

#include <thread>

namespace skipnest::stats {
namespace {

using namespace std::chrono_literals;
using platform::sim::MemoryFiles;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using Kind = JumpStats::Kind;

const QString notes = QStringLiteral("Notes");
const QDate today(2026, 7, 24);

// Keeps work until it is told to run it.
struct HeldExecutor final : platform::Executor {
    std::vector<Work> works;
    void background(Work work, Work done) override { serial(std::move(work), std::move(done)); }
    void serial(Work work, Work) override { works.push_back(std::move(work)); }
    void run() {
        for (const Work& work : std::exchange(works, {}))
            work();
    }
};

// Work on real threads, each after the one before. Qt's own pool is not seen through by the thread
// sanitizer.
struct ThreadedExecutor final : platform::Executor {
    std::thread last;
    ~ThreadedExecutor() override {
        if (last.joinable())
            last.join();
    }
    void background(Work work, Work done) override { serial(std::move(work), std::move(done)); }
    void serial(Work work, Work) override {
        last = std::thread([before = std::move(last), work = std::move(work)]() mutable {
            if (before.joinable())
                before.join();
            work();
        });
    }
};

class JumpStatsTest : public testing::Test {
protected:
    JumpStatsTest() {
        desk.wallClock().setUtc(QDateTime(today, QTime(12, 0), Qt::UTC));
        start();
    }

    void start() { start(desk.ports().executor); }
    void start(platform::Executor& executor) {
        jumps.reset();
        const platform::Ports& ports = desk.ports();
        jumps = std::make_unique<JumpStats>(ports.files, ports.scheduler, executor, ports.wallClock,
                                            ports.diagnostics, ports.app);
    }
    // The next start finds this.
    void put(const QByteArray& bytes) {
        jumps.reset();
        desk.files().put(path, bytes);
        start();
        desk.journal().clear();
    }
    void jump(Kind kind = Kind::keyboard) { jumps->record(kind, notes); }

    [[nodiscard]] StatsStore onDisk() const {
        const auto bytes = desk.files().content(path);
        const auto decoded = bytes ? decodeStats(*bytes) : decodeStats("{}");
        return decoded ? decoded->store : StatsStore();
    }
    [[nodiscard]] int writes() {
        return static_cast<int>(desk.files().operations().count(QStringLiteral("write ") + path +
                                                                QStringLiteral(".new")));
    }
    [[nodiscard]] QString keptPath() const {
        return path + QStringLiteral(".corrupt-20260724T120002");
    }

    mutable sim::SimDesktop desk;
    const QString path = desk.appInfo().supportFolder + QStringLiteral("/stats.json");
    std::unique_ptr<JumpStats> jumps;
};

TEST_F(JumpStatsTest, countsByDayTargetAndKind) {
    jumps->record(Kind::keyboard, QStringLiteral("  Notes\n"));
    jumps->record(Kind::voice, notes);
    jumps->record(Kind::switcher, QStringLiteral(" \t"));
    const StatsStore& store = jumps->store();
    EXPECT_EQ(store.byDay, (std::map<QDate, std::int64_t>{{today, 3}}));
    EXPECT_EQ(store.byTarget, (QHash<QString, std::int64_t>{{notes, 2}}));
    EXPECT_EQ(store.total, 3);
    EXPECT_EQ(store.voice, 1);
    EXPECT_EQ(store.switcher, 1);
    EXPECT_EQ(store.keyboard(), 1);
    EXPECT_EQ(store.used.join(u' '), QStringLiteral("keyboard voice switcher"));
    EXPECT_EQ(store.firstUse, desk.wallClock().nowUtc());
    jumps->markUsed(QStringLiteral("hide"));
    desk.advance(2s);
    EXPECT_TRUE(onDisk() == store);
    start();
    EXPECT_TRUE(onDisk() == jumps->store());
}

TEST_F(JumpStatsTest, aKeyPressWaitsForNothing) {
    QStringList heard;
    jumps->setReactions({.firstJump = [&] { heard << QStringLiteral("first"); },
                         .jumped = [&] { heard << QStringLiteral("jump"); }});
    QObject::connect(jumps.get(), &JumpStats::changed, [&] { heard << QStringLiteral("changed"); });
    const qsizetype operations = desk.files().operations().size();
    jump();
    jump();
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_THAT(desk.runningTimers(), IsEmpty());
    desk.runPosted();
    EXPECT_EQ(heard.join(u' '), QStringLiteral("first jump jump changed"));
    jump();
    desk.runPosted();
    EXPECT_EQ(heard.join(u' '), QStringLiteral("first jump jump changed jump changed"));
    EXPECT_EQ(desk.files().operations().size(), operations);
}

TEST_F(JumpStatsTest, tenJumpsWithinTwoSecondsAreOneWrite) {
    for (int i = 0; i < 10; ++i) {
        jump();
        desk.advance(199ms);
    }
    desk.advance(1800ms);
    EXPECT_EQ(writes(), 0);
    desk.advance(1ms);
    EXPECT_EQ(writes(), 1);
    EXPECT_EQ(onDisk().total, 10);
    desk.advance(1min);
    jumps->markUsed(QStringLiteral("keyboard")); // as before
    jumps.reset();
    EXPECT_EQ(writes(), 1);
    EXPECT_THAT(desk.runningTimers(), IsEmpty());
}

TEST_F(JumpStatsTest, aDayEndsAtLocalMidnight) {
    desk.wallClock().setZone(QTimeZone("Europe/Berlin"));
    desk.wallClock().setUtc(QDateTime(today, QTime(21, 59, 59, 999), Qt::UTC));
    start();
    jump();
    desk.runPosted();
    desk.advance(1ms);
    EXPECT_EQ(jumps->streakDays(), 0);
    EXPECT_EQ(jumps->streakToKeep(), 1);
    jump();
    EXPECT_EQ(jumps->streakDays(), 2);
    EXPECT_EQ(jumps->streakToKeep(), 0);
    EXPECT_EQ(jumps->weekJumps(), 2);
    EXPECT_EQ(jumps->store().byDay,
              (std::map<QDate, std::int64_t>{{today, 1}, {today.addDays(1), 1}}));
}

TEST_F(JumpStatsTest, aJumpAfterAJourneyCountsOnTheDayOfTheNewZone) {
    desk.wallClock().setUtc(QDateTime(today, QTime(22, 30), Qt::UTC));
    jump();
    desk.advance(3s);
    desk.wallClock().setZone(QTimeZone("Europe/Berlin"));
    jump();
    jump();
    desk.runPosted();
    const std::map<QDate, std::int64_t> there{{today, 1}, {today.addDays(1), 2}};
    EXPECT_EQ(jumps->store().byDay, there);
    desk.advance(2s);
    EXPECT_EQ(onDisk().byDay, there);

    // The first of a day, and the program ends before the event does.
    desk.wallClock().setUtc(QDateTime(today.addDays(2), QTime(9, 0), Qt::UTC));
    desk.wallClock().setZone(QTimeZone("Pacific/Kiritimati"));
    start();
    desk.wallClock().setUtc(QDateTime(today.addDays(2), QTime(11, 0), Qt::UTC));
    desk.wallClock().setZone(QTimeZone("Europe/Berlin"));
    jump();
    EXPECT_TRUE(jumps->store().byDay.contains(today.addDays(3)));
    jumps.reset();
    EXPECT_EQ(onDisk().byDay.rbegin()->first, today.addDays(2));
}

TEST_F(JumpStatsTest, whatWaitsIsWrittenAtTheEnd) {
    jump();
    jumps.reset();
    EXPECT_EQ(onDisk().total, 1);
    desk.advance(1min);
    EXPECT_EQ(writes(), 1);
}

TEST_F(JumpStatsTest, anOlderContentNeverReplacesANewerOne) {
    HeldExecutor held;
    start(held);
    jump();
    desk.advance(2s);
    jump();
    jumps->flush();
    EXPECT_EQ(onDisk().total, 2);
    held.run();
    EXPECT_EQ(onDisk().total, 2);
    EXPECT_EQ(writes(), 1);

    jump();
    desk.advance(2s);
    desk.files().failAfter(0);
    jumps.reset();
    const qsizetype operations = desk.files().operations().size();
    held.run();
    EXPECT_EQ(desk.files().operations().size(), operations) << "the files may be gone by now";
}

TEST_F(JumpStatsTest, savesOnAnotherThreadLoseNothing) {
    ThreadedExecutor threads;
    start(threads);
    for (int round = 1; round <= 200; ++round) {
        jumps->record(Kind::voice, QString::number(round % 50));
        desk.advance(2s);
        if (round % 20 == 0)
            jumps->flush();
    }
    const StatsStore counted = jumps->store();
    jumps.reset();
    EXPECT_EQ(counted.total, 200);
    EXPECT_TRUE(onDisk() == counted);
    EXPECT_THAT(desk.journal().logLines(), IsEmpty());
}

TEST_F(JumpStatsTest, partsOfAWrongFileAreKeptAndTheFileBesideIt) {
    const QByteArray wrong =
        R"({"byDay":{"2026-07-23":4,"2026-02-30":9},"total":-1,"celebrated":["j100"],"newer":[1]})";
    desk.files().put(path, wrong);
    start();
    ASSERT_THAT(desk.journal().logLines(), SizeIs(1));
    EXPECT_THAT(desk.journal().logLines()[0],
                testing::AllOf(HasSubstr("2026-02-30"), HasSubstr("total")));
    start();
    EXPECT_EQ(desk.files().content(path), wrong) << "nothing changed";

    desk.journal().clear();
    jump();
    desk.advance(2s);
    EXPECT_EQ(desk.files().content(keptPath()), wrong);
    EXPECT_THAT(desk.journal().logLines(), ElementsAre("stats: kept a file with wrong parts as "
                                                       "stats.json.corrupt-20260724T120002"));
    const StatsStore saved = onDisk();
    EXPECT_EQ(saved.byDay, (std::map<QDate, std::int64_t>{{today.addDays(-1), 4}, {today, 1}}));
    EXPECT_EQ(saved.total, 1);
    EXPECT_EQ(saved.celebrated, QStringList(QStringLiteral("j100")));
    EXPECT_EQ(saved.unknown[u"newer"], QJsonValue(QJsonArray{1}));
    jump();
    desk.advance(2s);
    start();
    EXPECT_THAT(desk.journal().logLines(), SizeIs(1)) << "kept once, and right from then on";
}

TEST_F(JumpStatsTest, whatDoesNotDecodeIsAnEmptyStoreAndKept) {
    for (const QByteArray& bytes : {QByteArray("{\"total\":1"), QByteArray()}) {
        put(bytes);
        EXPECT_EQ(jumps->store().total, 0);
        jump();
        desk.advance(2s);
        EXPECT_EQ(desk.files().content(keptPath()), bytes);
        EXPECT_EQ(onDisk().total, 1);
        ASSERT_TRUE(desk.files().remove(keptPath()));
        desk.wallClock().setUtc(QDateTime(today, QTime(12, 0), Qt::UTC));
    }
    // Too large, or not to be read: moved as it is.
    put(QByteArray(largestStats + 1, ' '));
    jump();
    desk.advance(2s);
    EXPECT_EQ(desk.files().content(keptPath())->size(), largestStats + 1);
    EXPECT_EQ(onDisk().total, 1);
}

// Each operation of a save fails in turn, or is the last before the power goes.
TEST_F(JumpStatsTest, aFullDiskLosesNothing) {
    const QByteArray wrong = R"({"byDay":{"2026-07-23":4},"total":4,"voice":-1})";
    const auto prepare = [&] {
        (void)desk.files().remove(keptPath());
        desk.wallClock().setUtc(QDateTime(today, QTime(12, 0), Qt::UTC));
        put(wrong);
    };
    prepare();
    const qsizetype before = desk.files().operations().size();
    jump();
    desk.advance(2s);
    const int operations = static_cast<int>(desk.files().operations().size() - before);
    ASSERT_GE(operations, 9);
    for (int n = 0; n < operations; ++n) {
        prepare();
        desk.files().failAfter(n);
        jump();
        desk.advance(2s);
        EXPECT_GE(onDisk().total, 4) << n;
        const auto complaints =
            std::ranges::count_if(desk.journal().logLines(), [](const std::string& line) {
                return line.starts_with("stats: not saved");
            });
        // A file that cannot be copied is moved.
        EXPECT_TRUE(complaints == 1 || (complaints == 0 && onDisk().total == 5)) << n;
        jump();
        desk.advance(2s);
        EXPECT_EQ(onDisk().total, 6) << n;
        EXPECT_EQ(onDisk().byDay.size(), 2U) << n;

        for (const auto reached : {MemoryFiles::Reached::nothing, MemoryFiles::Reached::lastName,
                                   MemoryFiles::Reached::namesOnly}) {
            prepare();
            desk.files().stopAfter(n);
            jump();
            desk.advance(2s);
            desk.files().crash(reached);
            const auto now = desk.files().content(path);
            EXPECT_TRUE(now == wrong || onDisk().total == 5) << n;
            EXPECT_TRUE(now == wrong || desk.files().content(keptPath()) == wrong) << n;
        }
    }
}

TEST_F(JumpStatsTest, aDiskThatStaysFullIsLoggedOnce) {
    jump();
    desk.advance(2s);
    desk.files().stopAfter(0);
    for (int i = 0; i < 5; ++i) {
        jump();
        desk.advance(2s);
    }
    EXPECT_THAT(desk.journal().logLines(), SizeIs(1));
    desk.files().crash(MemoryFiles::Reached::everything);
    jumps.reset();
    EXPECT_EQ(onDisk().total, 6);
}

TEST_F(JumpStatsTest, aMilestoneIsShownOnceAndThoseOfTheChallengeCameLast) {
    std::optional<ChallengeStanding> standing;
    jumps->setStanding([&standing] { return standing; });
    const auto next = [this] {
        const auto milestone = jumps->nextMilestone();
        return milestone ? milestone->id.toStdString() : "";
    };
    standing = ChallengeStanding{2, 20, {}};
    jump();
    EXPECT_EQ(next(), "first");
    jumps->celebrate(QStringLiteral("first"));
    EXPECT_EQ(next(), "ch.join");
    standing->awarded = {QStringLiteral("ch.join")};
    EXPECT_EQ(next(), "ch.3");
    jumps->celebrate(QStringLiteral("ch.3"));
    EXPECT_EQ(next(), "");
    standing.reset();
    EXPECT_EQ(next(), "");
    start();
    EXPECT_EQ(next(), "") << "remembered";
}

} // namespace
} // namespace skipnest::stats
