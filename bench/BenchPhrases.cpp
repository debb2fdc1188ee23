// SPDX-License-Identifier: Apache-2.0
// What a phrase costs to be taken apart: every phrase of the language tables, in each of the ways
// that a session asks. Splitting it into words, which each of them starts with, stands first.
#include "bench/Bench.h"
#include "voice/MessagingRouter.h"
#include "voice/PhraseDecision.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace skipnest::bench {
namespace {

using Clock = std::chrono::steady_clock;

QStringList phrases() {
    const QDir folder(QStringLiteral(SKIPNEST_PHRASES));
    QStringList all;
    for (const QString& name : folder.entryList({QStringLiteral("*.tsv")})) {
        QFile file(folder.filePath(name));
        if (name == u"known.tsv" || !file.open(QFile::ReadOnly))
            continue;
        const QStringList lines =
            QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        for (const QString& line : lines) {
            if (!line.startsWith(u"# "))
                all.append(line.section(u'\t', 0, 0));
        }
    }
    return all;
}

// Each sample is one phrase: the mean over a batch, as a single one is shorter than the clock is
// fine, and of several batches the best, as other programs take turns with this one.
template <typename Task>
Series measure(const char* name, const QStringList& all, int rounds, const Task& task) {
    constexpr int batches = 5;
    Series series{QString::fromLatin1(name), {}, 0};
    for (const QString& phrase : all) {
        auto best = std::chrono::nanoseconds::max();
        for (int batch = 0; batch < batches; ++batch) {
            const auto begun = Clock::now();
            for (int round = 0; round < rounds; ++round)
                task(phrase);
            best = std::min(best, std::chrono::nanoseconds(Clock::now() - begun) / rounds);
        }
        series.add(best);
    }
    return series;
}

int run(int rounds) {
    const QStringList all = phrases();
    if (all.isEmpty())
        giveUp(QStringLiteral("there are no phrases in " SKIPNEST_PHRASES));
    std::size_t sum = 0; // keeps the compiler from leaving the work out
    using voice::VoiceCommand;
    const auto add = [&sum](auto count) { sum += static_cast<std::size_t>(count); };
    (void)VoiceCommand::parse(all.first()); // the tables are made on first use
    const std::vector<Series> series{
        measure("words", all, rounds,
                [&](const QString& phrase) { add(VoiceCommand::tokenize(phrase).size()); }),
        measure("parse", all, rounds,
                [&](const QString& phrase) { add(VoiceCommand::parse(phrase).steps.size()); }),
        measure(
            "route", all, rounds,
            [&](const QString& phrase) { add(voice::MessagingRouter::route(phrase).has_value()); }),
        measure("understand", all, rounds,
                [&](const QString& phrase) { add(voice::understand(phrase).kind); }),
    };
    if (!wantsJson()) {
        std::printf("%lld phrases, load average %.2f\n", static_cast<long long>(all.size()),
                    loadAverage());
        for (const Series& one : series)
            std::printf("%-12s p50 %6.2f  p95 %6.2f  max %6.2f µs a phrase\n",
                        qUtf8Printable(one.name), one.at(0.5) * 1e3, one.at(0.95) * 1e3,
                        one.at(1) * 1e3);
    }
    printJson(toJson(series));
    return sum > 0 ? 0 : 1;
}

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return skipnest::bench::run(skipnest::bench::numberOption("rounds", 50));
}
