// SPDX-License-Identifier: Apache-2.0
// From exec until the last of 200 hotkeys is held, as another client of the X server sees it: 100
// shortcuts and the hide combo derived from each. sxhkd with the same 200 chords beside it.
#include "bench/Bench.h"
#include "tests/e2e/Chord.h"
#include "tests/e2e/Fixtures.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <cstdio>
#include <thread>

namespace skipnest::bench {
namespace {

using namespace std::chrono_literals;

constexpr int shortcuts = 100;

// "ctrl+alt+1" …: pairs of modifiers without Shift, which the hide combos add.
QStringList chords() {
    QStringList result;
    for (const char* modifiers : {"ctrl+alt+", "cmd+alt+", "ctrl+cmd+"}) {
        for (const QChar key : e2e::alphanumericKeys())
            result.append(QString::fromLatin1(modifiers) + key);
    }
    return result.mid(0, shortcuts);
}

class StartRace {
public:
    int run(int rounds) {
        requirePrograms(session_);
        const QString entry = e2e::installTerminal(session_, QStringLiteral("FixtureOne"));
        agent_.set(QStringLiteral("voiceSearch"), false);
        for (const QString& text : chords())
            agent_.bind({text, entry, text});
        agent_.writeConfiguration();
        const bool hasDaemon = !QStandardPaths::findExecutable(QStringLiteral("sxhkd")).isEmpty();
        writeDaemonConfiguration();
        Series daemon{QStringLiteral("sxhkd, 200 chords"), {}, 0};
        Series ours{QStringLiteral("skipnest, 100 shortcuts + hides"), {}, 0};
        for (int round = 0; round < rounds; ++round) {
            if (hasDaemon) {
                measure(daemon, [this] {
                    return session_.start(
                        {QStringLiteral("sxhkd"), QStringLiteral("-c"), daemonPath()});
                });
            }
            measure(ours, [this] { return agent_.startAnother(); });
        }
        const auto refused = agent_.log().filter(QStringLiteral("REGISTER FAILED")).size();
        const auto registered = agent_.log().filter(QStringLiteral("hotkey registered")).size();
        const std::vector<Series> result =
            hasDaemon ? std::vector{daemon, ours} : std::vector{ours};
        printTable(result);
        if (!wantsJson())
            std::printf("log: %lld registered, %lld refused in %d starts\n",
                        static_cast<long long>(registered), static_cast<long long>(refused),
                        rounds);
        printJson(toJson(result));
        return 0;
    }

private:
    QString daemonPath() const { return session_.home() + QStringLiteral("/sxhkdrc"); }

    void writeDaemonConfiguration() {
        QFile file(daemonPath());
        if (!file.open(QIODevice::WriteOnly))
            giveUp(daemonPath());
        for (QString text : chords()) {
            text.replace(QStringLiteral("cmd"), QStringLiteral("super"));
            text.replace(QStringLiteral("+"), QStringLiteral(" + "));
            file.write(
                (text + QStringLiteral("\n  true\nshift + ") + text + QStringLiteral("\n  true\n"))
                    .toUtf8());
        }
    }

    template <typename Start> void measure(Series& series, Start start) {
        const e2e::Chord last = e2e::chord(chords().last() + QStringLiteral("+shift"));
        const auto taken = [&] { return isTaken(session_.connection(), last); };
        if (taken())
            giveUp(QStringLiteral("the last chord is held before the start"));
        const auto started = e2e::Clock::now();
        e2e::ChildProcess process = start();
        bool armed = false;
        while (!armed && e2e::Clock::now() - started < 5s) {
            // Asking holds the server up: not so often that it slows down what it asks about.
            std::this_thread::sleep_for(500us);
            armed = taken();
        }
        if (armed)
            series.add(e2e::Clock::now() - started);
        else
            ++series.misfires;
        process.end();
        if (!e2e::eventually([&] { return !taken(); }))
            giveUp(QStringLiteral("chords are held after the end of their program"));
    }

    e2e::DesktopSession session_{e2e::WindowManager::openbox};
    e2e::Agent agent_{session_};
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return skipnest::bench::StartRace().run(skipnest::bench::numberOption("rounds", 15));
}
