// SPDX-License-Identifier: Apache-2.0
// What a person would try first, on a private desktop: three real programs, real keys, a table of
// what arrived and how long it took. Usage: skipnest_demo FOLDER (for the screenshots).
#include "tests/e2e/Agent.h"
#include "tests/e2e/DesktopSession.h"
#include "tests/e2e/Fixtures.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <array>
#include <cstdio>
#include <optional>

namespace skipnest::e2e {
namespace {

struct Target {
    const char* name;
    const char* desktopId; // installed with the system
    const char* className;
    const char* chord;
    const char* keyName;
};

constexpr std::array<Target, 3> targets{{
    {"Mousepad", "org.xfce.mousepad", "Mousepad", "ctrl+alt+j", "Ctrl + Alt + J"},
    {"File manager", "pcmanfm-qt", "pcmanfm-qt", "ctrl+alt+k", "Ctrl + Alt + K"},
    {"XTerm", "debian-xterm", "XTerm", "ctrl+alt+l", "Ctrl + Alt + L"},
}};

constexpr int rounds = 3;

void printRow(const Target& target, const char* how, std::optional<Clock::duration> took) {
    std::printf("  %-14s %-16s %-16s ", target.name, target.keyName, how);
    if (took)
        std::printf("%-8s %8.1f\n", "yes",
                    std::chrono::duration<double, std::milli>(*took).count());
    else
        std::printf("%-8s %8s\n", "NO", "-");
    std::fflush(stdout);
}

class Demo {
public:
    explicit Demo(const QString& folder) : pictures_(folder) {
        pictures_.mkpath(QStringLiteral("."));
    }

    int run() {
        if (!session_.failure().isEmpty())
            return fail(session_.failure());
        for (const Target& target : targets) {
            const QString entry = systemEntry(QString::fromLatin1(target.desktopId));
            if (entry.isEmpty())
                return fail(QString::fromLatin1(target.name) + QStringLiteral(" is not installed"));
            agent_.bind(
                {QString::fromLatin1(target.name), entry, QString::fromLatin1(target.chord)});
        }
        if (!agent_.start())
            return fail(QStringLiteral("the agent does not answer"));
        std::printf("  %-14s %-16s %-16s %-8s %8s\n", "target", "key", "how", "arrived", "ms");
        for (const Target& target : targets)
            startByKey(target);
        for (int round = 0; round < rounds; ++round) {
            for (const Target& target : targets)
                jumpByKey(target, "running");
        }
        for (const Target& target : targets) {
            session_.windows().minimise(windowOf(target));
            jumpByKey(target, "minimised");
        }
        session_.windows().moveToDesktop(windowOf(targets[0]), 1);
        jumpByKey(targets[0], "other desktop");
        picture("other-desktop");
        if (missed_ > 0)
            session_.keepEvidence(pictures_.filePath(QStringLiteral("failure")));
        return missed_ == 0 ? 0 : 1;
    }

private:
    int fail(const QString& reason) {
        std::fprintf(stderr, "skipnest_demo: %s\n", qPrintable(reason));
        session_.keepEvidence(pictures_.filePath(QStringLiteral("failure")));
        return 1;
    }

    xcb_window_t windowOf(const Target& target) {
        const auto found = session_.windows().ofClass(QString::fromLatin1(target.className));
        return found.empty() ? xcb_window_t{XCB_WINDOW_NONE} : found.front();
    }

    void picture(const char* name) {
        const QString file = QString::fromLatin1(name) + QStringLiteral(".png");
        if (!session_.screenshot(pictures_.filePath(file)))
            std::fprintf(stderr, "skipnest_demo: no picture %s\n", qPrintable(file));
    }

    void report(const Target& target, const char* how, std::optional<Clock::duration> took) {
        missed_ += took ? 0 : 1;
        printRow(target, how, took);
    }

    void startByKey(const Target& target) {
        const auto pressed = Clock::now();
        session_.keyboard().tap(QString::fromLatin1(target.chord));
        std::optional<Clock::duration> took;
        if (session_.windows().becomesActive(QString::fromLatin1(target.className)))
            took = Clock::now() - pressed;
        report(target, "not running", took);
        picture(target.desktopId);
    }

    void jumpByKey(const Target& target, const char* how) {
        report(target, how,
               session_.keyboard().pressUntilActive(chord(QString::fromLatin1(target.chord)),
                                                    windowOf(target)));
    }

    QDir pictures_;
    DesktopSession session_{WindowManager::openbox};
    Agent agent_{session_};
    int missed_ = 0;
};

} // namespace
} // namespace skipnest::e2e

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: skipnest_demo FOLDER\n", stderr);
        return 2;
    }
    return skipnest::e2e::Demo(QDir(QString::fromLocal8Bit(argv[1])).absolutePath()).run();
}
