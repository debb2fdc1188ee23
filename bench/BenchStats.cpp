// SPDX-License-Identifier: Apache-2.0
// The statistics of twenty years and 100,000 targets: what counting adds to a key press, also right
// after a save began, what reading the file adds to a start, and what each figure costs.
#include "bench/Bench.h"
#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "platform/SystemWallClock.h"
#include "platform/linux/PosixFiles.h"
#include "stats/JumpStats.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <chrono>
#include <cstdio>

namespace skipnest::bench {
namespace {

using Clock = std::chrono::steady_clock;
using stats::JumpStats;

constexpr int years = 20;

struct Silent final : platform::Diagnostics {
    void log(const QString& line) override { giveUp(line); }
    void print(const QString&) override {}
};

QString targetName(int number) {
    return QStringLiteral("Straße und Übersicht %1").arg(number);
}

class StatsBench {
public:
    StatsBench(int jumps, int targets, int rounds)
        : jumps_(jumps), targets_(targets), rounds_(rounds) {
        app_.supportFolder = folder_.filePath(QStringLiteral("support"));
    }

    int run() {
        makeFile();
        measureLoading();
        stats_ = make();
        measureFigures();
        measureRecording();
        printJson(result_);
        return 0;
    }

private:
    std::unique_ptr<JumpStats> make() {
        return std::make_unique<JumpStats>(files_, scheduler_, executor_, clock_, silent_, app_);
    }

    void makeFile() {
        stats::StatsStore store;
        const QDate today = clock_.today();
        for (QDate day = today.addYears(-years); day < today; day = day.addDays(1))
            store.byDay[day] = 40;
        for (int target = 0; target < targets_; ++target)
            store.byTarget[targetName(target)] = target;
        store.total = 40 * static_cast<std::int64_t>(store.byDay.size());
        store.firstUse = clock_.nowUtc();
        const QString path = app_.supportFolder + QStringLiteral("/stats.json");
        if (!files_.createFolder(app_.supportFolder) ||
            !platform::writeDurably(files_, path, stats::encodeStats(store)))
            giveUp(path);
        if (!wantsJson())
            std::printf("%zu days, %d targets, %lld bytes, load average %.2f\n", store.byDay.size(),
                        targets_, static_cast<long long>(QFileInfo(path).size()), loadAverage());
    }

    void print(const char* name, const std::vector<Series>& series) {
        printTable(series);
        result_.insert(QString::fromLatin1(name), toJson(series));
    }

    void measureLoading() {
        Series parsing{QStringLiteral("parsing as JSON alone"), {}, 0};
        Series loading{QStringLiteral("start -> statistics from file"), {}, 0};
        const auto bytes =
            files_.read(app_.supportFolder + QStringLiteral("/stats.json"), stats::largestStats);
        for (int round = 0; round < 20; ++round) {
            const auto begun = Clock::now();
            const auto document = QJsonDocument::fromJson(*bytes);
            parsing.add(Clock::now() - begun);
            const auto loadBegun = Clock::now();
            const auto stats = make();
            loading.add(Clock::now() - loadBegun);
            if (stats->store().byTarget.size() != targets_ || !document.isObject())
                giveUp(QStringLiteral("not all was read"));
        }
        print("loading", {loading, parsing});
    }

    void measureFigures() {
        stats_->record(JumpStats::Kind::keyboard, targetName(0));
        const auto figure = [](const char* name, const auto& ask) {
            Series series{QString::fromLatin1(name), {}, 0};
            for (int round = 0; round < 1000; ++round) {
                const auto begun = Clock::now();
                if (!ask())
                    ++series.misfires;
                series.add(Clock::now() - begun);
            }
            return series;
        };
        print("figures",
              {
                  figure("weekJumps", [this] { return stats_->weekJumps() > 0; }),
                  figure("streakDays", [this] { return stats_->streakDays() > 365 * years; }),
                  figure("12 weeks", [this] { return stats_->weeks(12).size() == 12; }),
                  figure("nextMilestone", [this] { return stats_->nextMilestone().has_value(); }),
                  figure("weeklyRecap", [this] { return stats_->weeklyRecap().has_value(); }),
                  figure("nextTip", [this] { return stats_->nextTip().has_value(); }),
              });
    }

    // Each jump is an event of its own: what is posted runs between two, and is not measured.
    void recordInto(Series& series, int number) {
        const QString target = targetName(number);
        const auto begun = Clock::now();
        stats_->record(JumpStats::Kind::keyboard, target);
        series.add(Clock::now() - begun);
    }

    void measureRecording() {
        Series counting{QStringLiteral("record"), {}, 0};
        for (int jump = 0; jump < jumps_; ++jump) {
            // Spread over the table, as many as a person may have in use.
            recordInto(counting, jump % 500 * 191 % targets_);
            QCoreApplication::processEvents();
        }
        Series fresh{QStringLiteral("record, a target never seen"), {}, 0};
        for (int jump = 0; jump < 1000; ++jump) {
            recordInto(fresh, targets_ + jump);
            QCoreApplication::processEvents();
        }
        // With and without a save on the other thread, after the same rest.
        Series resting{QStringLiteral("record, first after 2 s of rest"), {}, 0};
        Series saving{QStringLiteral("record, first after a save began"), {}, 0};
        for (int round = 0; round < rounds_; ++round) {
            stats_->flush();
            if (round % 2 == 0)
                stats_->markUsed(QStringLiteral("round %1").arg(round));
            bool isDue = false;
            const auto wake =
                scheduler_.after(std::chrono::milliseconds(2010), "bench", [&] { isDue = true; });
            while (!isDue)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            recordInto(round % 2 == 0 ? saving : resting, round);
            QCoreApplication::processEvents();
        }
        stats_->flush();
        print("recording", {counting, fresh, resting, saving});
        if (!wantsJson()) {
            for (const Series& series : {counting, fresh, resting, saving})
                std::printf("%-34s p50 %.2f  p95 %.2f  p99.9 %.2f  max %.1f µs\n",
                            qUtf8Printable(series.name), series.at(0.5) * 1e3,
                            series.at(0.95) * 1e3, series.at(0.999) * 1e3, series.at(1) * 1e3);
        }
    }

    const int jumps_;
    const int targets_;
    const int rounds_;
    QTemporaryDir folder_;
    QJsonObject result_;
    platform::AppInfo app_;
    platform::QtScheduler scheduler_;
    linuxdesktop::PosixFiles files_;
    platform::QtExecutor executor_{scheduler_};
    platform::SystemWallClock clock_;
    Silent silent_;
    std::unique_ptr<JumpStats> stats_;
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    using skipnest::bench::numberOption;
    return skipnest::bench::StatsBench(numberOption("jumps", 100'000),
                                       numberOption("targets", 100'000), numberOption("rounds", 20))
        .run();
}
