// SPDX-License-Identifier: Apache-2.0
#include "app/SwitcherHooks.h"

#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

namespace skipnest::app {
namespace {

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

class SwitcherHooksTest : public testing::Test {
protected:
    // Lines of the log that begin with the hook's word.
    std::vector<std::string> said(const QString& hook, const char* word,
                                  const QString& object = {}) {
        desk.journal().clear();
        for (const auto& known : hooks.hooks())
            if (known.name == hook)
                known.run(object);
        std::vector<std::string> lines;
        for (const std::string& line : desk.journal().logLines())
            if (line.starts_with(word))
                lines.push_back(line);
        return lines;
    }

    sim::SimDesktop desk;
    switcher::BrowserTabs tabs{desk.ports()};
    switcher::WindowSwitcher bar{desk.ports(), tabs, [](const QString&) {}};
    SwitcherHooks hooks{desk.ports(), bar, tabs};
};

TEST_F(SwitcherHooksTest, trySwitchingOnARunningBrowser) {
    EXPECT_THAT(said(u"switchtest"_s, "SELFTEST"), ElementsAre("SELFTEST: no browser runs"));
    EXPECT_THAT(said(u"tabsearchtest"_s, "TABSEARCH"), ElementsAre("TABSEARCH: no browser runs"));

    desk.installApp({.name = u"Chrome"_s,
                     .bundleIdentifier = u"com.google.Chrome"_s,
                     .path = u"/Chrome.app"_s});
    EXPECT_THAT(
        said(u"switchtest"_s, "SELFTEST"),
        ElementsAre(StartsWith("SELFTEST: Chrome opened=false"), "SELFTEST: closed=true → FAIL"));

    const QString output = u"1|1|Git guide|1|https://x/\n1|2|News|0|https://git.example/\n"
                           u"2|1|Mail|1|https://mail.example/\n"_s;
    desk.scripts().setTabs(u"com.google.Chrome"_s, {.listing = platform::ScriptText{
                                                        QString(output).replace(u'|', QChar(1))}});
    EXPECT_THAT(
        said(u"switchtest"_s, "SELFTEST"),
        ElementsAre("SELFTEST: Chrome opened=true windows=2 tabs=3", "SELFTEST: closed=true → OK"));
    EXPECT_FALSE(bar.isOpen());
    EXPECT_THAT(said(u"tabsearchtest"_s, "TABSEARCH", u"git"_s),
                ElementsAre("TABSEARCH: Chrome query='git' tabs=3 matches=2",
                            "TABSEARCH: 'Git guide' at x", "TABSEARCH: 'News' at git.example"));
}

TEST_F(SwitcherHooksTest, raiseThroughTheMenuAndTellTheFocus) {
    EXPECT_THAT(said(u"menuraise"_s, "MENUTEST"),
                ElementsAre("MENUTEST: no application is in front"));
    EXPECT_THAT(said(u"axdump"_s, "AXDUMP"), ElementsAre("AXDUMP no application is in front"));

    desk.installApp({.name = u"Notes"_s,
                     .path = u"/Notes.app"_s,
                     .windows = {{.title = u"A"_s}, {.title = u"B"_s}},
                     .menuBar = 3,
                     .windowMenu = {{u"Minimize"_s}, {u"A"_s, u"✓"_s}, {u"B"_s}}});
    desk.bringToFront(u"Notes"_s);
    EXPECT_THAT(said(u"axdump"_s, "AXDUMP"), Contains("AXDUMP AXTitle='A'"));
    EXPECT_THAT(said(u"menuraise"_s, "MENUTEST"),
                ElementsAre("MENUTEST: Notes has 3 item(s): 'Minimize', 'A', 'B'",
                            "MENUTEST: raise 'B' → OK"));
    EXPECT_THAT(said(u"axdump"_s, "AXDUMP"), Contains("AXDUMP AXTitle='B'"));
    EXPECT_THAT(said(u"menuraise"_s, "MENUTEST", u"Z"_s), Contains("MENUTEST: raise 'Z' → FAIL"));
}

} // namespace
} // namespace skipnest::app
