// SPDX-License-Identifier: Apache-2.0
// The switcher's bar over an application with 20 windows, previews on: from the press of the
// shortcut until its first pixel is on the screen and until the last preview is, from Return until
// the chosen window is active, and whether opening and closing it over and over leaves anything
// behind.
//
// Options: --rounds N, --windows N, --cycles N (0 leaves the repetition out).
#include "bench/Bench.h"
#include "bench/OverlayWatch.h"
#include "bench/ProcessFigures.h"
#include "bench/XResources.h"
#include "tests/e2e/Chord.h"
#include "tests/e2e/Fixtures.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <thread>

namespace skipnest::bench {
namespace {

using namespace std::chrono_literals;
using e2e::chord;
using e2e::Chord;
using e2e::Clock;

constexpr auto limit = 2s;
// Nothing has changed for so long: the previews are in.
constexpr auto rest = 150ms;
// What the last round set off is over by then.
constexpr auto breath = 40ms;
constexpr xcb_keycode_t returnKey = 36;
constexpr xcb_keycode_t escapeKey = 9;
constexpr xcb_keycode_t rightKey = 114;

// An application with a picture as its icon and this many windows, the last of them in front.
std::vector<xcb_window_t> openWindows(e2e::DesktopSession& session, const QString& name,
                                      int count) {
    std::vector<xcb_window_t> windows;
    for (int i = 0; i < count; ++i)
        windows.push_back(e2e::openTerminal(session, name));
    return windows;
}

QString installWithIcon(e2e::DesktopSession& session, const QString& name) {
    const QString path = e2e::installTerminal(session, name);
    QFile entry(path);
    if (!entry.open(QIODevice::Append) || entry.write("Icon=xterm-color\n") < 0)
        giveUp(path);
    return path;
}

class SwitcherRace {
public:
    int run(int rounds, int windows, int cycles) {
        requirePrograms(session_);
        start(windows);
        Series painted{QStringLiteral("press -> first painted pixel"), {}, 0};
        Series complete{QStringLiteral("press -> last preview painted"), {}, 0};
        Series bare{QStringLiteral("bare activation (floor)"), {}, 0};
        Series chosen{QStringLiteral("Return -> chosen window active"), {}, 0};
        for (int round = 0; round < rounds; ++round) {
            measurePainted(painted);
            measureActivation(round % 2 == 0 ? bare : chosen, round % 2 == 0);
            measureActivation(round % 2 == 0 ? chosen : bare, round % 2 != 0);
        }
        for (int round = 0; round < std::min(rounds, 30); ++round)
            measureComplete(complete);
        const QJsonArray repeated = repeat(cycles);
        // Last: the end of its desktop ends what was started on ours, too.
        const Series menu = measureMenu(std::min(rounds, 30), windows);
        if (!wantsJson())
            std::printf("%d windows; focus taken from the application: %d times\n", windows,
                        focusTaken_);
        printTable({painted, complete, menu});
        printTable({bare, chosen});
        if (!wantsJson())
            std::printf("The menu is timed from the start of its process, the bar from the key: "
                        "the menu is a process a press.\n");
        QJsonObject result = toJson({painted, complete, menu, bare, chosen});
        result.insert(QStringLiteral("focusTaken"), focusTaken_);
        result.insert(QStringLiteral("cycles"), repeated);
        printJson(result);
        return 0;
    }

private:
    void start(int windows) {
        const QString name = QStringLiteral("Fixture");
        agent_.bind({name, installWithIcon(session_, name), QStringLiteral("ctrl+alt+j")});
        windows_ = openWindows(session_, name, windows);
        const Chord floorKeys = chord(QStringLiteral("ctrl+alt+q"));
        const Chord otherKeys = chord(QStringLiteral("ctrl+alt+w"));
        session_.startBackground({floorBinary(), QString::number(floorKeys.key),
                                  QString::number(floorKeys.modifierMask()),
                                  QString::number(windows_[0]), QString::number(otherKeys.key),
                                  QString::number(otherKeys.modifierMask()),
                                  QString::number(windows_[1])});
        if (!agent_.start())
            giveUp(QStringLiteral("the agent does not answer"));
        if (!e2e::eventually([&] { return isTaken(session_.connection(), keys_); }) ||
            !e2e::eventually([&] { return isTaken(session_.connection(), otherKeys); }))
            giveUp(QStringLiteral("the keys are not held"));
        overlays_.emplace(session_.display());
        // Whatever is done once is done.
        for (int i = 0; i < 3; ++i) {
            session_.keyboard().hold(keys_);
            const auto bar = overlays_->waitForOne(limit);
            if (!bar)
                giveUp(QStringLiteral("the bar does not appear"));
            place_ = *bar;
            std::this_thread::sleep_for(300ms);
            session_.keyboard().release(keys_);
            close();
        }
        background_ = pixel();
    }

    // Near its lower edge: what is painted last where it is painted in parts.
    [[nodiscard]] std::optional<std::uint32_t> pixel() {
        return overlays_->pixel(place_.x + place_.width / 2, place_.y + place_.height - 6);
    }
    [[nodiscard]] bool pixelChanges(bool toBar) {
        const auto until = Clock::now() + limit;
        while (Clock::now() < until)
            if ((pixel() != background_) == toBar)
                return true;
        return false;
    }

    void press(xcb_keycode_t key) {
        Chord bare;
        bare.key = key;
        session_.keyboard().pressKey(bare);
        session_.keyboard().release(bare);
    }

    void close() {
        press(escapeKey);
        if (!overlays_->waitForNone(limit))
            giveUp(QStringLiteral("the bar stays"));
        std::this_thread::sleep_for(breath);
    }

    void measurePainted(Series& series) {
        background_ = pixel();
        const xcb_window_t active = session_.windows().active();
        const xcb_window_t focus = overlays_->focus();
        session_.keyboard().holdModifiers(keys_);
        session_.connection().sync();
        const auto pressed = Clock::now();
        session_.keyboard().pressKey(keys_);
        if (pixelChanges(true))
            series.add(Clock::now() - pressed);
        else
            ++series.misfires;
        (void)overlays_->waitForOne(limit);
        if (session_.windows().active() != active || overlays_->focus() != focus)
            ++focusTaken_;
        session_.keyboard().release(keys_);
        close();
    }

    void measureComplete(Series& series) {
        background_ = pixel();
        session_.keyboard().holdModifiers(keys_);
        session_.connection().sync();
        const auto pressed = Clock::now();
        session_.keyboard().pressKey(keys_);
        auto changed = pressed;
        std::size_t last = 0;
        if (!pixelChanges(true))
            ++series.misfires;
        while (Clock::now() - changed < rest) {
            const auto asked = Clock::now();
            if (const std::size_t now = overlays_->contentHash(place_); now != last) {
                changed = asked;
                last = now;
            }
        }
        series.add(changed - pressed);
        session_.keyboard().release(keys_);
        (void)overlays_->waitForOne(limit);
        close();
    }

    void measureActivation(Series& series, bool isBare) {
        const xcb_window_t before = session_.windows().active();
        if (isBare) {
            const bool isFirst = before == windows_[0];
            const auto took = session_.keyboard().pressUntilActive(
                chord(isFirst ? QStringLiteral("ctrl+alt+w") : QStringLiteral("ctrl+alt+q")),
                windows_[isFirst ? 1 : 0]);
            took ? series.add(*took) : static_cast<void>(++series.misfires);
            std::this_thread::sleep_for(breath);
            return;
        }
        session_.keyboard().hold(keys_);
        session_.keyboard().release(keys_);
        (void)overlays_->waitForOne(limit);
        press(rightKey);
        std::this_thread::sleep_for(150ms);
        session_.connection().drain();
        const auto pressed = Clock::now();
        press(returnKey);
        const auto isAnother = [&] {
            const auto active =
                session_.connection().numbers(session_.connection().root(), "_NET_ACTIVE_WINDOW");
            return !active.empty() && active.front() != 0 && active.front() != before;
        };
        if (session_.connection().waitForRootProperty("_NET_ACTIVE_WINDOW", isAnother, limit))
            series.add(Clock::now() - pressed);
        else
            ++series.misfires;
        (void)overlays_->waitForNone(limit);
        std::this_thread::sleep_for(breath);
    }

    // A menu of windows that is a process of its own, on a desktop like ours.
    [[nodiscard]] static Series measureMenu(int rounds, int windows) {
        Series series{QStringLiteral("rofi: process start -> mapped"), {}, 0};
        if (QStandardPaths::findExecutable(QStringLiteral("rofi")).isEmpty())
            return series;
        e2e::DesktopSession session(e2e::WindowManager::openbox);
        requirePrograms(session);
        (void)openWindows(session, QStringLiteral("Fixture"), windows);
        OverlayWatch overlays(session.display());
        for (int round = 0; round < rounds; ++round) {
            const auto started = Clock::now();
            e2e::ChildProcess menu = session.start(
                {QStringLiteral("rofi"), QStringLiteral("-show"), QStringLiteral("window")});
            if (overlays.waitForOne(limit))
                series.add(Clock::now() - started);
            else
                ++series.misfires;
            menu.end();
            (void)overlays.waitForNone(limit);
            std::this_thread::sleep_for(breath);
        }
        return series;
    }

    [[nodiscard]] QJsonArray repeat(int cycles) {
        QJsonArray rows;
        const pid_t pid = agent_.process().pid();
        for (int cycle = 1; cycle <= cycles; ++cycle) {
            session_.keyboard().hold(keys_);
            session_.keyboard().release(keys_);
            const auto bar = overlays_->waitForOne(limit);
            if (!bar)
                giveUp(QStringLiteral("the bar does not appear in cycle %1").arg(cycle));
            // Every second time early, with captures under way.
            if (cycle % 2 == 0)
                std::this_thread::sleep_for(60ms);
            press(escapeKey);
            if (!overlays_->waitForNone(limit))
                giveUp(QStringLiteral("the bar stays in cycle %1").arg(cycle));
            if (cycle != 100 && cycle != 1000 && cycle != 10000 && cycle != cycles)
                continue;
            std::this_thread::sleep_for(1s);
            const QJsonObject row{{QStringLiteral("cycle"), cycle},
                                  {QStringLiteral("privateDirtyKb"), memory(pid, "Private_Dirty")},
                                  {QStringLiteral("descriptors"), openDescriptors(pid)},
                                  {QStringLiteral("pixmaps"),
                                   pixmapsOf(session_.connection(), overlays_->lastWindow())}};
            if (!wantsJson())
                std::printf("after %5d cycles: private dirty %6lld KiB, descriptors %d, "
                            "pixmaps at the X server %d\n",
                            cycle, row.value(QStringLiteral("privateDirtyKb")).toInteger(),
                            row.value(QStringLiteral("descriptors")).toInt(),
                            row.value(QStringLiteral("pixmaps")).toInt());
            rows.append(row);
        }
        return rows;
    }

    e2e::DesktopSession session_{e2e::WindowManager::openbox};
    e2e::Agent agent_{session_};
    Chord keys_ = chord(QStringLiteral("ctrl+alt+j"));
    std::vector<xcb_window_t> windows_;
    std::optional<OverlayWatch> overlays_;
    Overlay place_;
    std::optional<std::uint32_t> background_;
    int focusTaken_ = 0;
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    using skipnest::bench::numberOption;
    const QCoreApplication application(argc, argv);
    return skipnest::bench::SwitcherRace().run(numberOption("rounds", 100),
                                               std::max(2, numberOption("windows", 20)),
                                               numberOption("cycles", 1000));
}
