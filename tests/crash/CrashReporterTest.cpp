// SPDX-License-Identifier: Apache-2.0
#include "services/CrashReporter.h"

#include "tests/services/ServicesDesk.h"

#include <gmock/gmock.h>

#include <optional>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto record =
    R"({"type":"signal","name":"SIGSEGV","stack":"skipnest+0x1f\nlibc.so.6+0x2"})";

class CrashReporterTest : public testing::Test {
protected:
    CrashReporterTest() { stage.answer("/crash.php", 200); }

    // The program starts after a run that ended with this record, or with none.
    void start(const QByteArray& left = record) {
        reporter.reset();
        stage.restart();
        reporter.emplace(*stage.web, stage.desk.files(), stage.desk.defaults(), identity,
                         stage.desk.journal(), stage.desk.appInfo());
        changes = 0;
        QObject::connect(&*reporter, &CrashReporter::waitingChanged, [this] { ++changes; });
        if (!left.isEmpty())
            stage.desk.files().put(reporter->recordFile(), left);
    }
    void seen() { (void)stage.desk.defaults().setValue(u"sk.crash.seen"_s, true); }
    [[nodiscard]] bool isKept(const QString& suffix = {}) {
        return stage.desk.files().content(reporter->recordFile() + suffix).has_value();
    }

    tests::ServicesDesk stage;
    InstallIdentity identity{stage.desk.defaults(), stage.desk.appInfo()};
    std::optional<CrashReporter> reporter;
    int changes = 0;
};

TEST_F(CrashReporterTest, theFirstReportWaitsForThePersonAndLaterOnesDoNot) {
    start();
    reporter->start(true);
    ASSERT_TRUE(reporter->waiting().has_value());
    EXPECT_EQ(reporter->preview(), u"v: 1.0.0\nb: 1\ne: pro\nid: "_s + identity.identifier() +
                                       u"\ntype: signal\nname: SIGSEGV\nreason: \n"
                                       "stack: skipnest+0x1f\nlibc.so.6+0x2\n"_s);
    EXPECT_THAT(stage.requests(), IsEmpty());
    EXPECT_EQ(changes, 1);

    reporter->sendWaiting();
    EXPECT_THAT(stage.desk.journal().logLines(),
                ElementsAre("crash: reporting signal from previous run"));
    EXPECT_THAT(stage.requests(), ElementsAre("POST /crash.php"));
    EXPECT_EQ(stage.desk.http().lastRequest().body,
              "v=1.0.0&b=1&e=pro&id=" + identity.identifier().toLatin1() +
                  "&type=signal&name=SIGSEGV&reason=&stack=skipnest%2B0x1f%0Alibc.so.6%2B0x2");
    EXPECT_FALSE(isKept());
    EXPECT_FALSE(reporter->waiting().has_value());
    EXPECT_EQ(changes, 2);

    start();
    reporter->start(true);
    EXPECT_THAT(stage.requests(), ElementsAre("POST /crash.php"));
    EXPECT_FALSE(isKept());
    start({});
    reporter->start(true);
    EXPECT_THAT(stage.requests(), IsEmpty());
}

TEST_F(CrashReporterTest, withoutConsentOrServiceNothingIsSentAndTheRecordStays) {
    seen();
    start();
    reporter->start(false);
    EXPECT_THAT(stage.requests(), IsEmpty());
    EXPECT_TRUE(isKept());
    reporter->start(true); // the person agrees
    EXPECT_THAT(stage.requests(), ElementsAre("POST /crash.php"));

    stage.desk.setServiceAddress({});
    start();
    reporter->start(true);
    EXPECT_THAT(stage.requests(), IsEmpty());
    EXPECT_THAT(stage.desk.journal().logLines(), IsEmpty());
    EXPECT_TRUE(isKept());
}

TEST_F(CrashReporterTest, whatWaitsGoesAwayWithTheConsentOrThePersonsNo) {
    start();
    reporter->start(true);
    reporter->start(false);
    EXPECT_FALSE(reporter->waiting().has_value());
    reporter->sendWaiting();
    EXPECT_TRUE(isKept());

    reporter->start(true);
    reporter->discardWaiting();
    EXPECT_FALSE(reporter->waiting().has_value());
    EXPECT_FALSE(isKept());
    EXPECT_THAT(stage.requests(), IsEmpty());

    start(); // one that was not sent has not taught anything
    reporter->start(true);
    EXPECT_TRUE(reporter->waiting().has_value());
}

TEST_F(CrashReporterTest, aReportThatWasNotTakenStaysForTheNextStart) {
    seen();
    const auto fail = [this](const QString& line) {
        start();
        stage.desk.journal().clear();
        reporter->start(true);
        reporter->start(true);
        stage.desk.advance(1min);
        EXPECT_THAT(stage.desk.journal().logLines(),
                    ElementsAre("crash: reporting signal from previous run", line.toStdString()));
        EXPECT_THAT(stage.requests(), ElementsAre("POST /crash.php"));
        EXPECT_TRUE(isKept());
    };
    stage.answer("/crash.php", 500);
    fail(u"crash: report failed (status=500)"_s);
    stage.answer("/crash.php", 302);
    fail(u"crash: report failed (status=302)"_s);
    stage.fail("/crash.php");
    fail(u"crash: report failed (nobody there)"_s);
    stage.answer("/crash.php", 200, "{}", 1h);
    fail(u"crash: report failed (no reply in time)"_s);
}

TEST_F(CrashReporterTest, aNewerRecordIsNotRemovedWithTheOneThatWasSent) {
    seen();
    start();
    stage.answer("/crash.php", 200, "{}", 1s);
    reporter->start(true);
    const QByteArray newer = R"({"type":"signal","name":"SIGABRT","stack":""})";
    stage.desk.files().put(reporter->recordFile(), newer);
    stage.desk.advance(1min);
    EXPECT_EQ(stage.desk.files().content(reporter->recordFile()), newer);
}

TEST_F(CrashReporterTest, aReplyAfterTheReporterIsGoneIsNobodys) {
    seen();
    start();
    stage.answer("/crash.php", 200, "{}", 1s);
    reporter->start(true);
    const QString file = reporter->recordFile();
    reporter.reset();
    stage.desk.advance(1min);
    EXPECT_TRUE(stage.desk.files().content(file).has_value());
}

TEST_F(CrashReporterTest, whatIsNoRecordIsMovedAsideAndNeverSent) {
    seen();
    for (const QByteArray& bytes :
         {QByteArray("{\"type\":"), QByteArray(R"({"type":"signal","name":"/home/tom"})"),
          QByteArray(100'000, ' ')}) {
        start(bytes);
        stage.desk.journal().clear();
        reporter->start(true);
        EXPECT_EQ(stage.desk.journal().logLines().size(), 1U);
        EXPECT_THAT(stage.requests(), IsEmpty());
        EXPECT_FALSE(isKept());
        EXPECT_TRUE(isKept(u".corrupt"_s));
    }
}

TEST_F(CrashReporterTest, aRecordThatCannotBeRemovedIsSentOnceARun) {
    seen();
    start();
    reporter->start(true);
    stage.desk.files().failAfter(1); // reading it again works, removing it does not
    EXPECT_THAT(stage.requests(), ElementsAre("POST /crash.php"));
    EXPECT_TRUE(isKept());
    reporter->start(true);
    EXPECT_THAT(stage.requests(), IsEmpty());
}

} // namespace
} // namespace skipnest::services
