// SPDX-License-Identifier: Apache-2.0
#include "app/ControlCommands.h"
#include "model/ConfigurationCoding.h"
#include "platform/sim/SimDesktop.h"
#include "tests/hotkeys/Combos.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gmock/gmock.h>

namespace skipnest::app {
namespace {

using namespace Qt::StringLiterals;
using testing::HasSubstr;
using testing::StartsWith;

// The verbs of the running agent, as they come over the socket.
class VerbsTest : public testing::Test {
protected:
    VerbsTest() {
        agent.launch();
        desk.runPosted();
    }
    std::string ask(const char* request) {
        QJsonObject answer;
        commands.handle(QJsonDocument::fromJson(request).object(),
                        [&answer](const ControlReply& reply) { answer = reply.toJson(); });
        desk.runPosted();
        return QJsonDocument(answer).toJson(QJsonDocument::Compact).toStdString();
    }
    model::ShortcutItem item(const char* name, const char* path, const char* key = nullptr) {
        model::ShortcutItem item = test::shortcut(name, path, key);
        item.createdAt = desk.wallClock().nowUtc();
        return item;
    }

    sim::SimDesktop desk;
    AppDelegate agent{desk.ports(),
                      {.setup = AppDelegate::Options::Setup::countsAsDone, .quit = {}}};
    ControlCommands commands{agent, desk, {}};
};

TEST_F(VerbsTest, thePopoverIsToggledAndOpenedOnAFile) {
    ASSERT_TRUE(desk.addFile(u"/tmp/a b.txt"_s));
    EXPECT_THAT(ask(R"({"verb":"popover"})"), HasSubstr(R"({"screen":"list","shown":true})"));
    EXPECT_THAT(ask(R"({"verb":"status"})"), HasSubstr(R"("popover":"shown")"));
    EXPECT_THAT(ask(R"({"verb":"popover"})"), HasSubstr(R"("shown":false)"));
    EXPECT_THAT(ask(R"({"verb":"popover","add":"file:///tmp/a%20b.txt"})"),
                HasSubstr(R"({"screen":"add","shown":true})"));
    EXPECT_EQ(desk.panels().route().targetPath, u"/tmp/a b.txt"_s);
    EXPECT_THAT(ask(R"({"verb":"popover","add":"/tmp/gone"})"),
                HasSubstr("“/tmp/gone” is not there any more."));
    EXPECT_THAT(ask(R"({"verb":"popover","add":7})"), HasSubstr(R"("ok":false)"));
}

TEST_F(VerbsTest, theSwitcherOpensOverAnApplicationInFrontOrNot) {
    desk.installApp({.name = u"Mail"_s,
                     .path = u"/Applications/Mail.app"_s,
                     .windows = {{u"Post"_s}, {u"Draft"_s}}});
    desk.installApp({.name = u"Notes"_s,
                     .path = u"/Applications/Notes.app"_s,
                     .windows = {{u"A"_s}, {u"B"_s}, {u"C"_s}}});
    desk.installApp({.name = u"Idle"_s, .path = u"/Applications/Idle.app"_s});
    for (const char* name : {"Mail", "Notes", "Idle"})
        ASSERT_TRUE(agent.viewModel().merge(
            {item(name, (QByteArray("/Applications/") + name + ".app").constData())}));
    EXPECT_THAT(ask(R"({"verb":"switcher"})"), HasSubstr("no application is in front"));
    desk.bringToFront(u"Mail"_s);
    desk.bringToFront(u"Notes"_s);
    EXPECT_THAT(ask(R"({"verb":"switcher"})"),
                HasSubstr(R"({"application":"Notes","tabs":0,"windows":3})"));
    const auto& shown = agent.switcher().model().content();
    EXPECT_TRUE(shown.isPinned) << "there are no keys to let go of";
    EXPECT_EQ(shown.selWin, 0);
    EXPECT_THAT(ask(R"({"verb":"switcher","name":"no"})"), HasSubstr(R"("ok":true)"));
    EXPECT_EQ(shown.selWin, 1) << "again over the same application it steps on";
    EXPECT_THAT(ask(R"({"verb":"switcher","name":"Mail"})"), HasSubstr(R"("windows":2)"));
    EXPECT_EQ(shown.appName, u"Mail"_s);
    EXPECT_THAT(ask(R"({"verb":"switcher","name":"Nobody"})"), HasSubstr("no shortcut is called"));
    EXPECT_THAT(ask(R"({"verb":"switcher","name":7})"), HasSubstr(R"("ok":false)"));
    desk.bringToFront(u"Idle"_s);
    EXPECT_THAT(ask(R"({"verb":"switcher"})"), HasSubstr("has no windows or tabs"));
    desk.quitApp(u"Idle"_s);
    EXPECT_THAT(ask(R"({"verb":"switcher","name":"Idle"})"), HasSubstr("does not run"));
    desk.bringToFront(u"Notes"_s);
    agent.viewModel().changeSettings(
        [](model::AppConfiguration& config) { config.windowSwitcher = false; });
    EXPECT_THAT(ask(R"({"verb":"switcher"})"), HasSubstr("turned off"));
    EXPECT_FALSE(agent.switcher().isOpen());
}

TEST_F(VerbsTest, whatIsExportedComesBackWithItsHotkey) {
    ASSERT_TRUE(desk.addFile(u"/tmp/x.txt"_s));
    ask(R"({"verb":"add","path":"file:///tmp/x.txt","key":"ctrl+opt+x"})");
    EXPECT_THAT(ask(R"({"verb":"export","path":"/tmp/out.json"})"),
                HasSubstr(R"({"path":"/tmp/out.json"})"));
    EXPECT_THAT(ask(R"({"verb":"export","path":"out.json"})"), HasSubstr("absolute path"));
    ask(R"({"verb":"remove","name":"x"})");
    EXPECT_THAT(ask(R"({"verb":"import","path":"/tmp/out.json"})"),
                HasSubstr(R"({"added":1,"conflicting":0,"imported":1,"unchanged":0,)"
                          R"("unconfirmed":[],"updated":0})"));
    EXPECT_TRUE(desk.pressHotkey(test::pressed("ctrl+opt+x")));

    ASSERT_TRUE(desk.addFile(u"/tmp/bad.json"_s, R"({"version":1,"shortcuts":[]})"));
    EXPECT_THAT(ask(R"({"verb":"import","path":"/tmp/bad.json"})"),
                testing::ContainsRegex("pick another one\\. \\(.*launchAtLogin"));
    EXPECT_THAT(ask(R"({"verb":"import","path":"/tmp/none.json"})"), HasSubstr(R"("ok":false)"));
}

TEST_F(VerbsTest, anUnconfirmedApplicationRunsOnlyWhenConfirmed) {
    desk.installApp({.name = u"Evil"_s, .path = u"/tmp/Evil.app"_s});
    model::AppConfiguration document;
    document.shortcuts = {item("Evil", "/tmp/Evil.app", "ctrl+opt+e")};
    ASSERT_TRUE(desk.addFile(u"/tmp/in.json"_s, encodeConfiguration(document)));
    EXPECT_THAT(ask(R"({"verb":"import","path":"/tmp/in.json"})"),
                HasSubstr(R"("unconfirmed":["Evil"])"));
    desk.journal().clear();
    for (const char* verb : {R"({"verb":"jump","name":"Evil"})", R"({"verb":"hide","name":"ev"})"})
        EXPECT_THAT(ask(verb), HasSubstr("confirm it first"));
    EXPECT_THAT(desk.journal().calls(), testing::IsEmpty());
    EXPECT_THAT(ask(R"({"verb":"confirm","name":"Evil"})"), HasSubstr(R"("ok":true)"));
    ask(R"({"verb":"jump","name":"Evil"})");
    EXPECT_THAT(desk.journal().calls(), testing::ElementsAre(StartsWith("openApplication")));
}

TEST_F(VerbsTest, twoOfOneNameAreToldApartById) {
    ASSERT_TRUE(agent.viewModel().merge({item("Twin", "/tmp/1"), item("Twin", "/tmp/2")}));
    EXPECT_THAT(ask(R"({"verb":"remove","name":"Twin"})"), HasSubstr("several shortcuts match"));
    const model::ShortcutItem second = agent.viewModel().shortcuts()[1];
    const QByteArray request =
        R"({"verb":"remove","name":")" + second.id.text().toLower().toUtf8() + "\"}";
    EXPECT_THAT(ask(request.constData()), HasSubstr(R"("ok":true)"));
    EXPECT_FALSE(agent.viewModel().item(second.id));
}

} // namespace
} // namespace skipnest::app
