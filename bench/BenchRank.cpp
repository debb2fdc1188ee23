// SPDX-License-Identifier: Apache-2.0
// Ranking targets for a spoken phrase: 100,000 of them, beside the same formula step by step (whose
// scores must be the same to the last bit) and fzf over the same titles, which starts a process for
// each phrase; "true" shows what that costs by itself. Then what a person waits for: 2,000 targets,
// and putting an index of a full desktop together.
#include "bench/Bench.h"
#include "bench/NameWords.h"
#include "platform/sim/SimDesktop.h"
#include "tests/voice/ReferenceScorer.h"
#include "voice/InstalledInFolders.h"
#include "voice/TargetIndex.h"

#include <QCoreApplication>
#include <QProcess>

#include <array>
#include <chrono>
#include <cstdio>
#include <random>

namespace skipnest::bench {
namespace {

using namespace Qt::StringLiterals;
using Clock = std::chrono::steady_clock;
using voice::JumpTarget;
using voice::ScoredTarget;
using voice::TargetScorer;
using voice::UseCounts;

constexpr std::array phrases{
    "rechnung müller", "budget report", "fotoshop", "meeting notes berlin", "screenshot",
    "dokumente",       "tax 2023",      "a",        "übersicht köln",       "nothing of it",
};

// The same in every run. One word in three is made up, so that most of the words are rare ones, as
// names of files, tabs and windows have them.
std::vector<JumpTarget> madeTargets(int count) {
    std::mt19937 random(1);
    const auto below = [&random](std::size_t end) { return random() % end; };
    const auto madeUp = [&below] {
        static constexpr std::array syllables{"ka", "lor", "mi", "ten",  "su", "ver",
                                              "no", "bel", "ri", "schu", "do", "pin"};
        QString word;
        for (std::size_t left = 2 + below(3); left > 0; --left)
            word += QString::fromUtf8(syllables[below(syllables.size())]);
        return word;
    };
    std::vector<JumpTarget> targets;
    for (int i = 0; i < count; ++i) {
        QStringList title;
        for (std::size_t left = 1 + below(4); left > 0; --left)
            title.append(below(3) == 0 ? madeUp()
                                       : QString::fromUtf8(nameWords[below(nameWords.size())]));
        if (below(3) == 0)
            title.append(QString::number(2000 + below(3000)));
        JumpTarget target{.title = title.join(u' '),
                          .kind = static_cast<JumpTarget::Kind>(below(5))};
        if (target.kind == JumpTarget::Kind::folder)
            target.subtitle = u"Folder"_s;
        else if (target.kind == JumpTarget::Kind::file)
            target.subtitle = u"~/Documents/"_s + madeUp();
        else if (target.kind != JumpTarget::Kind::app)
            target.owner = u"Browser"_s;
        targets.push_back(std::move(target));
    }
    return targets;
}

class RankBench {
public:
    RankBench(int targets, int rounds) : rounds_(rounds), targets_(madeTargets(targets)) {
        for (int use = 0; use < 500; ++use)
            uses_.insert(
                targets_[static_cast<std::size_t>(use * 31) % targets_.size()].title.toLower(),
                1 + use % 9);
    }

    int run() {
        measureRanking();
        measurePerson();
        measureIndex();
        printJson(result_);
        return isSame_ ? 0 : 1;
    }

private:
    void measureRanking() {
        const auto begun = Clock::now();
        const TargetScorer scorer(targets_);
        Series preparing{u"taking %1 targets apart, once"_s.arg(targets_.size()), {}, 0};
        preparing.add(Clock::now() - begun);

        Series ranking{u"rank %1 targets"_s.arg(targets_.size()), {}, 0};
        Series stepByStep{u"the formula, step by step"_s, {}, 0};
        const voice::ReferenceScorer reference;
        QByteArray titles;
        for (const JumpTarget& target : targets_)
            titles += target.title.toUtf8() + '\n';
        Series fzf{u"fzf -f, with the start of a process"_s, {}, 0};
        Series start{u"true, the start of a process"_s, {}, 0};
        std::size_t pairs = 0;
        for (const char* said : phrases) {
            const QString phrase = QString::fromUtf8(said);
            std::vector<ScoredTarget> ranked;
            for (int round = 0; round < rounds_; ++round) {
                const auto asked = Clock::now();
                ranked = scorer.score(phrase, uses_);
                ranking.add(Clock::now() - asked);
            }
            const auto asked = Clock::now();
            const auto expected = reference.score(phrase, targets_, uses_);
            stepByStep.add(Clock::now() - asked);
            pairs += targets_.size();
            if (ranked != expected) {
                ++ranking.misfires;
                isSame_ = false;
            }
            for (int round = 0; round < 3; ++round) {
                runProcess(fzf, u"fzf"_s, {u"-f"_s, phrase}, titles);
                runProcess(start, u"true"_s, {}, {});
            }
        }
        print("ranking", {ranking, stepByStep, fzf, start, preparing});
        if (!wantsJson())
            std::printf("%zu pairs of phrase and target: %s\n\n", pairs,
                        isSame_ ? "all scores the same to the last bit" : "SCORES DIFFER");
    }

    static void runProcess(Series& series, const QString& program, const QStringList& arguments,
                           const QByteArray& input) {
        QProcess process;
        const auto begun = Clock::now();
        process.start(program, arguments);
        process.write(input);
        process.closeWriteChannel();
        if (!process.waitForFinished() || process.error() == QProcess::FailedToStart) {
            ++series.misfires;
            return;
        }
        series.add(Clock::now() - begun);
    }

    // 2,000 targets, each phrase with a cold cache, as after a pause.
    void measurePerson() {
        std::vector<JumpTarget> some(targets_.begin(),
                                     targets_.begin() +
                                         std::min<std::ptrdiff_t>(2000, std::ssize(targets_)));
        const TargetScorer scorer(some);
        Series warm{u"phrase -> ranked, %1 targets"_s.arg(some.size()), {}, 0};
        Series cold{u"the same with all caches cold"_s, {}, 0};
        std::vector<char> other(64U << 20);
        for (int round = 0; round < rounds_; ++round) {
            for (const char* said : phrases) {
                const QString phrase = QString::fromUtf8(said);
                for (Series* series : {&cold, &warm}) {
                    if (series == &cold)
                        for (std::size_t at = 0; at < other.size(); at += 64)
                            ++other[at];
                    const auto asked = Clock::now();
                    const auto ranked = scorer.score(phrase, uses_);
                    series->add(Clock::now() - asked);
                }
            }
        }
        print("person", {warm, cold});
    }

    // 500 applications, 100 of them running with two windows each, and 200 tabs.
    void measureIndex() {
        sim::SimDesktop desk;
        for (int app = 0; app < 500; ++app) {
            const QString name = targets_[static_cast<std::size_t>(app)].title + u" %1"_s.arg(app);
            const bool runs = app < 100;
            desk.installApp({.name = name,
                             .bundleIdentifier =
                                 app == 0 ? u"com.google.Chrome"_s : u"org.example.%1"_s.arg(app),
                             .path = u"/Applications/%1.app"_s.arg(name),
                             .running = runs ? sim::Running::yes : sim::Running::no,
                             .windows = runs ? std::vector<sim::SimWindow>{{name + u" one"_s},
                                                                           {name + u" two"_s}}
                                             : std::vector<sim::SimWindow>{}});
        }
        QString tabs;
        for (int tab = 0; tab < 200; ++tab)
            tabs += u"1\u0001%1\u0001%2\u00010\u0001https://site%1.example/\n"_s.arg(tab + 1).arg(
                targets_[static_cast<std::size_t>(1000 + tab)].title);
        desk.scripts().setTabs(u"com.google.Chrome"_s, {.listing = platform::ScriptText{tabs}});
        voice::InstalledInFolders installed(desk.ports());
        switcher::BrowserTabs browserTabs(desk.ports());
        voice::TargetIndex index(desk.ports(), browserTabs, installed,
                                 {.home = desk.appInfo().home,
                                  .downloads = {},
                                  .documents = {},
                                  .desktop = {},
                                  .pictures = {},
                                  .movies = {},
                                  .music = {}});
        Series first{u"index, windows listed anew"_s, {}, 0};
        Series again{u"index, windows known"_s, {}, 0};
        std::size_t size = 0;
        for (int round = 0; round < 2 * rounds_; ++round) {
            const bool isFirst = round % 2 == 0;
            if (isFirst)
                desk.advance(voice::TargetIndex::windowsKept);
            const auto begun = Clock::now();
            index.build({}, [&size](const auto& list) { size = list->targets.size(); });
            desk.runPosted();
            (isFirst ? first : again).add(Clock::now() - begun);
        }
        print("index", {first, again});
        if (!wantsJson())
            std::printf("%zu targets, both lists of a build together\n", size);
    }

    void print(const char* name, const std::vector<Series>& series) {
        printTable(series);
        if (!wantsJson())
            std::printf("\n");
        result_.insert(QString::fromLatin1(name), toJson(series));
    }

    const int rounds_;
    const std::vector<JumpTarget> targets_;
    UseCounts uses_;
    bool isSame_ = true;
    QJsonObject result_;
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    using skipnest::bench::numberOption;
    return skipnest::bench::RankBench(numberOption("targets", 100'000), numberOption("rounds", 20))
        .run();
}
