// SPDX-License-Identifier: Apache-2.0
// What the agent costs while nobody presses anything: times each thread woke up, and memory that is
// its alone. sxhkd with the same chords beside it.
#include "bench/Bench.h"
#include "bench/ProcessFigures.h"
#include "tests/e2e/Fixtures.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>

#include <cstdio>
#include <thread>

namespace skipnest::bench {
namespace {

using namespace std::chrono_literals;

constexpr QStringView keys = u"asdfghjklq";
constexpr auto settling = 3s; // caches and first timers of the start

QJsonObject difference(const QString& name, const std::vector<ThreadSwitches>& before, pid_t pid) {
    QJsonArray threads;
    for (const ThreadSwitches& now : contextSwitches(pid)) {
        qint64 voluntary = now.voluntary;
        qint64 involuntary = now.involuntary;
        for (const ThreadSwitches& then : before) {
            if (then.thread == now.thread) {
                voluntary -= then.voluntary;
                involuntary -= then.involuntary;
            }
        }
        threads.append(QJsonObject{{QStringLiteral("thread"), now.thread},
                                   {QStringLiteral("voluntary"), voluntary},
                                   {QStringLiteral("involuntary"), involuntary}});
        if (!wantsJson())
            std::printf("%-10s %-28s %6lld voluntary %6lld involuntary\n", qPrintable(name),
                        qPrintable(now.thread), static_cast<long long>(voluntary),
                        static_cast<long long>(involuntary));
    }
    const qint64 resident = memory(pid, "Rss");
    const qint64 dirty = memory(pid, "Private_Dirty");
    if (!wantsJson())
        std::printf("%-10s resident %.1f MB, private dirty %.1f MB, %d descriptors\n",
                    qPrintable(name), static_cast<double>(resident) / 1024,
                    static_cast<double>(dirty) / 1024, openDescriptors(pid));
    return {{QStringLiteral("name"), name},
            {QStringLiteral("threads"), threads},
            {QStringLiteral("rssKb"), resident},
            {QStringLiteral("privateDirtyKb"), dirty},
            {QStringLiteral("descriptors"), openDescriptors(pid)}};
}

int measure(int seconds) {
    e2e::DesktopSession session(e2e::WindowManager::openbox);
    requirePrograms(session);
    e2e::Agent agent(session);
    const QString entry = e2e::installTerminal(session, QStringLiteral("FixtureOne"));
    e2e::openTerminal(session, QStringLiteral("FixtureOne"));
    QFile file(session.home() + QStringLiteral("/sxhkdrc"));
    if (!file.open(QIODevice::WriteOnly))
        giveUp(file.fileName());
    for (const QChar key : keys) {
        agent.bind({QString(key), entry, QStringLiteral("ctrl+alt+") + key});
        file.write(QStringLiteral("ctrl + super + %1\n  true\n").arg(key).toUtf8());
    }
    file.close();
    if (!agent.start())
        giveUp(QStringLiteral("the agent does not answer"));
    e2e::ChildProcess daemon =
        session.start({QStringLiteral("sxhkd"), QStringLiteral("-c"), file.fileName()});

    std::this_thread::sleep_for(settling);
    const auto ours = contextSwitches(agent.process().pid());
    const auto theirs = contextSwitches(daemon.pid());
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    if (!wantsJson())
        std::printf("%d s idle, 10 shortcuts, load average %.2f\n", seconds, loadAverage());
    QJsonArray programs{difference(QStringLiteral("skipnest"), ours, agent.process().pid())};
    if (daemon.running())
        programs.append(difference(QStringLiteral("sxhkd"), theirs, daemon.pid()));
    printJson({{QStringLiteral("seconds"), seconds},
               {QStringLiteral("loadAverage"), loadAverage()},
               {QStringLiteral("programs"), programs}});
    return 0;
}

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return skipnest::bench::measure(skipnest::bench::numberOption("seconds", 60));
}
