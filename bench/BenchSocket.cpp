// SPDX-License-Identifier: Apache-2.0
// Ten thousand jumps through the control socket, half of them down one connection, half with a
// connection each: what stays behind in memory and descriptors. `skipnest jump` beside it shows
// what starting a process adds.
#include "bench/Bench.h"
#include "bench/ControlConnection.h"
#include "bench/ProcessFigures.h"
#include "tests/e2e/Fixtures.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>

#include <cstdio>

namespace skipnest::bench {
namespace {

class SocketSoak {
public:
    int run(int jumps) {
        requirePrograms(session_);
        for (const QString& name : names_) {
            agent_.bind({name, e2e::installTerminal(session_, name),
                         QStringLiteral("ctrl+alt+") + name.back().toLower()});
            e2e::openTerminal(session_, name);
        }
        if (!agent_.start())
            giveUp(QStringLiteral("the agent does not answer"));
        const pid_t pid = agent_.process().pid();
        Series one{QStringLiteral("one connection"), {}, 0};
        Series each{QStringLiteral("a connection each"), {}, 0};
        Series program{QStringLiteral("skipnest jump (a process each)"), {}, 0};
        Series warmUp;
        downOneConnection(warmUp, jumps / 20);
        const qint64 residentBefore = memory(pid, "Rss");
        const qint64 dirtyBefore = memory(pid, "Private_Dirty");
        const int descriptorsBefore = openDescriptors(pid);
        downOneConnection(one, jumps / 2);
        for (int count = 0; count < jumps / 2; ++count)
            measure(each, [&] { return ControlConnection(path()).jump(next()); });
        const auto growth = memory(pid, "Rss") - residentBefore;
        const auto dirtyGrowth = memory(pid, "Private_Dirty") - dirtyBefore;
        // The last connection is closed when the agent gets round to it.
        (void)e2e::eventually([&] { return openDescriptors(pid) <= descriptorsBefore; });
        const int leaked = openDescriptors(pid) - descriptorsBefore;
        for (int count = 0; count < 100; ++count)
            measure(program, [&] {
                return agent_.command({QStringLiteral("jump"), next()}).exitCode == 0;
            });
        printTable({one, each, program});
        if (!wantsJson())
            std::printf("after %d jumps: resident %+lld KiB of %lld, private dirty %+lld KiB, "
                        "descriptors %+d of %d\n",
                        jumps, static_cast<long long>(growth),
                        static_cast<long long>(residentBefore), static_cast<long long>(dirtyGrowth),
                        leaked, descriptorsBefore);
        QJsonObject result = toJson({one, each, program});
        result.insert(QStringLiteral("rssGrowthKb"), growth);
        result.insert(QStringLiteral("privateDirtyGrowthKb"), dirtyGrowth);
        result.insert(QStringLiteral("descriptorGrowth"), leaked);
        printJson(result);
        return 0;
    }

private:
    QString path() const {
        return session_.runtimeFolder() + QStringLiteral("/Skipnest/control.sock");
    }

    QString next() { return names_[static_cast<qsizetype>(++count_ % 2)]; }

    template <typename Jump> void measure(Series& series, Jump jump) {
        const auto started = e2e::Clock::now();
        if (jump())
            series.add(e2e::Clock::now() - started);
        else
            ++series.misfires;
    }

    void downOneConnection(Series& series, int count) {
        ControlConnection connection(path());
        for (int index = 0; index < count; ++index)
            measure(series, [&] { return connection.jump(next()); });
    }

    e2e::DesktopSession session_{e2e::WindowManager::openbox};
    e2e::Agent agent_{session_};
    QStringList names_{QStringLiteral("FixtureOne"), QStringLiteral("FixtureTwo")};
    unsigned count_ = 1; // the second window is in front
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return skipnest::bench::SocketSoak().run(skipnest::bench::numberOption("jumps", 10000));
}
