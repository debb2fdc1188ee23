// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/DesktopTest.h"
#include "tests/e2e/Waiting.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

#include <csignal>
#include <sys/wait.h>

namespace skipnest::e2e {
namespace {

using namespace std::chrono_literals;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The program as built, talking to the stand-in of the web service on this machine.
class ServicesTest : public DesktopTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(open(WindowManager::openbox));
        service_ = session->start(
            {QStringLiteral(SKIPNEST_STAND_IN), QStringLiteral("--port"), QStringLiteral("0")});
        ASSERT_TRUE(eventually([this] { return traffic().startsWith("http://127.0.0.1:"); }));
        session->setEnvironment(QStringLiteral("SKIPNEST_SERVICE_URL"),
                                QString::fromUtf8(traffic().split('\n').first()));
    }

    void TearDown() override {
        service_.end();
        DesktopTest::TearDown();
    }

    // Its address, then every request with its fields.
    [[nodiscard]] QByteArray traffic() const {
        return contentOf(session->outputPath(QStringLiteral("skipnest_service")));
    }
    [[nodiscard]] QString support(const char* file) const {
        return session->configHome() + QStringLiteral("/Skipnest/") + QLatin1String(file);
    }
    void setDefaults(const QByteArray& document) {
        QDir().mkpath(session->configHome() + QStringLiteral("/Skipnest"));
        QFile file(support("defaults.json"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(document) == document.size());
    }

    ChildProcess service_;
};

TEST_F(ServicesTest, ACrashIsReportedAtTheNextStartOnce) {
    agent->set(QStringLiteral("crashReports"), true);
    // The person has seen the first report of this installation before.
    ASSERT_NO_FATAL_FAILURE(setDefaults(R"({"sk.crash.seen": true})"));
    bindBoth();
    ASSERT_NO_FATAL_FAILURE(startAgent());
    agent->process().send(SIGSEGV);
    ASSERT_TRUE(agent->process().ends(5s));
    const auto status = agent->process().waitStatus();
    ASSERT_TRUE(status && WIFSIGNALED(*status));
    EXPECT_EQ(WTERMSIG(*status), SIGSEGV);
    EXPECT_THAT(contentOf(support("pending-crash.json")).toStdString(),
                testing::HasSubstr("skipnest-agent+0x"));

    for (int start = 1; start <= 2; ++start) {
        ChildProcess next = agent->startAnother();
        ASSERT_TRUE(eventually([this] { return agent->answers(); }));
        ASSERT_TRUE(eventually([this] { return traffic().count("POST /crash.php") == 1; }))
            << traffic().constData();
        ASSERT_TRUE(eventually([this] { return !QFile::exists(support("pending-crash.json")); }));
        EXPECT_TRUE(jumps(u"ctrl+alt+j", one));
        EXPECT_TRUE(jumps(u"ctrl+alt+k", two));
    }
    EXPECT_EQ(traffic().count("POST /crash.php"), 1);
    EXPECT_FALSE(traffic().contains("WRONG")) << traffic().constData();
    EXPECT_FALSE(traffic().contains("/version.php")) << "nobody agreed to that";
    EXPECT_FALSE(traffic().contains(session->home().toUtf8())) << traffic().constData();
}

TEST_F(ServicesTest, JumpsAreCountedAndReachTheBoard) {
    ASSERT_NO_FATAL_FAILURE(setDefaults(
        R"({"sk.pings": true, "sk.challenge.v1": {"joined": true, "name": "Ada", "country": "gb",
            "id": "4a7c6f1e-0000-4000-8000-000000000001"}})"));
    bindBoth();
    ASSERT_NO_FATAL_FAILURE(startAgent());
    EXPECT_TRUE(jumps(u"ctrl+alt+j", one));
    EXPECT_TRUE(jumps(u"ctrl+alt+k", two));
    EXPECT_TRUE(agent->logs(QStringLiteral("challenge: rank #1 of 1")));
    ASSERT_TRUE(eventually([this] { return traffic().contains("stage = first_jump"); }))
        << traffic().constData();
    EXPECT_EQ(traffic().count("POST /leaderboard.php"), 1) << "300 s lie between two";

    ASSERT_TRUE(eventually([this] { return QFile::exists(support("stats.json")); }, 5s));
    const QJsonObject figures = agent->command({QStringLiteral("stats")}).json.object();
    EXPECT_EQ(figures[u"total"].toInt(), 2);
    EXPECT_EQ(figures[u"weekJumps"].toInt(), 2);
    EXPECT_EQ(figures[u"streakDays"].toInt(), 1);
    EXPECT_FALSE(traffic().contains("WRONG")) << traffic().constData();
    EXPECT_FALSE(traffic().contains("Fixture")) << "no target is ever named";
}

} // namespace
} // namespace skipnest::e2e
