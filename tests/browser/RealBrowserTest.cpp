// SPDX-License-Identifier: Apache-2.0
#include "cli/BrowserHosts.h"
#include "platform/BrowserExtension.h"
#include "platform/QtScheduler.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/browser/ExtensionTabs.h"
#include "switcher/BrowserTabs.h"
#include "tests/e2e/DesktopSession.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QUrl>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <unistd.h>

namespace skipnest::browser {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using e2e::Clock;
using e2e::eventually;
using platform::ScriptBudgetExceeded;
using platform::ScriptText;
using Tab = switcher::BrowserTabs::BrowserTab;

constexpr auto startPatience = 30s;
constexpr auto budget = 1500ms;
const QString chromium = u"org.chromium.Chromium"_s;

// A desktop on which Chromium runs with the extension, and the agent's end of it.
class Chromium : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.failure().isEmpty()) << qPrintable(session.failure());
        QDir().mkpath(runtimeFolder());
        QDir().mkpath(session.configHome() + u"/chromium"_s);
        linuxdesktop::PosixFiles files;
        cli::BrowserHosts hosts(
            files,
            {session.home(), session.configHome(), {}, QStringLiteral(SKIPNEST_BROWSER_HOST)});
        ASSERT_EQ(hosts.found().size(), 1U);
        ASSERT_TRUE(hosts.install(hosts.found().front()));
        ASSERT_TRUE(tabs.listen());
    }

    [[nodiscard]] QString runtimeFolder() const { return session.runtimeFolder() + u"/Skipnest"_s; }

    [[nodiscard]] QString page(const QString& name, const QString& title) {
        const QString path = session.home() + u'/' + name + u".html"_s;
        QFile file(path);
        (void)file.open(QFile::WriteOnly);
        file.write(
            (u"<meta charset=utf-8><title>"_s + title.toHtmlEscaped() + u"</title>"_s).toUtf8());
        return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    }

    [[nodiscard]] QStringList command(const QStringList& more) const {
        QStringList command{u"chromium"_s,
                            u"--no-first-run"_s,
                            u"--no-default-browser-check"_s,
                            u"--disable-background-networking"_s,
                            u"--disable-component-update"_s,
                            u"--disable-default-apps"_s,
                            u"--disable-sync"_s,
                            u"--disable-gpu"_s,
                            u"--password-store=basic"_s,
                            u"--load-extension="_s + QStringLiteral(SKIPNEST_EXTENSION)};
        if (geteuid() == 0)
            command.append(u"--no-sandbox"_s);
        return command + more;
    }

    // Opens one window a list; answers once all of their tabs are listed with their titles.
    [[nodiscard]] bool open(const std::vector<QStringList>& windows) {
        std::size_t expected = 0;
        for (const QStringList& urls : windows) {
            expected += static_cast<std::size_t>(urls.size());
            if (!browser.running())
                browser = session.start(command(urls));
            else
                (void)session.runToEnd(command(QStringList{u"--new-window"_s} + urls));
            if (!eventually(
                    [&] {
                        const auto listed = list();
                        return listed.size() == expected &&
                               std::ranges::none_of(listed, [](const Tab& tab) {
                                   return tab.title.isEmpty() || tab.title.endsWith(u".html");
                               });
                    },
                    startPatience))
                return false;
        }
        return true;
    }

    [[nodiscard]] std::vector<Tab> list() {
        const auto answer = tabs.run(platform::EnumerateTabs{chromium}, budget);
        const auto* text = std::get_if<ScriptText>(&answer);
        return text != nullptr ? switcher::BrowserTabs::parse(text->text) : std::vector<Tab>{};
    }
    [[nodiscard]] QStringList titles() {
        QStringList all;
        for (const Tab& tab : list())
            all.append(u"%1.%2%3 %4"_s.arg(tab.windowIndex)
                           .arg(tab.tabIndex)
                           .arg(tab.active ? u"*"_s : QString(), tab.title));
        return all;
    }
    [[nodiscard]] QString relocate(const Tab& tab) {
        const auto answer = tabs.run(
            platform::RelocateTab{chromium, tab.windowIndex, tab.tabIndex, tab.url, tab.title},
            budget);
        const auto* text = std::get_if<ScriptText>(&answer);
        return text != nullptr ? text->text : u"no text"_s;
    }
    [[nodiscard]] bool isInFront(const QString& title) {
        return eventually(
            [&] { return session.windows().title(session.windows().active()).startsWith(title); });
    }
    [[nodiscard]] Tab selected() {
        for (const Tab& tab : list()) {
            if (tab.active)
                return tab;
        }
        return {};
    }

    e2e::DesktopSession session{e2e::WindowManager::openbox};
    platform::QtScheduler clock;
    linuxdesktop::ExtensionTabs tabs{clock, runtimeFolder()};
    e2e::ChildProcess browser;
};

TEST_F(Chromium, TabsAreListedSelectedAndFoundAgain) {
    const QString quotes = u"A \"quoted\" \\ back|slash & <tag>"_s;
    const QString one = page(u"one"_s, quotes);
    const QString same1 = page(u"same1"_s, u"Same"_s);
    const QString same2 = page(u"same2"_s, u"Same"_s);
    const QString git = page(u"git"_s, u"git log – Überblick"_s);
    const QString last = page(u"last"_s, u"Last"_s);
    ASSERT_TRUE(open({{one, same1, same2}, {git, last}})) << qPrintable(titles().join(u'\n'));
    // The second window is in front; its numbers come first.
    ASSERT_TRUE(isInFront(u"git log"_s) || isInFront(u"Last"_s));
    std::vector<Tab> listed = list();
    ASSERT_EQ(listed.size(), 5U);
    EXPECT_EQ(listed[0].url, git);
    EXPECT_EQ(listed[0].title, u"git log – Überblick"_s);
    EXPECT_EQ(listed[2], (Tab{2, 1, quotes, true, one}));
    EXPECT_EQ(listed[4], (Tab{2, 3, u"Same"_s, false, same2}));

    EXPECT_EQ(relocate(listed[4]), u"1"_s);
    EXPECT_TRUE(isInFront(u"Same"_s));
    EXPECT_EQ(selected().url, same2) << "of two with one title the one with the address";
    // That window has come to the front: its numbers are the lower ones now.
    EXPECT_EQ(list()[0].url, one);

    const auto activated = tabs.run(platform::ActivateTab{chromium, 2, 2}, budget);
    EXPECT_TRUE(std::holds_alternative<ScriptText>(activated));
    EXPECT_TRUE(isInFront(u"Last"_s));

    // Closed by the person after the listing: its number is not its neighbour's from then on.
    ASSERT_EQ(list()[0].url, git);
    EXPECT_TRUE(std::holds_alternative<ScriptText>(
        tabs.run(platform::ActivateTab{chromium, 1, 1}, budget)));
    ASSERT_TRUE(isInFront(u"git log"_s));
    session.keyboard().tap(u"ctrl+w");
    ASSERT_TRUE(isInFront(u"Last"_s));
    EXPECT_TRUE(std::holds_alternative<platform::ScriptError>(
        tabs.run(platform::ActivateTab{chromium, 1, 1}, budget)));
    EXPECT_TRUE(std::holds_alternative<ScriptText>(
        tabs.run(platform::ActivateTab{chromium, 2, 1}, budget)));
    ASSERT_TRUE(isInFront(quotes));
    EXPECT_TRUE(std::holds_alternative<ScriptText>(
        tabs.run(platform::ActivateTab{chromium, 1, 2}, budget)));
    EXPECT_TRUE(isInFront(u"Last"_s));
    EXPECT_EQ(relocate({1, 1, u"gone"_s, false, u"file:///gone"_s}), u"0"_s);
}

TEST_F(Chromium, AHungBrowserCostsTheBudgetAndALostHostComesBack) {
    ASSERT_TRUE(open({{page(u"only"_s, u"Only"_s)}}));
    browser.send(SIGSTOP);
    const auto begun = Clock::now();
    const auto answer = tabs.run(platform::EnumerateTabs{chromium}, 300ms);
    const auto took = Clock::now() - begun;
    browser.send(SIGCONT);
    EXPECT_TRUE(std::holds_alternative<ScriptBudgetExceeded>(answer));
    EXPECT_GE(took, 300ms);
    EXPECT_LT(took, 2s);
    ASSERT_TRUE(eventually([&] { return list().size() == 1; }));

    const e2e::Finished hosts =
        e2e::run({u"pgrep"_s, u"-P"_s, QString::number(browser.pid()), u"skipnest"_s},
                 session.environment());
    const pid_t host = hosts.output.trimmed().toInt();
    ASSERT_GT(host, 1);
    kill(host, SIGKILL);
    ASSERT_TRUE(eventually([&] { return list().empty(); }));
    EXPECT_TRUE(eventually([&] { return list().size() == 1; }, 10s));
}

TEST_F(Chromium, FiftyTabsInThreeWindowsAreListedInMilliseconds) {
    std::vector<QStringList> windows;
    for (int i = 0, window = -1; i < 50; ++i) {
        if (i % 17 == 0) {
            windows.emplace_back();
            ++window;
        }
        windows[static_cast<std::size_t>(window)].append(
            page(u"p%1"_s.arg(i), u"Page number %1 of a day's work"_s.arg(i)));
    }
    ASSERT_TRUE(open(windows));
    std::vector<double> listing;
    for (int i = 0; i < 101; ++i) {
        const auto begun = Clock::now();
        const std::size_t count = list().size();
        listing.push_back(std::chrono::duration<double, std::milli>(Clock::now() - begun).count());
        ASSERT_EQ(count, 50U);
    }
    std::ranges::sort(listing);
    QFile load(u"/proc/loadavg"_s);
    (void)load.open(QFile::ReadOnly);
    std::cout << "50 tabs in 3 windows: median " << listing[50] << " ms, p95 " << listing[95]
              << " ms, n=101, load " << load.readAll().split(' ').value(0).constData() << std::endl;
}

} // namespace
} // namespace skipnest::browser

int main(int argc, char** argv) {
    using skipnest::e2e::DesktopSession;
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    QStringList missing = DesktopSession::missingPrograms(skipnest::e2e::WindowManager::openbox);
    if (QStandardPaths::findExecutable(QStringLiteral("chromium")).isEmpty())
        missing.append(QStringLiteral("chromium"));
    if (!missing.isEmpty()) {
        std::cout << "SKIPPED SUITE browser_chromium_test: missing "
                  << qPrintable(missing.join(QStringLiteral(", "))) << std::endl;
        return 0;
    }
    return RUN_ALL_TESTS();
}
