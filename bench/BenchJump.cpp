// SPDX-License-Identifier: Apache-2.0
// Key press until the target is the active window: the floor, skipnest, and sxhkd with wmctrl,
// press by press in one session, so that whatever the machine does it does to all of them. skipnest
// runs as it is shipped: configuration, log and statistics on.
#include "bench/Bench.h"
#include "tests/e2e/Chord.h"
#include "tests/e2e/Fixtures.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <cstdio>
#include <thread>

namespace skipnest::bench {
namespace {

using e2e::chord;

// Between presses: what the last one set off (focus events, redraws) is over by then.
constexpr std::chrono::milliseconds breath{25};

struct Contestant {
    Series series;
    std::array<QString, 2> chords; // to the first and to the second window
    int everyRound = 1;            // takes part in each n-th round
};

class JumpRace {
public:
    explicit JumpRace(int rounds) : rounds_(rounds) {}

    int run() {
        requirePrograms(session_);
        const QString one = QStringLiteral("FixtureOne");
        const QString two = QStringLiteral("FixtureTwo");
        const QString entryOne = e2e::installTerminal(session_, one);
        const QString entryTwo = e2e::installTerminal(session_, two);
        windows_ = {e2e::openTerminal(session_, one), e2e::openTerminal(session_, two)};
        startFloor();
        startAgent(one, entryOne, two, entryTwo);
        startDaemon(one, two);
        for (Contestant& contestant : contestants_)
            arm(contestant);
        for (int round = 0; round < rounds_; ++round)
            runRound(round);
        std::vector<Series> result;
        for (const Contestant& contestant : contestants_)
            result.push_back(contestant.series);
        printTable(result);
        printJson(toJson(result));
        return 0;
    }

private:
    void startFloor() {
        const std::array<QString, 2> chords{QStringLiteral("ctrl+alt+q"),
                                            QStringLiteral("ctrl+alt+w")};
        QStringList command{floorBinary()};
        for (std::size_t index = 0; index < chords.size(); ++index) {
            const e2e::Chord keys = chord(chords[index]);
            command << QString::number(keys.key) << QString::number(keys.modifierMask())
                    << QString::number(windows_[index]);
        }
        session_.startBackground(command);
        contestants_.push_back({{QStringLiteral("floor (bare xcb)"), {}, 0}, chords, 1});
    }

    void startAgent(const QString& one, const QString& entryOne, const QString& two,
                    const QString& entryTwo) {
        const std::array<QString, 2> chords{QStringLiteral("ctrl+alt+j"),
                                            QStringLiteral("ctrl+alt+k")};
        agent_.bind({one, entryOne, chords[0]});
        agent_.bind({two, entryTwo, chords[1]});
        if (!agent_.start())
            giveUp(QStringLiteral("the agent does not answer"));
        contestants_.push_back({{QStringLiteral("skipnest"), {}, 0}, chords, 1});
    }

    void startDaemon(const QString& one, const QString& two) {
        if (QStandardPaths::findExecutable(QStringLiteral("sxhkd")).isEmpty() ||
            QStandardPaths::findExecutable(QStringLiteral("wmctrl")).isEmpty())
            return;
        const QString path = session_.home() + QStringLiteral("/sxhkdrc");
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            giveUp(path);
        file.write(QStringLiteral("ctrl + alt + u\n  wmctrl -xa %1\nctrl + alt + i\n"
                                  "  wmctrl -xa %2\n")
                       .arg(one, two)
                       .toUtf8());
        file.close();
        session_.startBackground({QStringLiteral("sxhkd"), QStringLiteral("-c"), path});
        contestants_.push_back({{QStringLiteral("sxhkd + wmctrl -xa"), {}, 0},
                                {QStringLiteral("ctrl+alt+u"), QStringLiteral("ctrl+alt+i")},
                                3});
    }

    // A contestant takes part only once its keys are held and each of them was seen to work.
    void arm(const Contestant& contestant) {
        for (const std::size_t target : {0U, 1U, 0U, 1U}) {
            const e2e::Chord keys = chord(contestant.chords[target]);
            if (!e2e::eventually([&] { return isTaken(session_.connection(), keys); }))
                giveUp(contestant.series.name + QStringLiteral(" does not hold its keys"));
            session_.windows().activate(windows_[1 - target]);
            std::this_thread::sleep_for(breath);
            if (!session_.keyboard().pressUntilActive(keys, windows_[target]))
                giveUp(contestant.series.name + QStringLiteral(" does not answer its keys"));
        }
    }

    void runRound(int round) {
        std::vector<Contestant*> order;
        for (Contestant& contestant : contestants_) {
            if (round % contestant.everyRound == 0)
                order.push_back(&contestant);
        }
        if (round % 2 == 1)
            std::ranges::reverse(order);
        for (Contestant* contestant : order)
            press(*contestant);
    }

    void press(Contestant& contestant) {
        std::this_thread::sleep_for(breath);
        const std::size_t target = session_.windows().active() == windows_[0] ? 1 : 0;
        const auto took = session_.keyboard().pressUntilActive(chord(contestant.chords[target]),
                                                               windows_[target]);
        if (took)
            contestant.series.add(*took);
        else
            ++contestant.series.misfires;
    }

    int rounds_;
    e2e::DesktopSession session_{e2e::WindowManager::openbox};
    e2e::Agent agent_{session_};
    std::array<xcb_window_t, 2> windows_{};
    std::vector<Contestant> contestants_;
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return skipnest::bench::JumpRace(skipnest::bench::numberOption("rounds", 210)).run();
}
