// SPDX-License-Identifier: Apache-2.0
// Tabs of a browser, from the agent's question until it has the answer, by way of the host: with a
// stand-in for the browser's side, which answers at once, and with real Chromium.
#include "bench/Bench.h"
#include "platform/QtScheduler.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/browser/BrowserHosts.h"
#include "platform/linux/browser/ExtensionTabs.h"
#include "switcher/BrowserTabs.h"
#include "tests/browser/HostProcess.h"
#include "tests/browser/Pages.h"
#include "tests/browser/RealBrowser.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <atomic>
#include <cstdio>
#include <thread>

namespace skipnest::bench {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using browser::RealBrowser;
using e2e::Clock;
using Kind = RealBrowser::Kind;

constexpr auto patience = 1500ms;
constexpr int windowCount = 3;
const QString chromium = RealBrowser::identifier(Kind::chromium);

QString titleOfTab(int number) {
    return u"Page number %1 of a day's work – notes and figures"_s.arg(number);
}

// A browser's side of the host, which has the answers ready.
class StandIn {
public:
    StandIn(const QString& runtimeFolder, int tabCount)
        : thread_([this, runtimeFolder, tabCount] { serve(runtimeFolder, tabCount); }) {}
    ~StandIn() {
        ends_ = true;
        thread_.join();
    }
    // When it last acknowledged a selection.
    [[nodiscard]] Clock::time_point acknowledged() const { return acknowledged_; }

private:
    static QJsonArray windows(int tabCount) {
        QJsonArray windows;
        for (int w = 0; w < windowCount; ++w) {
            QJsonArray tabs;
            for (int t = w; t < tabCount; t += windowCount)
                tabs.append(QJsonArray{titleOfTab(t), t == w ? 1 : 0,
                                       u"https://example.org/a/rather/usual/path/%1"_s.arg(t)});
            windows.append(tabs);
        }
        return windows;
    }

    void serve(const QString& runtimeFolder, int tabCount) {
        browser::HostProcess host(runtimeFolder);
        const QJsonArray all = windows(tabCount);
        while (!ends_) {
            const auto message = host.answers().next(20);
            if (!message)
                continue;
            const QJsonObject request = QJsonDocument::fromJson(*message).object();
            QJsonObject answer{{u"id"_s, request.value(u"id")}};
            if (request.value(u"do") == u"enumerate"_s)
                answer.insert(u"windows"_s, all);
            else if (request.contains(u"do"))
                answer.insert(u"found"_s, true);
            else
                continue;
            const QByteArray bytes =
                platform::framedMessage(QJsonDocument(answer).toJson(QJsonDocument::Compact));
            acknowledged_ = Clock::now();
            host.send(bytes);
        }
    }

    std::atomic<bool> ends_ = false;
    std::atomic<Clock::time_point> acknowledged_{};
    std::thread thread_;
};

class TabsBench {
public:
    explicit TabsBench(int rounds) : rounds_(rounds) {}

    int run() {
        requirePrograms(session_);
        QDir().mkpath(runtimeFolder());
        if (!tabs_.listen())
            giveUp(u"no socket for hosts"_s);
        std::vector<Series> result;
        for (const int count : {50, 500}) {
            const StandIn standIn(session_.runtimeFolder(), count);
            waitFor(count);
            result.push_back(listing(u"%1 tabs, stand-in"_s.arg(count), count));
            if (count == 50)
                result.push_back(activation(standIn));
        }
        if (!RealBrowser::program(Kind::chromium).isEmpty())
            addChromium(result);
        if (!wantsJson())
            std::printf("tabs in %d windows, n=%d, load average %.2f\n", windowCount, rounds_,
                        loadAverage());
        printTable(result);
        printJson(toJson(result));
        return 0;
    }

private:
    [[nodiscard]] QString runtimeFolder() const {
        return session_.runtimeFolder() + u"/Skipnest"_s;
    }

    [[nodiscard]] qsizetype list() {
        const auto answer = tabs_.run(platform::EnumerateTabs{chromium}, patience);
        const auto* text = std::get_if<platform::ScriptText>(&answer);
        return text != nullptr ? qsizetype(switcher::BrowserTabs::parse(text->text).size()) : -1;
    }
    void waitFor(int count) {
        if (!e2e::eventually([&] { return list() == count; }, 60s))
            giveUp(u"%1 tabs were not listed"_s.arg(count));
    }

    // Parsed, as the switcher wants them.
    [[nodiscard]] Series listing(const QString& name, int count) {
        Series series{name, {}, 0};
        for (int i = 0; i < rounds_; ++i) {
            const auto begun = Clock::now();
            const bool isAll = list() == count;
            if (isAll)
                series.add(Clock::now() - begun);
            else
                ++series.misfires;
        }
        return series;
    }

    [[nodiscard]] Series activation(const StandIn& standIn) {
        Series series{u"selected, after the browser's word"_s, {}, 0};
        for (int i = 0; i < rounds_; ++i) {
            const auto answer = tabs_.run(platform::ActivateTab{chromium, 1, 1 + i % 10}, patience);
            if (std::holds_alternative<platform::ScriptText>(answer))
                series.add(Clock::now() - standIn.acknowledged());
            else
                ++series.misfires;
        }
        return series;
    }

    void addChromium(std::vector<Series>& result) {
        constexpr int count = 50;
        linuxdesktop::PosixFiles files;
        linuxdesktop::BrowserHosts hosts(files,
                                         {session_.home(),
                                          session_.configHome(),
                                          {QFileInfo(RealBrowser::program(Kind::chromium)).path()},
                                          QStringLiteral(SKIPNEST_BROWSER_HOST)});
        for (const auto& found : hosts.found()) {
            if (found.identifier == chromium && !hosts.install(found))
                giveUp(u"Chromium cannot be told of the host"_s);
        }
        std::vector<QStringList> windows(windowCount);
        for (int i = 0; i < count; ++i)
            windows[static_cast<std::size_t>(i % windowCount)].append(
                pages_.put(u"p%1"_s.arg(i), titleOfTab(i)));
        const auto browser = RealBrowser::make(Kind::chromium, session_);
        if (!browser->open(windows))
            giveUp(u"Chromium does not start"_s);
        waitFor(count);
        // Pages still load, and take the processor.
        (void)e2e::eventually(
            [&] { return pages_.heardOf(browser::Pages::Event::loaded).size() >= count; }, 30s);
        std::this_thread::sleep_for(3s);
        result.push_back(listing(u"50 tabs, Chromium"_s, count));
        Series series{u"selected, Chromium"_s, {}, 0};
        for (int i = 0; i < rounds_; ++i) {
            const auto begun = Clock::now();
            const auto answer = tabs_.run(platform::ActivateTab{chromium, 1, 1 + i % 10}, patience);
            if (std::holds_alternative<platform::ScriptText>(answer))
                series.add(Clock::now() - begun);
            else
                ++series.misfires;
        }
        result.push_back(series);
    }

    int rounds_;
    e2e::DesktopSession session_{e2e::WindowManager::openbox};
    browser::Pages pages_;
    platform::QtScheduler clock_;
    // The stand-in's host has no browser above it.
    linuxdesktop::ExtensionTabs tabs_{clock_, runtimeFolder(),
                                      [](std::int64_t) { return chromium; }};
};

} // namespace
} // namespace skipnest::bench

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    return skipnest::bench::TabsBench(skipnest::bench::numberOption("rounds", 101)).run();
}
