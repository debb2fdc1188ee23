// SPDX-License-Identifier: Apache-2.0
#include "tests/voice/RandomTargets.h"
#include "tests/voice/ReferenceScorer.h"

#include <gmock/gmock.h>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = JumpTarget::Kind;

std::vector<std::string> titles(const std::vector<JumpTarget>& targets,
                                const std::vector<ScoredTarget>& ranked) {
    std::vector<std::string> named;
    for (const ScoredTarget& scored : ranked)
        named.push_back(targets[scored.target].title.toStdString());
    return named;
}

struct Worked {
    QString phrase;
    JumpTarget target;
    std::int64_t uses;
    double score; // 0: no candidate
};

TEST(TargetScorer, givesTheScoresWorkedOutByHand) {
    const JumpTarget safari{.title = u"Safari"_s};
    const JumpTarget tab{.title = u"Inbox"_s, .kind = Kind::tab, .owner = u"Firefox"_s};
    const Worked rows[] = {
        {u"safari"_s, safari, 0, 6 + 4 + 1.2 + 2.5 - 0.12},
        {u"SAFARI"_s, {.title = u"safari"_s, .hot = true}, 0, 6 + 4 + 1 + 1.2 + 2.5 - 0.12},
        {u"saffari"_s, safari, 0, 4 + 4 + 1.2 + 2.5 - 0.12},
        // Usage is 0.8 × log₂ and stops at 2.5; weights change above two uses.
        {u"saffari"_s, safari, 2, 4 + 4 + 0.8 * std::log2(3) + 1.2 + 2.5 - 0.12},
        {u"saffari"_s, safari, 3, 5.5 + 4 + 1.6 + 1.2 + 2.5 - 0.12},
        {u"saffari"_s, safari, 1'000'000, 5.5 + 4 + 2.5 + 1.2 + 2.5 - 0.12},
        {u"dokuments"_s, {.title = u"Documents"_s, .kind = Kind::folder}, 0, 6.0422222222222},
        // Three of seven letters wrong is taken only of what is used often.
        {u"foobarx"_s, {.title = u"fooqurz"_s, .kind = Kind::file}, 3, 0},
        {u"abcdefg"_s, {.title = u"abxxefg"_s, .kind = Kind::file}, 2, 0},
        {u"abcdefg"_s,
         {.title = u"abxxefg"_s, .kind = Kind::file},
         3,
         (1 - 2.0 / 7) * 2.5 + 4 + 1.6 - 0.14},
        {u"sheet"_s, {.title = u"Budget Sheet"_s, .kind = Kind::file}, 0, 5 + 4 - 0.24},
        {u"dget"_s, {.title = u"Budget Sheet"_s, .kind = Kind::file}, 0, 2 + 4 - 0.24},
        {u"folder home"_s,
         {.title = u"Home"_s, .subtitle = u"Folder"_s, .kind = Kind::folder},
         0,
         2 + 6 + 4 - 0.08},
        // Owners are looked at for words of more than three letters.
        {u"fire"_s, tab, 0, 2.5 + 4 - 0.1},
        {u"fir"_s, tab, 0, 0},
        // Stems: applications by name, the rest for less.
        {u"houses"_s, {.title = u"My Housing"_s, .kind = Kind::file}, 0, 3 + 4 - 0.2},
        {u"houses"_s, {.title = u"My Housing"_s}, 0, 4 + 4 + 1.2 - 0.2},
        {u"häuser"_s, {.title = u"Haus"_s, .kind = Kind::file}, 0, 3 + 4 - 0.08},
        // Sounds: as good as the best spelling mistake.
        {u"fotoshop"_s, {.title = u"Photoshop"_s}, 0, 4 + 4 + 1.2 + 2.5 - 0.18},
        {u"the safari zzz"_s, safari, 0, 6 + 4.0 / 3 + 1.2 - 0.12},
        {u"strasse"_s, {.title = u"STRAßE"_s, .kind = Kind::file}, 0, 6 + 4 - 0.12},
        {u"été"_s, {.title = u"e\u0301te\u0301"_s, .kind = Kind::file}, 0, 6 + 4 - 0.06},
        {u"zzz"_s, safari, 5, 0},
        {u""_s, safari, 5, 0},
        {u" \t\n"_s, safari, 5, 0},
    };
    for (const Worked& row : rows) {
        const auto ranked =
            score(row.phrase, {row.target}, {{row.target.title.toLower(), row.uses}});
        EXPECT_EQ(ranked.size(), row.score == 0 ? 0 : 1) << row.phrase.toStdString();
        for (const ScoredTarget& scored : ranked)
            EXPECT_NEAR(scored.score, row.score, 1e-9)
                << row.phrase.toStdString() << " / " << row.target.title.toStdString();
    }
}

TEST(TargetScorer, ranksTheShorterAndTheMoreUsedFirstAndKeepsTheOrderOfEquals) {
    const std::vector<JumpTarget> targets{
        {.title = u"report march"_s, .kind = Kind::file},
        {.title = u"report may"_s, .kind = Kind::file},
        {.title = u"Report May"_s, .kind = Kind::file},
        {.title = u"Other"_s, .kind = Kind::file},
        {.title = u"report april"_s, .kind = Kind::file},
    };
    EXPECT_THAT(titles(targets, score(u"report"_s, targets)),
                ElementsAre("report may", "Report May", "report march", "report april"));
    EXPECT_THAT(titles(targets, score(u"report"_s, targets, {{u"report april"_s, 1}}, 2)),
                ElementsAre("report april", "report may"));
    // One title, several targets: all were used.
    EXPECT_THAT(titles(targets, score(u"report"_s, targets, {{u"report may"_s, 1}}, 2)),
                ElementsAre("report may", "Report May"));
    EXPECT_THAT(score(u"report"_s, targets, {}, 0), IsEmpty());
    EXPECT_THAT(TargetScorer().score(u"report"_s, {}), IsEmpty());
}

TEST(TargetScorer, agreesWithTheReferenceToTheLastBit) {
    const ReferenceScorer reference;
    RandomTargets random(20260724);
    for (int round = 0; round < 20; ++round) {
        const std::vector<JumpTarget> targets = random.targets(200);
        const UseCounts uses = random.uses(targets, 100);
        const TargetScorer scorer(targets);
        for (int phrases = 0; phrases < 20; ++phrases) {
            const QString phrase = random.phrase();
            const auto expected = reference.score(phrase, targets, uses);
            ASSERT_EQ(scorer.score(phrase, uses), expected) << phrase.toStdString();
            const auto best = scorer.score(phrase, uses, 7);
            ASSERT_TRUE(std::equal(best.begin(), best.end(), expected.begin()));
        }
    }
}

TEST(ScoredTargets, areSortedStablyHoweverManyTheyAre) {
    std::mt19937 random(3);
    for (const std::size_t count : {0, 1, 1999, 2000, 20'000}) {
        std::vector<ScoredTarget> scored(count);
        for (std::size_t i = 0; i < count; ++i)
            scored[i] = {i, static_cast<double>(random() % 2000) / 37 - 20};
        auto expected = scored;
        std::ranges::stable_sort(expected, std::ranges::greater{}, &ScoredTarget::score);
        auto all = scored;
        keepBest(all, count);
        EXPECT_EQ(all, expected) << count;
        expected.resize(std::min<std::size_t>(count, 9));
        keepBest(scored, 9);
        EXPECT_EQ(scored, expected) << count;
    }
}

TEST(TargetScorer, takesWhateverItIsGiven) {
    const QString longTitle = u"ab cd "_s.repeated(1667);
    const QString lone = QString(QChar(0xD83D)) + u"x"_s;
    std::vector<JumpTarget> targets{
        {.title = longTitle},
        {.title = QString(10'000, u'q')},
        {.title = QString(u"nul\0byte"_s.constData(), 8)},
        {.title = u"👩‍💻 ＦＵＬＬ"_s},
        {.title = u"עברית עקד"_s},
        {.title = lone},
        {.title = QString()},
    };
    const TargetScorer scorer(targets);
    const ReferenceScorer reference;
    const QString phrases[] = {
        QString(100'000, u'q'), QString(9'990, u'q'), u"ab xy cd"_s, u"nul"_s,
        u"👩‍💻"_s,       u"עברית"_s,           lone,          QString(3, QChar(0)),
    };
    for (const QString& phrase : phrases)
        EXPECT_EQ(scorer.score(phrase, {}), reference.score(phrase, targets, {}))
            << phrase.left(20).toStdString();
    // What nobody says in one breath counts no further than its first words.
    const QString words = u"ab cd "_s.repeated(64);
    EXPECT_EQ(scorer.score(words.repeated(521), {}), scorer.score(words, {}));
    EXPECT_NE(scorer.score(words.chopped(6), {}), scorer.score(words, {}));
    EXPECT_EQ(scorer.score(u"nul"_s, {}).size(), 1);
}

} // namespace
} // namespace skipnest::voice
