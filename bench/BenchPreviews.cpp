// SPDX-License-Identifier: Apache-2.0
// Pictures of 20 windows of 1280x800 from asking for the list until the last is there; what 50 such
// windows cost the X server, in its resident memory, with previews on; what redirection costs a
// program that draws, in turn with a window that is not redirected; and whether anything grows.
#include "bench/Bench.h"
#include "bench/ProcessFigures.h"
#include "tests/e2e/Waiting.h"

#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "platform/linux/X11ApplicationPorts.h"
#include "platform/linux/previews/X11ScreenCapture.h"

#include <QGuiApplication>
#include <QImage>

#include <sys/socket.h>
#include <unistd.h>
#include <xcb/composite.h>

#include <algorithm>
#include <cstdio>

namespace skipnest::bench {
namespace {

using namespace std::chrono_literals;
using platform::CapturableWindow;
using platform::ScreenCaptureRun;

constexpr std::size_t fewWindows = 20, manyWindows = 50;
constexpr std::uint16_t width = 1280, height = 800;
constexpr QSize pictureSize(448, 280);

class Previews {
public:
    Previews(e2e::DesktopSession& session, int cycles) : session_(session), cycles_(cycles) {}

    int run(int rounds) {
        QJsonObject result;
        serverMemory(result);
        while (windows_.size() > fewWindows) {
            xcb_destroy_window(raw(), windows_.back());
            windows_.pop_back();
        }
        session_.connection().sync();
        waitForAll();
        const auto bounded = pictures("20 windows: list and all pictures", rounds);
        growth(result);
        beTakenForACompositor();
        waitForAll();
        printTable({bounded, pictures("the same, all of them live", rounds)});
        drawing(result);
        if (!wantsJson())
            std::printf("load average %.2f\n", loadAverage());
        printJson(result);
        return 0;
    }

private:
    [[nodiscard]] xcb_connection_t* raw() { return session_.connection().raw(); }

    [[nodiscard]] xcb_window_t openWindow(bool managed) {
        const xcb_window_t window = xcb_generate_id(raw());
        const std::uint32_t values[] = {0x336699, managed ? 0U : 1U};
        xcb_create_window(raw(), XCB_COPY_FROM_PARENT, window, session_.connection().root(), 20, 20,
                          width, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
        constexpr char name[] = "bench\0Bench";
        xcb_change_property(raw(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, sizeof name, name);
        xcb_change_property(raw(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                            8, 5, name);
        xcb_map_window(raw(), window);
        session_.connection().sync();
        return window;
    }

    bool spin(const std::function<bool()>& condition,
              std::chrono::milliseconds limit = e2e::patience) {
        const auto until = e2e::Clock::now() + limit;
        while (!condition()) {
            if (e2e::Clock::now() > until)
                return false;
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
        }
        return true;
    }

    void waitForAll() {
        if (!spin([this] { return takeAll(); }, 20s))
            giveUp(QStringLiteral("not all windows have pictures"));
    }

    // Who owns this is taken for one, and then all windows are live.
    void beTakenForACompositor() {
        xcb_set_selection_owner(raw(), windows_.front(),
                                session_.connection().atom("_NET_WM_CM_S0"), XCB_CURRENT_TIME);
        session_.connection().sync();
    }

    Series pictures(const char* name, int rounds) {
        Series series{QString::fromLatin1(name), {}, 0};
        for (int round = 0; round < rounds; ++round) {
            const auto started = e2e::Clock::now();
            if (takeAll())
                series.add(e2e::Clock::now() - started);
            else
                ++series.misfires;
        }
        return series;
    }

    // True where every window had a picture.
    bool takeAll() {
        std::vector<CapturableWindow> listed;
        bool answered = false;
        const auto listing = capture_.listWindows([&](const auto& answer) {
            answered = true;
            if (answer)
                listed = *answer;
        });
        if (!spin([&answered] { return answered; }))
            return false;
        std::size_t told = 0, shown = 0;
        std::vector<ScreenCaptureRun> runs;
        for (const CapturableWindow& window : listed)
            runs.push_back(capture_.capture(window, pictureSize, [&](const QImage* picture) {
                ++told;
                shown += picture != nullptr ? 1 : 0;
            }));
        return spin([&] { return told == listed.size(); }) && shown == windows_.size();
    }

    void growth(QJsonObject& result) {
        struct Figures {
            qint64 own, server;
            int descriptors;
        };
        const auto figures = [this] {
            // The worker closes its connection after the last picture.
            (void)spin([] { return false; }, 200ms);
            return Figures{memory(getpid(), "Rss"), memory(serverProcess(), "Rss"),
                           openDescriptors(getpid())};
        };
        for (int i = 0; i < 100; ++i)
            (void)takeAll();
        const Figures before = figures();
        int failed = 0;
        for (int i = 0; i < cycles_; ++i)
            failed += takeAll() ? 0 : 1;
        const Figures after = figures();
        if (!wantsJson())
            std::printf("%d times over, %d not whole: own memory %+lld KB, the server's %+lld KB, "
                        "descriptors %+d\n",
                        cycles_, failed, static_cast<long long>(after.own - before.own),
                        static_cast<long long>(after.server - before.server),
                        after.descriptors - before.descriptors);
        result.insert(QStringLiteral("grownKb"), after.own - before.own);
        result.insert(QStringLiteral("serverGrownKb"), after.server - before.server);
        result.insert(QStringLiteral("grownDescriptors"), after.descriptors - before.descriptors);
    }

    // Draws into a window that nobody else redirects and nothing covers, plain and redirected in
    // turn.
    void drawing(QJsonObject& result) {
        const xcb_window_t window = openWindow(false);
        const xcb_gcontext_t brush = xcb_generate_id(raw());
        xcb_create_gc(raw(), brush, window, 0, nullptr);
        const auto draw = [&] {
            const auto started = e2e::Clock::now();
            for (std::uint32_t i = 0; i < 2000; ++i) {
                xcb_change_gc(raw(), brush, XCB_GC_FOREGROUND, &i);
                const xcb_rectangle_t area{static_cast<std::int16_t>(i % 900),
                                           static_cast<std::int16_t>(i % 500), 100, 100};
                xcb_poly_fill_rectangle(raw(), window, brush, 1, &area);
                if (i % 20 == 0)
                    session_.connection().sync();
            }
            session_.connection().sync();
            return e2e::Clock::now() - started;
        };
        Series plain{QStringLiteral("2000 squares into a window"), {}, 0};
        Series redirected{QStringLiteral("into one that is redirected"), {}, 0};
        for (int round = 0; round < 30; ++round) {
            plain.add(draw());
            xcb_composite_redirect_window(raw(), window, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
            session_.connection().sync();
            redirected.add(draw());
            xcb_composite_unredirect_window(raw(), window, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
            session_.connection().sync();
        }
        xcb_destroy_window(raw(), window);
        printTable({plain, redirected});
        result.insert(QStringLiteral("drawing"), toJson({plain, redirected}));
    }

    void serverMemory(QJsonObject& result) {
        while (windows_.size() < manyWindows)
            windows_.push_back(openWindow(true));
        (void)spin([] { return false; }, 1s);
        const qint64 without = memory(serverProcess(), "Rss");
        capture_.setEnabled(true);
        qint64 most = 0;
        // Those that lie deep are seen one after the other.
        const auto look = [&] {
            most = std::max(most, memory(serverProcess(), "Rss"));
            return takeAll();
        };
        if (!spin(look, 20s))
            giveUp(QStringLiteral("not all of 50 windows have pictures"));
        (void)spin([] { return false; }, 1s);
        const qint64 with = memory(serverProcess(), "Rss");
        if (!wantsJson())
            std::printf("50 windows add to the server's memory: %.1f MB, at most %.1f MB\n",
                        static_cast<double>(with - without) / 1024,
                        static_cast<double>(most - without) / 1024);
        result.insert(QStringLiteral("serverAddedKb"), with - without);
        result.insert(QStringLiteral("serverAddedAtMostKb"), most - without);
    }

    [[nodiscard]] pid_t serverProcess() {
        ucred peer{};
        socklen_t size = sizeof peer;
        (void)getsockopt(xcb_get_file_descriptor(raw()), SOL_SOCKET, SO_PEERCRED, &peer, &size);
        return peer.pid;
    }

    e2e::DesktopSession& session_;
    const int cycles_;
    platform::QtScheduler scheduler_;
    platform::QtExecutor executor_{scheduler_};
    std::unique_ptr<linuxdesktop::X11Display> display_ = linuxdesktop::X11Display::open(scheduler_);
    linuxdesktop::X11ApplicationPorts ports_{*display_, scheduler_, executor_};
    linuxdesktop::X11ScreenCapture capture_{*display_, scheduler_, executor_, ports_.windows,
                                            ports_.applications};
    std::vector<xcb_window_t> windows_;
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    using namespace skipnest;
    e2e::DesktopSession session(e2e::WindowManager::openbox);
    for (const QString& setting : session.environment())
        qputenv(setting.section(u'=', 0, 0).toLatin1(), setting.section(u'=', 1).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    bench::requirePrograms(session);
    return bench::Previews(session, bench::numberOption("cycles", 1000))
        .run(bench::numberOption("rounds", 30));
}
