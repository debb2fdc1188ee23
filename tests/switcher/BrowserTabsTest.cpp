// SPDX-License-Identifier: Apache-2.0
#include "switcher/BrowserTabs.h"

#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

namespace skipnest::switcher {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::RunningApplication;
using platform::ScriptBudgetExceeded;
using platform::ScriptError;
using platform::ScriptText;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using Dialect = BrowserTabs::Dialect;
using Prompt = BrowserTabs::Prompt;
using Relocation = sim::SimTabs::Relocation;
using Activation = sim::SimTabs::Activation;
using Tab = BrowserTabs::BrowserTab;

TEST(BrowserScripts, headBodyAndTailOfAListingAreEachAsWritten) {
    EXPECT_EQ(BrowserTabs::enumerateScript(Dialect::arc, u"company.thebrowser.Browser"_s),
              uR"(tell application id "company.thebrowser.Browser"
    set sep to (ASCII character 1)
    set nl to (ASCII character 10)
    set out to ""
    set wi to 0
repeat with w in windows
    set wi to wi + 1
    set ti to 0
    repeat with t in tabs of w
        set ti to ti + 1
        set u to ""
        try
            set u to (URL of t)
        end try
        set out to out & wi & sep & ti & sep & (title of t) & sep & "0" & sep & u & nl
    end repeat
end repeat
    return out
end tell)"_s);
    const auto listing = [](Dialect dialect) {
        return BrowserTabs::enumerateScript(dialect, u"b"_s).toStdString();
    };
    EXPECT_THAT(listing(Dialect::chromium), HasSubstr("set ati to active tab index of w\n"));
    EXPECT_THAT(listing(Dialect::safari), HasSubstr("set cti to index of current tab of w\n"));
}

TEST(BrowserScripts, aTabIsSelectedByItsNumbers) {
    EXPECT_EQ(BrowserTabs::activateScript(Dialect::safari, u"com.apple.Safari"_s, 2, 11),
              u"tell application id \"com.apple.Safari\"\n"
              "    set current tab of window 2 to tab 11 of window 2\n"
              "    set index of window 2 to 1\n"
              "    activate\n"
              "end tell"_s);
    EXPECT_THAT(BrowserTabs::activateScript(Dialect::arc, u"b"_s, 1, 3).toStdString(),
                HasSubstr("    try\n        set active tab index of window 1 to 3\n    end try\n"));
    EXPECT_EQ(BrowserTabs::wrapped(u"beep"_s), u"with timeout of 4 seconds\nbeep\nend timeout"_s);
}

TEST(BrowserScripts, textsOfThePersonStayTextsInARelocation) {
    const Tab tab{2, 3, u"say \"%4\" \\ {titles}"_s, false, u"https://x/?q=%5&\"\\"_s};
    const QString script = BrowserTabs::relocateScript(Dialect::chromium, u"b"_s, tab).value();
    EXPECT_THAT(script.toStdString(),
                StartsWith("tell application id \"b\"\n"
                           "    set tURL to \"https://x/?q=%5&\\\"\\\\\"\n"
                           "    set tTitle to \"say \\\"%4\\\" \\\\ {titles}\"\n"
                           "    set fw to 0\n"
                           "    set ft to 0\n"
                           "    try\n"
                           "        if tURL is not \"\" and (URL of tab 3 of window 2 as text) is "
                           "tURL then\n"
                           "            set fw to 2\n"
                           "            set ft to 3\n"));
    EXPECT_THAT(script.toStdString(), HasSubstr("set ts to title of tabs of w\n"));
    EXPECT_TRUE(script.endsWith(u"    if fw is 0 then return \"0\"\n"
                                "set active tab index of window fw to ft\n"
                                "    set index of window fw to 1\n"
                                "    activate\n"
                                "    return \"1\"\n"
                                "end tell"));
    const QString safari = BrowserTabs::relocateScript(Dialect::safari, u"b"_s, tab).value();
    EXPECT_THAT(
        safari.toStdString(),
        testing::AllOf(HasSubstr("set ts to name of tabs of w\n"),
                       HasSubstr("\nset current tab of window fw to tab ft of window fw\n")));
    EXPECT_FALSE(BrowserTabs::relocateScript(Dialect::arc, u"b"_s, tab));
}

// What a browser answers, with a bar for the separator of its fields.
QString output(const char* lines) {
    return QString::fromUtf8(lines).replace(u'|', QChar(1));
}

TEST(BrowserTabsParse, takesRightLinesAndLeavesOutTheRest) {
    struct Row {
        const char* what;
        const char* lines;
        std::vector<Tab> tabs;
    };
    const Row rows[] = {
        {"nothing", "", {}},
        {"two tabs and blank lines",
         "\n1|1|A|1|https://a/\n\n2|3||0|\n",
         {{1, 1, u"A"_s, true, u"https://a/"_s}, {2, 3, u""_s, false, u""_s}}},
        {"no address, no last line break", "1|2|T|1", {{1, 2, u"T"_s, true, {}}}},
        {"more than five fields", "1|2|T|0|u|x", {{1, 2, u"T"_s, false, u"u"_s}}},
        {"signs", "+1|-2|T|yes|u", {{1, -2, u"T"_s, false, u"u"_s}}},
        {"title with a line break", "1|1|one\ntwo|1|u", {}},
        {"title with the separator", "1|1|o|1|1|u", {{1, 1, u"o"_s, true, u"1"_s}}},
        {"three fields", "1|1|T", {}},
        {"numbers that are none",
         " 1|1|T|1\n1|1 |T|1\n|1|T|1\n+|1|T|1\n1.0|1|T|1\n٣|1|T|1\n9223372036854775808|1|T|1",
         {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(BrowserTabs::parse(output(row.lines)), row.tabs) << row.what;
}

const QString chrome = u"com.google.Chrome"_s;

// A simulated browser in the background, and whoever asks it.
class BrowserTabsTest : public testing::Test {
protected:
    RunningApplication browser(const QString& bundle, const QString& name = u"Browser"_s) {
        desk.installApp({.name = name, .bundleIdentifier = bundle, .path = u"/B.app"_s});
        for (const auto& app : desk.ports().workspace.runningApplications())
            if (app.bundleIdentifier == bundle)
                return app;
        ADD_FAILURE() << "it does not run";
        return {};
    }
    void answers(const sim::SimTabs& tabs) { desk.scripts().setTabs(chrome, tabs); }
    double seconds() const {
        return std::chrono::duration<double>(desk.now().time_since_epoch()).count();
    }

    sim::SimDesktop desk;
    BrowserTabs tabs{desk.ports()};
    const Tab tab{1, 2, u"News"_s, true, u"https://news/"_s};
};

TEST_F(BrowserTabsTest, knowsBrowsersByExactIdentifier) {
    EXPECT_EQ(tabs.dialect(u"com.microsoft.edgemac"_s), Dialect::chromium);
    EXPECT_EQ(tabs.dialect(u"com.apple.Safari"_s), Dialect::safari);
    EXPECT_EQ(tabs.dialect(u"company.thebrowser.Browser"_s), Dialect::arc);
    for (const auto& other : {u"com.google.chrome"_s, u"com.apple.Safari "_s, u""_s})
        EXPECT_FALSE(tabs.dialect(other)) << other.toStdString();

    desk.scripts().setFurtherBrowsers({u"firefox"_s});
    EXPECT_EQ(tabs.dialect(u"firefox"_s), Dialect::chromium);
    EXPECT_FALSE(BrowserTabs::knownDialect(u"firefox"_s));

    const RunningApplication notes = browser(u"com.example.notes"_s);
    EXPECT_THAT(tabs.enumerate(notes, Prompt::ifDenied), IsEmpty());
    tabs.activate(tab, notes);
    EXPECT_TRUE(desk.journal().entries().empty());
}

TEST_F(BrowserTabsTest, listsWithTheUnwrappedScriptInTheJournal) {
    const RunningApplication app = browser(chrome);
    answers({.listing = ScriptText{output("1|1|A|1|u\n1|2|B|0|v\n")}, .after = 1499ms});
    EXPECT_THAT(tabs.enumerate(app, Prompt::never),
                ElementsAre(Tab{1, 1, u"A"_s, true, u"u"_s}, Tab{1, 2, u"B"_s, false, u"v"_s}));
    EXPECT_EQ(seconds(), 1.499);
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("browsertabs: com.google.Chrome → 2 tab(s)"));
    EXPECT_EQ(desk.journal().entries().front().fields[u"source"_s].toString(),
              BrowserTabs::enumerateScript(Dialect::chromium, chrome));
}

TEST_F(BrowserTabsTest, aHungBrowserCostsTheBudgetAndDelaysTheNextScript) {
    const RunningApplication app = browser(chrome);
    answers({.listing = ScriptBudgetExceeded{}});
    EXPECT_THAT(tabs.enumerate(app, Prompt::ifDenied), IsEmpty());
    EXPECT_EQ(seconds(), 1.5);

    answers({}); // it is back, but the script that hangs holds the queue until 4 s
    EXPECT_THAT(tabs.enumerate(app, Prompt::ifDenied), IsEmpty());
    EXPECT_EQ(seconds(), 3);
    EXPECT_THAT(tabs.enumerate(app, Prompt::ifDenied), IsEmpty());
    EXPECT_EQ(seconds(), 4);
    const std::string exceeded = "browsertabs: script exceeded 1.5s budget — falling back";
    const std::string failed = "browsertabs: enumerate failed for com.google.Chrome (err 0)";
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre(exceeded, failed, exceeded, failed,
                            "browsertabs: com.google.Chrome → 0 tab(s)"));
    EXPECT_THAT(desk.journal().calls(), testing::Not(Contains(StartsWith("alert"))));
}

TEST_F(BrowserTabsTest, selectsByRelocationElseByPlace) {
    const RunningApplication app = browser(chrome);
    const std::string missed = "browsertabs: relocation missed 'News' — coordinate fallback w1 t2";
    const std::string exceeded = "browsertabs: script exceeded 2.5s budget — falling back";
    const std::string refused = "browsertabs: applescript error Invalid index.";
    struct Row {
        const char* what;
        sim::SimTabs tabs;
        Tab tab;
        std::vector<std::string> log;
        double takes;
    };
    const Row rows[] = {
        {"found", {.relocation = Relocation::found}, tab, {}, 0},
        {"missed",
         {.relocation = Relocation::missed},
         tab,
         {missed, "browsertabs: activate 'News' → OK"},
         0},
        {"missed and gone",
         {.relocation = Relocation::missed, .activation = Activation::fail},
         tab,
         {missed, refused, "browsertabs: activate 'News' → FAIL"},
         0},
        {"nothing to find it by", {}, {3, 4, {}, false, {}}, {"browsertabs: activate '' → OK"}, 0},
        {"an answer just in time", {.after = 2499ms}, tab, {}, 2.499},
        {"hung: the second script waits behind the first",
         {.relocation = Relocation::hang},
         tab,
         {exceeded, missed, "browsertabs: script exceeded 1.5s budget — falling back",
          "browsertabs: activate 'News' → FAIL"},
         4},
    };
    for (const Row& row : rows) {
        desk.advance(10s);
        desk.journal().clear();
        answers(row.tabs);
        const auto before = desk.now();
        tabs.activate(row.tab, app);
        EXPECT_EQ(desk.journal().logLines(), row.log) << row.what;
        EXPECT_EQ(std::chrono::duration<double>(desk.now() - before).count(), row.takes)
            << row.what;
    }
}

TEST_F(BrowserTabsTest, oneDialectGoesStraightToThePlace) {
    const RunningApplication arc = browser(u"company.thebrowser.Browser"_s);
    desk.scripts().setTabs(arc.bundleIdentifier, {});
    tabs.activate(tab, arc);
    ASSERT_EQ(desk.journal().calls().size(), 1U);
    EXPECT_THAT(desk.journal().calls().front(), HasSubstr("set active tab index of window 1 to 2"));
    EXPECT_EQ(desk.frontApp(), arc.name);
}

TEST_F(BrowserTabsTest, asksForConsentOnceAndOnlyWhenTold) {
    const RunningApplication app = browser(chrome, u"Chrome"_s);
    answers({.listing = ScriptError{-1743, u"Not allowed."_s}});
    const auto alerts = [this] {
        std::vector<std::string> shown;
        for (const std::string& call : desk.journal().calls())
            if (call.starts_with("alert") || call.starts_with("open"))
                shown.push_back(call);
        return shown;
    };
    desk.alerts().press(u"Open Automation Settings"_s);
    EXPECT_THAT(tabs.enumerate(app, Prompt::never), IsEmpty());
    desk.runPosted();
    EXPECT_THAT(alerts(), IsEmpty());
    EXPECT_THAT(desk.journal().logLines(),
                ElementsAre("browsertabs: applescript error Not allowed.",
                            "browsertabs: enumerate failed for com.google.Chrome (err -1743)"));

    for (int i = 0; i < 2; ++i) {
        EXPECT_THAT(tabs.enumerate(app, Prompt::ifDenied), IsEmpty());
        desk.runPosted();
    }
    EXPECT_THAT(
        alerts(),
        ElementsAre(
            testing::AllOf(HasSubstr("message=Let Skipnest switch Chrome tabs"),
                           HasSubstr("text=To cycle and search tabs, macOS needs your permission "
                                     "for Skipnest to control Chrome.\\n\\nOpen System Settings → "
                                     "Privacy & Security → Automation, then turn on Chrome under "
                                     "Skipnest.")),
            "openSettings url=x-apple.systempreferences:com.apple.preference.security"
            "?Privacy_Automation"));
}

} // namespace
} // namespace skipnest::switcher
