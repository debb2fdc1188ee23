// SPDX-License-Identifier: Apache-2.0
#include "tests/browser/RealBrowser.h"
#include "platform/QtScheduler.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/browser/BrowserHosts.h"
#include "platform/linux/browser/ExtensionTabs.h"
#include "platform/linux/browser/SelectedWindow.h"
#include "switcher/BrowserTabs.h"
#include "tests/browser/Pages.h"
#include "tests/e2e/Waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <iostream>

namespace skipnest::browser {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using e2e::Clock;
using e2e::eventually;
using platform::ScriptBudgetExceeded;
using platform::ScriptError;
using platform::ScriptText;
using Kind = RealBrowser::Kind;
using Tab = switcher::BrowserTabs::BrowserTab;

constexpr auto startPatience = 30s;
constexpr auto budget = 1500ms;

// A desktop on which a browser runs with the extension; the test is the agent's end of it.
class RealBrowserTest : public ::testing::TestWithParam<Kind> {
protected:
    void SetUp() override {
        if (RealBrowser::program(GetParam()).isEmpty())
            GTEST_SKIP() << "the browser is not installed";
        ASSERT_TRUE(session.failure().isEmpty()) << qPrintable(session.failure());
        QDir().mkpath(runtimeFolder());
        linuxdesktop::PosixFiles files;
        linuxdesktop::BrowserHosts hosts(files,
                                         {session.home(),
                                          session.configHome(),
                                          {QFileInfo(RealBrowser::program(GetParam())).path()},
                                          QStringLiteral(SKIPNEST_BROWSER_HOST)});
        for (const auto& found : hosts.found()) {
            if (found.identifier == identifier) {
                ASSERT_TRUE(hosts.install(found));
            }
        }
        ASSERT_TRUE(tabs.listen());
        browser = RealBrowser::make(GetParam(), session);
    }

    [[nodiscard]] QString runtimeFolder() const { return session.runtimeFolder() + u"/Skipnest"_s; }

    // Answers once all of their tabs are listed with their titles.
    [[nodiscard]] bool open(const std::vector<QStringList>& windows) {
        if (!browser->open(windows))
            return false;
        std::size_t expected = 0;
        for (const QStringList& urls : windows)
            expected += static_cast<std::size_t>(urls.size());
        return eventually(
            [&] {
                const auto listed = list();
                return listed.size() == expected &&
                       std::ranges::none_of(listed, [](const Tab& tab) {
                           return tab.title.isEmpty() || tab.title.contains(u"127.0.0.1");
                       });
            },
            startPatience);
    }

    [[nodiscard]] std::vector<Tab> list() {
        const auto answer = tabs.run(platform::EnumerateTabs{identifier}, budget);
        const auto* text = std::get_if<ScriptText>(&answer);
        return text != nullptr ? switcher::BrowserTabs::parse(text->text) : std::vector<Tab>{};
    }
    [[nodiscard]] std::string titles() {
        QStringList all;
        for (const Tab& tab : list())
            all.append(u"%1.%2%3 %4"_s.arg(tab.windowIndex)
                           .arg(tab.tabIndex)
                           .arg(tab.active ? u"*"_s : QString(), tab.title));
        return all.join(u'\n').toStdString();
    }
    [[nodiscard]] QString relocate(const Tab& tab) {
        const auto answer = tabs.run(
            platform::RelocateTab{identifier, tab.windowIndex, tab.tabIndex, tab.url, tab.title},
            budget);
        const auto* text = std::get_if<ScriptText>(&answer);
        raiseSelected();
        return text != nullptr ? text->text : u"no text"_s;
    }
    [[nodiscard]] bool activate(std::int64_t window, std::int64_t tab) {
        const auto answer = tabs.run(platform::ActivateTab{identifier, window, tab}, budget);
        raiseSelected();
        return std::holds_alternative<ScriptText>(answer);
    }
    // What the agent does after a tab was selected: a browser need not have raised its window.
    void raiseSelected() {
        if (!tabs.selected())
            return;
        xcb_connection_t* x = session.connection().raw();
        const auto all = session.windows().ofProcess(browser->process().pid());
        std::vector<linuxdesktop::BrowserWindow> faces;
        for (const xcb_window_t window : all) {
            const e2e::XReply<xcb_get_geometry_reply_t> size(
                xcb_get_geometry_reply(x, xcb_get_geometry(x, window), nullptr));
            const e2e::XReply<xcb_translate_coordinates_reply_t> place(
                xcb_translate_coordinates_reply(
                    x, xcb_translate_coordinates(x, window, session.connection().root(), 0, 0),
                    nullptr));
            ASSERT_TRUE(size && place);
            faces.push_back({session.windows().title(window),
                             QRectF(place->dst_x, place->dst_y, size->width, size->height)});
        }
        const auto shown = linuxdesktop::windowThatShows(*tabs.selected(), faces);
        ASSERT_TRUE(shown) << qPrintable(tabs.selected()->title);
        session.windows().activate(all[*shown]);
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

    const QString identifier = RealBrowser::identifier(GetParam());
    e2e::DesktopSession session{e2e::WindowManager::openbox};
    Pages pages;
    platform::QtScheduler clock;
    linuxdesktop::ExtensionTabs tabs{clock, runtimeFolder()};
    std::unique_ptr<RealBrowser> browser;
};

TEST_P(RealBrowserTest, TabsAreListedSelectedAndFoundAgain) {
    const QString quotes = u"A \"quoted\" \\ back|slash & <tag>"_s;
    const QString one = pages.put(u"one"_s, quotes);
    const QString same1 = pages.put(u"same1"_s, u"Same"_s);
    const QString same2 = pages.put(u"same2"_s, u"Same"_s);
    const QString git = pages.put(u"git"_s, u"git log – Überblick"_s);
    const QString last = pages.put(u"last"_s, u"Last"_s);
    ASSERT_TRUE(open({{one, same1, same2}, {git, last}})) << titles();
    // The second window is in front; its numbers come first.
    ASSERT_TRUE(isInFront(u"git log"_s) || isInFront(u"Last"_s));
    std::vector<Tab> listed = list();
    ASSERT_EQ(listed.size(), 5U);
    EXPECT_EQ(listed[0].url, git);
    EXPECT_EQ(listed[0].title, u"git log – Überblick"_s);
    EXPECT_EQ(listed[2].title, quotes);
    EXPECT_EQ(listed[2].url, one);
    EXPECT_EQ(listed[4].windowIndex, 2);
    EXPECT_EQ(listed[4].tabIndex, 3);
    EXPECT_EQ(listed[4].url, same2);

    EXPECT_EQ(relocate(listed[3]), u"1"_s);
    EXPECT_TRUE(isInFront(u"Same"_s));
    EXPECT_EQ(selected().url, same1) << "of two with one title the one with the address";
    // That window has come to the front: its numbers are the lower ones now.
    EXPECT_EQ(list()[0].url, one);

    EXPECT_TRUE(activate(2, 1));
    EXPECT_TRUE(isInFront(u"git log"_s));

    // Moved by the person after the listing: its number still is the tab's.
    ASSERT_EQ(list()[0].url, git);
    session.keyboard().tap(u"ctrl+shift+pagedown");
    EXPECT_TRUE(activate(1, 2));
    EXPECT_TRUE(isInFront(u"Last"_s));
    EXPECT_TRUE(eventually([&] { return list()[1].url == git; })) << titles();
    EXPECT_EQ(selected().url, last);

    // Closed by the person after the listing: its number is not its neighbour's from then on.
    session.keyboard().tap(u"ctrl+w");
    ASSERT_TRUE(isInFront(u"git log"_s));
    EXPECT_FALSE(activate(1, 1));
    EXPECT_TRUE(activate(2, 1));
    EXPECT_TRUE(isInFront(quotes));
    EXPECT_TRUE(activate(1, 2));
    EXPECT_TRUE(isInFront(u"git log"_s));
    EXPECT_EQ(relocate({1, 1, u"gone"_s, false, u"http://127.0.0.1/gone"_s}), u"0"_s);
}

TEST_P(RealBrowserTest, AStoppedBrowserCostsTheBudgetAndALostHostComesBack) {
    ASSERT_TRUE(open({{pages.put(u"only"_s, u"Only"_s)}})) << titles();
    browser->process().send(SIGSTOP);
    const auto begun = Clock::now();
    const auto answer = tabs.run(platform::EnumerateTabs{identifier}, 300ms);
    const auto took = Clock::now() - begun;
    browser->process().send(SIGCONT);
    EXPECT_TRUE(std::holds_alternative<ScriptBudgetExceeded>(answer));
    EXPECT_GE(took, 300ms);
    EXPECT_LT(took, 2s);
    ASSERT_TRUE(eventually([&] { return list().size() == 1; }));

    const e2e::Finished hosts =
        e2e::run({u"pgrep"_s, u"-P"_s, QString::number(browser->process().pid()), u"skipnest"_s},
                 session.environment());
    const pid_t host = hosts.output.trimmed().toInt();
    ASSERT_GT(host, 1);
    kill(host, SIGKILL);
    ASSERT_TRUE(eventually([&] { return list().empty(); }));
    EXPECT_TRUE(eventually([&] { return list().size() == 1; }, 10s));
}

INSTANTIATE_TEST_SUITE_P(Browsers, RealBrowserTest,
                         ::testing::Values(Kind::chromium, Kind::firefox), [](const auto& row) {
                             return row.param == Kind::chromium ? "chromium" : "firefox";
                         });

} // namespace
} // namespace skipnest::browser

int main(int argc, char** argv) {
    using skipnest::e2e::DesktopSession;
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    const QStringList missing =
        DesktopSession::missingPrograms(skipnest::e2e::WindowManager::openbox);
    if (!missing.isEmpty()) {
        std::cout << "SKIPPED SUITE browser_real_test: missing "
                  << qPrintable(missing.join(QStringLiteral(", "))) << std::endl;
        return 0;
    }
    return RUN_ALL_TESTS();
}
