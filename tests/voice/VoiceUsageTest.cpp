// SPDX-License-Identifier: Apache-2.0
#include "voice/VoiceUsage.h"

#include "platform/sim/SimDesktop.h"

#include <gmock/gmock.h>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using Use = UseHistory::Use;

TEST(UseHistory, keepsTheMostRecentTitlesAndTheirCounts) {
    UseHistory history;
    for (const QString& title : {u"Safari"_s, u"Notes"_s, u"ÜBERSICHT"_s, u"safari"_s, u" "_s})
        history.record(title);
    EXPECT_THAT(history.uses(),
                ElementsAre(Use{u"notes"_s, 1}, Use{u"übersicht"_s, 1}, Use{u"safari"_s, 2}));
    EXPECT_EQ(history.frequent(2), (QStringList{u"safari"_s, u"übersicht"_s}));
    for (std::size_t i = 0; i < UseHistory::kept - 2; ++i)
        history.record(u"title %1"_s.arg(i));
    EXPECT_EQ(history.uses().size(), UseHistory::kept);
    EXPECT_FALSE(history.counts().contains(u"notes"_s));
    EXPECT_EQ(history.counts().value(u"übersicht"_s), 1);
    const auto again = UseHistory::decoded(history.encoded());
    EXPECT_EQ(again->history, history);
    EXPECT_EQ(again->leftOut, 0);
}

TEST(UseHistory, takesWhatIsRightOfAnyFile) {
    const auto decoded = UseHistory::decoded(
        R"({"uses":[{"title":"A","count":2},{"title":"a","count":3},{"title":"b","count":-1},)"
        R"({"title":"","count":1},{"count":1},7,{"title":"c","count":1.5},)"
        R"({"title":"\ud83d","count":9007199254740991}],"newer":[1]})");
    ASSERT_TRUE(decoded);
    EXPECT_THAT(decoded->history.uses(),
                ElementsAre(Use{u"a"_s, 5}, Use{u"\uFFFD"_s, 9007199254740991}));
    EXPECT_EQ(decoded->leftOut, 5);
    EXPECT_THAT(decoded->history.encoded().toStdString(), HasSubstr("\"newer\""));
    for (const char* wrong : {"", "[]", "{", "\xff", "null"})
        EXPECT_FALSE(UseHistory::decoded(wrong)) << wrong;
    EXPECT_EQ(UseHistory::decoded(R"({"uses":"x"})")->leftOut, 1);
}

class VoiceUsageTest : public testing::Test {
protected:
    VoiceUsage usage() {
        const auto& ports = desk.ports();
        return {ports.files,     ports.scheduler,   ports.executor,
                ports.wallClock, ports.diagnostics, ports.app};
    }
    std::string content() { return desk.files().content(path).value_or("none").toStdString(); }

    sim::SimDesktop desk;
    const QString path = desk.appInfo().supportFolder + u"/voice.json"_s;
};

TEST_F(VoiceUsageTest, isWrittenTwoSecondsAfterTheLastJumpAndAtTheEnd) {
    {
        VoiceUsage counted = usage();
        counted.record(u"Safari"_s);
        desk.advance(1s);
        counted.record(u"Safari"_s);
        desk.advance(1999ms);
        EXPECT_EQ(content(), "none");
        desk.advance(1ms);
        EXPECT_THAT(content(), HasSubstr("\"count\": 2"));
        const auto operations = desk.files().operations().size();
        counted.flush();
        desk.advance(10s);
        EXPECT_EQ(desk.files().operations().size(), operations);
        counted.record(u"Notes"_s);
    }
    EXPECT_THAT(content(), HasSubstr("notes"));
    EXPECT_EQ(usage().counts(), (UseCounts{{u"safari"_s, 2}, {u"notes"_s, 1}}));
}

TEST_F(VoiceUsageTest, anOlderContentNeverReplacesANewerOne) {
    {
        VoiceUsage counted = usage();
        counted.record(u"First"_s);
        desk.scheduler().advanceTo(desk.now() + 2s - 1ns);
        counted.flush();
        counted.record(u"Second"_s);
        counted.flush();
    }
    desk.advance(10s);
    EXPECT_THAT(content(), HasSubstr("second"));
}

TEST_F(VoiceUsageTest, aFailedSaveIsSaidAndMadeUpFor) {
    VoiceUsage counted = usage();
    counted.record(u"Safari"_s);
    desk.files().failAfter(0);
    desk.advance(2s);
    EXPECT_EQ(content(), "none");
    EXPECT_THAT(desk.journal().logLines(), testing::Contains(HasSubstr("use counts not saved")));
    counted.flush();
    EXPECT_THAT(content(), HasSubstr("safari"));
}

TEST_F(VoiceUsageTest, aFileThatCannotBeReadWholeIsKeptBeside) {
    desk.files().put(path, R"({"uses":[{"title":"a","count":2},{"title":"b"}]})");
    VoiceUsage counted = usage();
    EXPECT_EQ(counted.counts(), (UseCounts{{u"a"_s, 2}}));
    counted.record(u"a"_s);
    desk.advance(2s);
    const auto kept = desk.files().list(desk.appInfo().supportFolder);
    EXPECT_EQ(kept->filter(u"voice.json.corrupt-"_s).size(), 1);
    EXPECT_THAT(content(), HasSubstr("\"count\": 3"));
}

} // namespace
} // namespace skipnest::voice
