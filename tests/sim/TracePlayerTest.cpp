// SPDX-License-Identifier: Apache-2.0
#include "cli/TracePlayer.h"

#include "platform/Alerts.h"
#include "platform/Diagnostics.h"
#include "platform/HotkeyBackend.h"
#include "platform/Workspace.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace skipnest::cli::trace {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::Done;
using platform::Outcome;
using testing::ElementsAre;
using testing::HasSubstr;

// As little of an agent as shows what the player does: it reads its document, registers ⌃⌥J, and
// opens the first shortcut 20 ms after the press.
class SmallAgent final : public TraceAgent, private platform::HotkeyEvents {
public:
    explicit SmallAgent(const platform::Ports& ports) : ports_(ports) {}
    ~SmallAgent() override { (void)ports_.hotkeys.installHandler(nullptr); }

    Outcome start() override {
        const auto bytes = ports_.files.read(ports_.app.supportFolder + u"/config.json"_s, 1 << 20);
        config_ = bytes ? QJsonDocument::fromJson(*bytes).object() : QJsonObject();
        const std::int32_t status = ports_.hotkeys.installHandler(this);
        auto answers = ports_.hotkeys.registerHotkeys({{{1}, 38, 0x1800}});
        ports_.diagnostics.log(u"handler %1 hotkey %2"_s.arg(status).arg(answers.front().status));
        grab_ = std::move(answers.front().grab);
        return Done{};
    }
    Outcome changeSettings(const QJsonObject& set) override {
        for (auto key = set.begin(); key != set.end(); ++key)
            config_[key.key()] = key.value();
        return Done{};
    }
    Outcome hover(int) override { return Done{}; }
    Outcome pick(int) override { return Done{}; }
    QJsonObject snapshot() const override { return {{u"config"_s, config_}}; }

private:
    platform::HotkeyHandling hotkeyPressed(platform::HotkeyIdentifier,
                                           platform::Instant seen) override {
        if (seen != ports_.scheduler.now())
            ports_.diagnostics.log(u"late"_s);
        timer_ = ports_.scheduler.after(20ms, "open", [this] {
            ports_.diagnostics.print(u"opening"_s);
            const QJsonObject shortcut = config_[u"shortcuts"_s][0].toObject();
            ports_.workspace.openApplication(shortcut[u"targetPath"_s].toString(),
                                             [](const Outcome&) {});
        });
        return platform::HotkeyHandling::handled;
    }
    void refusedHotkeysMayBeFree() override { ports_.diagnostics.log(u"may be free"_s); }

    const platform::Ports& ports_;
    QJsonObject config_;
    platform::HotkeyGrab grab_;
    platform::Timer timer_;
};

struct Played {
    std::vector<std::string> lines;
    QJsonObject end;
    std::string failure;
};

Played play(QByteArray trace) {
    sim::SimDesktop desk;
    SmallAgent agent(desk.ports());
    Played played;
    TracePlayer player(desk, agent, [&played](const QByteArray& line) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        if (object.contains(u"end"_s))
            played.end = object[u"end"_s].toObject();
        else
            played.lines.push_back(line.toStdString());
    });
    QBuffer input(&trace);
    EXPECT_TRUE(input.open(QIODevice::ReadOnly));
    const Outcome outcome = player.play(input);
    if (!outcome)
        played.failure = outcome.failure().detail.toStdString();
    return played;
}

constexpr const char* stage = R"({"do":"app","name":"Mail","path":"/Applications/Mail.app"}
{"do":"app","name":"Notes","path":"/Applications/Notes.app","running":false}
{"do":"front","app":"Mail"}
{"do":"shortcut","name":"Notes","path":"/Applications/Notes.app","type":"application","key":"ctrl+opt+j"}
)";

TEST(TracePlayer, aPressReachesTheAgentAndItsEffectsAreWrittenWithTheirTimes) {
    const Played played = play(QByteArray(stage) + R"({"do":"start"}
{"at":0.7,"do":"hotkey","key":"ctrl+opt+j"}
{"do":"wait","until":1.5})");
    EXPECT_EQ(played.failure, "");
    EXPECT_THAT(
        played.lines,
        ElementsAre(R"({"t":0,"log":"handler 0 hotkey 0"})", R"({"t":0.72,"print":"opening"})",
                    R"({"t":0.72,"call":"openApplication","path":"/Applications/Notes.app"})"));
    EXPECT_EQ(played.end[u"front"_s], u"Notes"_s);
}

TEST(TracePlayer, whatIsNotDueAtTheLastEventDoesNotRun) {
    const Played played = play(QByteArray(stage) + R"({"do":"start"}
{"at":0.7,"do":"hotkey","key":"ctrl+opt+j"}
{"do":"wait","until":0.719999999})");
    EXPECT_EQ(played.lines.size(), 1U);
    EXPECT_EQ(played.end[u"front"_s], u"Mail"_s);
}

TEST(TracePlayer, theLinesBeforeTheStartMakeTheDocument) {
    const Played played = play(R"({"do":"clock","utc":"2026-07-24T21:59:50Z"}
{"do":"config","set":{"windowCycling":true}}
{"at":5,"do":"shortcut","name":"X","path":"/tmp/x.txt","type":"file","hideKey":"f5"}
{"do":"shortcut","name":"Y","path":"/tmp/y","type":"folder","key":"cmd+shift+4"}
{"do":"bookmark","path":"/tmp/x.txt","resolves":null}
{"do":"start"}
{"do":"config","set":{"shiftToHide":false}}
{"do":"shortcut","name":"Z","path":"/Z.app","type":"application"})");
    ASSERT_EQ(played.failure, "");
    const QJsonObject config = played.end[u"config"_s].toObject();
    EXPECT_EQ(config[u"version"_s], 1);
    EXPECT_EQ(config[u"windowCycling"_s], true);
    EXPECT_EQ(config[u"shiftToHide"_s], false);
    const QJsonArray shortcuts = config[u"shortcuts"_s].toArray();
    ASSERT_EQ(shortcuts.size(), 3);
    EXPECT_EQ(shortcuts[0], (QJsonObject{{u"id"_s, u"00000000-0000-4000-8000-000000000001"_s},
                                         {u"name"_s, u"X"_s},
                                         {u"targetPath"_s, u"/tmp/x.txt"_s},
                                         {u"targetType"_s, u"file"_s},
                                         {u"bookmarkData"_s, u"c2ltLWJvb2ttYXJrOi90bXAveC50eHQ="_s},
                                         {u"hideKeyCombo"_s,
                                          QJsonObject{{u"keyCode"_s, 96}, {u"modifiers"_s, 0}}},
                                         {u"sortOrder"_s, 0},
                                         {u"createdAt"_s, u"2026-07-24T21:59:55Z"_s}}));
    EXPECT_EQ(shortcuts[1][u"keyCombo"_s], (QJsonObject{{u"keyCode"_s, 21}, {u"modifiers"_s, 9}}));
    EXPECT_EQ(shortcuts[2][u"sortOrder"_s], 2);
    EXPECT_EQ(shortcuts[2][u"id"_s], u"00000000-0000-4000-8000-000000000003"_s);
}

TEST(TracePlayer, refusalsReachTheAgentAndAreLifted) {
    const Played played = play(R"({"do":"refuse","key":"ctrl+opt+j","status":-9878}
{"do":"refuse","handler":0}
{"do":"start"}
{"do":"refuse","key":"ctrl+opt+j","status":0})");
    EXPECT_THAT(played.lines, ElementsAre(R"({"t":0,"log":"handler 0 hotkey -9878"})",
                                          R"({"t":0,"log":"may be free"})"));
    EXPECT_THAT(play("{\"do\":\"refuse\",\"handler\":-1}\n{\"do\":\"start\"}").lines,
                ElementsAre(R"({"t":0,"log":"handler -1 hotkey 0"})"));
}

TEST(TracePlayer, whatTheDesktopCannotDoEndsThePlayWithItsLine) {
    struct Row {
        const char* trace;
        const char* failure;
    };
    for (const Row& row : {
             Row{"{\"do\":\"front\",\"app\":\"Notes\"}", "line 1: Notes is not running"},
             Row{"{\"do\":\"quit\",\"app\":\"Notes\"}", "line 1: Notes is not running"},
             Row{"{\"do\":\"hideFails\",\"app\":\"Notes\"}", "line 1: Notes is not installed"},
             Row{"{\"do\":\"start\"}\n{\"do\":\"start\"}", "line 2: the agent runs already"},
             Row{"{\"do\":\"app\",\"name\":\"A\",\"pid\":7}\n{\"do\":\"app\",\"name\":\"B\","
                 "\"pid\":7}",
                 "line 2: pid 7 is taken by A"},
             Row{"{\"do\":\"file\",\"path\":\"/a\"}\n{\"do\":\"folder\",\"path\":\"/a\"}",
                 "line 2: /a"},
             Row{"{\"do\":\"folder\",\"path\":\"/a\"}\n{\"do\":\"file\",\"path\":\"/a\"}",
                 "line 2: /a is a folder"},
             Row{"{\"do\":\"remove\",\"path\":\"/a\"}", "line 1: /a"},
         }) {
        const Played played = play(row.trace);
        EXPECT_THAT(played.failure, HasSubstr(row.failure));
        EXPECT_TRUE(played.end.isEmpty()) << row.trace;
    }
}

TEST(TracePlayer, aTraceWithoutAStartEndsWithTheStage) {
    const Played played = play(stage);
    EXPECT_EQ(played.end[u"front"_s], u"Mail"_s);
    EXPECT_EQ(played.end[u"config"_s][u"shortcuts"_s].toArray().size(), 1);
    EXPECT_TRUE(played.end[u"panel"_s].isNull());
}

} // namespace
} // namespace skipnest::cli::trace
