// SPDX-License-Identifier: Apache-2.0
#include "services/UpdateChecker.h"

#include "tests/services/ServicesDesk.h"

#include <gmock/gmock.h>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

QByteArray release(const QByteArray& version, const QByteArray& build = "1",
                   const QByteArray& url = "https://skipnest.example/1") {
    return "{\"version\":\"" + version + "\",\"build\":\"" + build + "\",\"url\":\"" + url +
           "\",\"notes\":\"n\"}";
}

TEST(ReleaseTest, isDecodedOnlyWhenItIsRightInEveryPoint) {
    const auto right = decodeRelease(release("1.2", "34"));
    ASSERT_TRUE(right);
    EXPECT_EQ(*right, (Release{u"1.2"_s, u"34"_s, u"https://skipnest.example/1"_s, u"n"_s}));
    const QByteArray wrong[] = {
        "",
        "null",
        "[]",
        "{}",
        release("1.2").chopped(1),
        release("1.2").replace("\"1.2\"", "1.2"),
        release("1.2").replace("\"n\"", "null"),
        release("1.2").replace("notes", "note"),
        release(""),
        release("1."),
        release(".1"),
        release("1..2"),
        release("-1"),
        release("1.2-beta"),
        release("1.2\\n"),
        release("\xD9\xA1.2"), // digits, but of another script
        release(QByteArray(65, '1')),
        release("1.2", ""),
        release("1", "1", ""),
        release("1", "1", "http://skipnest.example/1"),
        release("1", "1", "file:///bin/sh"),
        release("1", "1", "https:///nowhere"),
        release("1", "1", "https://skipnest.example@elsewhere.example/"),
        release("1", "1", "https://skipnest.example/a b"),
        release("1", "1", "https://skipnest.example/" + QByteArray(2048, 'a')),
        release("1", "1", "http://127.0.0.1:8480/1"),
    };
    for (const QByteArray& bytes : wrong)
        EXPECT_FALSE(decodeRelease(bytes)) << bytes.toStdString();
    EXPECT_TRUE(decodeRelease(release("1", "1", "http://127.0.0.1:8480/1"),
                              ReleasePages::httpsOrThisMachine));
    EXPECT_FALSE(decodeRelease(release("1", "1", "http://skipnest.example/1"),
                               ReleasePages::httpsOrThisMachine));
}

TEST(ReleaseTest, isNewerByNumbersThenByBuild) {
    struct Row {
        const char* remote;
        const char* remoteBuild;
        const char* running;
        const char* runningBuild;
        bool isNewer;
    };
    const Row rows[] = {
        {"1.10", "1", "1.9", "1", true},
        {"1.9", "1", "1.10", "1", false},
        {"1.2.0", "1", "1.2", "1", false},
        {"1.2.0.1", "1", "1.2", "1", true},
        {"01.2", "1", "1.2", "1", false},
        {"1.2", "10", "1.2", "9", true},
        {"1.2", "9", "1.2", "10", false},
        {"1.1", "99", "1.2", "1", false},
        {"99999999999999999999999999", "1", "99999999999999999999999998", "1", true},
        {"18446744073709551617", "1", "2", "1", true}, // 2^64 + 1
        {"2.0", "1", "1.0-dev", "1", false},
        {"2.0", "1", "1.0", "", false},
        {"junk", "1", "1.0", "1", false},
    };
    for (const Row& row : rows) {
        const Release remote{
            QString::fromLatin1(row.remote), QString::fromLatin1(row.remoteBuild), {}, {}};
        EXPECT_EQ(isNewer(remote, QString::fromLatin1(row.running),
                          QString::fromLatin1(row.runningBuild)),
                  row.isNewer)
            << row.remote << " and " << row.running;
    }
}

class UpdateCheckerTest : public testing::Test {
protected:
    UpdateCheckerTest() {
        QObject::connect(&checker, &UpdateChecker::checked, &checker,
                         [this](UpdateChecker::Outcome outcome) { checked.push_back(outcome); });
        QObject::connect(&checker, &UpdateChecker::availableChanged, &checker,
                         [this] { ++changes; });
    }
    // What a check logs.
    std::vector<std::string> check() {
        stage.desk.journal().clear();
        checker.check();
        stage.desk.advance({});
        return stage.desk.journal().logLines();
    }

    tests::ServicesDesk stage;
    UpdateChecker checker{*stage.web, stage.desk.applications(), stage.desk.scheduler(),
                          stage.desk.journal(), stage.desk.appInfo()};
    std::vector<UpdateChecker::Outcome> checked;
    int changes = 0;
};

TEST_F(UpdateCheckerTest, asksAtTheStartAndOnceADay) {
    stage.answer("/version.json", 200, release("1.0.0"));
    checker.start();
    EXPECT_THAT(stage.requests(), ElementsAre("GET /version.json"));
    stage.desk.advance(24h - 1s);
    EXPECT_THAT(stage.requests(), IsEmpty());
    stage.desk.advance(1s);
    EXPECT_EQ(stage.requests().size(), 1U);
    stage.desk.advance(48h);
    EXPECT_EQ(stage.requests().size(), 2U);
}

TEST_F(UpdateCheckerTest, aNewerReleaseIsOfferedUntilACheckFindsNone) {
    stage.answer("/version.json", 200, release("1.0.1", "7"));
    EXPECT_THAT(check(), ElementsAre("update: remote 1.0.1 (7) newer=true"));
    ASSERT_TRUE(checker.available());
    stage.fail("/version.json");
    EXPECT_THAT(check(), ElementsAre("update: check failed (nobody there)"));
    EXPECT_TRUE(checker.available());
    stage.answer("/version.json", 200, "<html>");
    EXPECT_THAT(check(), ElementsAre("update: check failed (bad payload)"));
    stage.answer("/version.json", 500, release("1.0.1", "7"));
    EXPECT_THAT(check(), ElementsAre("update: check failed (status 500)"));
    EXPECT_EQ(checker.available()->version, u"1.0.1");
    EXPECT_EQ(changes, 1);
    stage.answer("/version.json", 200, release("1.0.0"));
    EXPECT_THAT(check(), ElementsAre("update: remote 1.0.0 (1) newer=false"));
    EXPECT_FALSE(checker.available());
    EXPECT_EQ(changes, 2);
    using enum UpdateChecker::Outcome;
    EXPECT_THAT(checked, ElementsAre(newer, failed, failed, failed, newest));
}

TEST_F(UpdateCheckerTest, checksDoNotOverlap) {
    stage.answer("/version.json", 200, release("1.0.0"), 2s);
    checker.check();
    checker.check();
    stage.desk.advance(3s);
    EXPECT_EQ(stage.requests().size(), 1U);
    EXPECT_EQ(checked.size(), 1U);
    checker.check();
    EXPECT_EQ(stage.requests().size(), 1U);
}

TEST_F(UpdateCheckerTest, opensThePageAndDownloadsNothing) {
    checker.open();
    EXPECT_THAT(stage.desk.journal().calls(), IsEmpty());
    stage.answer("/version.json", 200, release("2.0"));
    (void)check();
    stage.desk.journal().clear();
    checker.open();
    EXPECT_THAT(stage.desk.journal().calls(),
                ElementsAre("openURL url=https://skipnest.example/1"));
    EXPECT_THAT(stage.desk.journal().logLines(),
                ElementsAre("update: opening https://skipnest.example/1"));
}

TEST(UpdateWithoutServiceTest, isNeverAskedFor) {
    tests::ServicesDesk stage("");
    UpdateChecker checker(*stage.web, stage.desk.applications(), stage.desk.scheduler(),
                          stage.desk.journal(), stage.desk.appInfo());
    checker.start();
    stage.desk.advance(48h);
    EXPECT_THAT(stage.desk.journal().logLines(), IsEmpty());
    EXPECT_THAT(stage.desk.runningTimers(), IsEmpty());
}

TEST(UpdateFromThisMachineTest, mayOfferAPageOnIt) {
    tests::ServicesDesk stage("http://127.0.0.1:8480");
    UpdateChecker checker(*stage.web, stage.desk.applications(), stage.desk.scheduler(),
                          stage.desk.journal(), stage.desk.appInfo());
    stage.answer("/version.json", 200, release("2.0", "1", "http://127.0.0.1:8480/page"));
    checker.check();
    stage.desk.advance({});
    EXPECT_TRUE(checker.available());
}

} // namespace
} // namespace skipnest::services
