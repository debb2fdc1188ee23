// SPDX-License-Identifier: Apache-2.0
#include "services/Pings.h"

#include "tests/services/ServicesDesk.h"

#include <QJsonArray>

#include <gmock/gmock.h>

#include <optional>

namespace skipnest::services {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto install = "GET /version.php?v=1.0.0&b=1&e=pro&r=new";
constexpr auto firstStart = "GET /version.php?v=1.0.0&b=1&e=pro&stage=first_start&r=new";
constexpr auto onboarded = "GET /version.php?v=1.0.0&b=1&e=pro&stage=onboarded&r=new";

class PingsTest : public testing::Test {
protected:
    PingsTest() { stage.answer("/version.php", 200); }

    // The program starts, in this version.
    void start(const char* version = "1.0.0") {
        pings.reset();
        stage.restart();
        platform::AppInfo app = stage.desk.appInfo();
        app.version = QString::fromLatin1(version);
        identity.emplace(stage.desk.defaults(), app);
        pings.emplace(*stage.web, stage.desk.defaults(), *identity, stage.desk.journal(), u"de"_s);
        pings->started();
        pings->reached(Pings::Stage::firstStart);
    }

    tests::ServicesDesk stage;
    std::optional<InstallIdentity> identity;
    std::optional<Pings> pings;
};

TEST_F(PingsTest, nothingIsSentBeforeThePersonAgreed) {
    for (const QJsonValue& answer : {QJsonValue(QJsonValue::Undefined), QJsonValue(false),
                                     QJsonValue(u"true"_s), QJsonValue(1)}) {
        (void)stage.desk.defaults().setValue(u"sk.pings"_s, answer);
        start();
        pings->reached(Pings::Stage::firstJump);
        pings->voice(Pings::VoiceOutcome::hit);
        EXPECT_THAT(stage.requests(), IsEmpty());
        EXPECT_THAT(stage.desk.journal().logLines(), IsEmpty());
    }
}

TEST_F(PingsTest, agreeingSendsWhatWasReachedBeforeOnce) {
    start();
    pings->reached(Pings::Stage::onboarded);
    pings->setAgreed(true);
    pings->setAgreed(true);
    EXPECT_THAT(stage.requests(), ElementsAre(install, firstStart, onboarded));
    pings->reached(Pings::Stage::onboarded);
    start();
    pings->reached(Pings::Stage::onboarded);
    EXPECT_THAT(stage.requests(), IsEmpty());
    pings->reached(Pings::Stage::firstJump);
    EXPECT_THAT(stage.desk.journal().logLines(), ElementsAre("funnel: report stage=first_jump"));
    pings->setAgreed(false);
    pings->voice(Pings::VoiceOutcome::miss);
    EXPECT_EQ(stage.requests().size(), 1U);
}

TEST_F(PingsTest, anInstallPingGoesOutOnceAVersionAndKnowsAnUpdate) {
    (void)stage.desk.defaults().setValue(u"sk.pings"_s, true);
    start();
    EXPECT_EQ(stage.requests().size(), 2U);
    start("1.1.0");
    EXPECT_THAT(stage.requests(), ElementsAre("GET /version.php?v=1.1.0&b=1&e=pro&r=update"));
    start("1.1.0");
    pings->reached(Pings::Stage::onboarded);
    EXPECT_THAT(stage.requests(),
                ElementsAre("GET /version.php?v=1.1.0&b=1&e=pro&stage=onboarded&r=update"));
}

TEST_F(PingsTest, aPingThatFailedIsTriedAgainByTheNextStartOnly) {
    (void)stage.desk.defaults().setValue(u"sk.pings"_s, true);
    for (const int status : {0, 500, 302}) {
        if (status == 0)
            stage.fail("/version.php");
        else
            stage.answer("/version.php", status);
        start();
        EXPECT_THAT(stage.requests(), ElementsAre(install, firstStart)) << status;
        pings->started();
        pings->reached(Pings::Stage::firstStart);
        EXPECT_THAT(stage.requests(), IsEmpty()) << status;
    }
    stage.answer("/version.php", 204);
    start();
    EXPECT_EQ(stage.requests().size(), 2U);
    start();
    EXPECT_THAT(stage.requests(), IsEmpty());
}

TEST_F(PingsTest, aReplyThatComesAfterTheEndIsNoFault) {
    (void)stage.desk.defaults().setValue(u"sk.pings"_s, true);
    stage.answer("/version.php", 200, "{}", 3s);
    start();
    pings.reset();
    stage.desk.advance(5s);
    EXPECT_EQ(stage.requests().size(), 2U);
}

TEST_F(PingsTest, defaultsOfAnyShapeAreNoFault) {
    (void)stage.desk.defaults().setValue(u"sk.pings"_s, true);
    (void)stage.desk.defaults().setValue(u"sk.pings.sent"_s, QJsonArray{1, u"x"_s});
    (void)stage.desk.defaults().setValue(u"sk.pings.reached"_s,
                                         QJsonArray{QJsonObject(), u"Mail"_s, u"onboarded"_s});
    start();
    EXPECT_THAT(stage.requests(), testing::UnorderedElementsAre(install, onboarded, firstStart));
}

TEST_F(PingsTest, voiceTellsTheOutcomeAndTheLanguageAlone) {
    (void)stage.desk.defaults().setValue(u"sk.pings"_s, true);
    start();
    (void)stage.requests();
    using enum Pings::VoiceOutcome;
    for (const auto outcome : {hit, miss, pick, fix})
        pings->voice(outcome);
    EXPECT_THAT(stage.requests(),
                ElementsAre("GET /voice.php?o=hit&l=de", "GET /voice.php?o=miss&l=de",
                            "GET /voice.php?o=pick&l=de", "GET /voice.php?o=fix&l=de"));
}

} // namespace
} // namespace skipnest::services
