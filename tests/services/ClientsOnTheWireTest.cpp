// SPDX-License-Identifier: Apache-2.0
#include "services/CrashReporter.h"
#include "services/FeedbackService.h"
#include "services/Pings.h"
#include "services/ShareLink.h"
#include "services/UpdateChecker.h"
#include "stats/ChallengeService.h"

#include "platform/sim/SimDesktop.h"
#include "tests/services/Network.h"

#include <gmock/gmock.h>

#include <optional>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using services::Pings;
using stats::ChallengeService;
using testing::IsEmpty;
using testing::SizeIs;

// The desktop is simulated, the network is not.
class ClientsOnTheWireTest : public testing::Test {
protected:
    Network network;
    StandInService& service = network.service;
    sim::SimDesktop desk;
    platform::WebService web{network.client, network.scheduler, service.address()};
    services::InstallIdentity identity{desk.defaults(), desk.appInfo()};
};

TEST_F(ClientsOnTheWireTest, pingsHaveTheFormTheServiceWants) {
    Pings pings(web, desk.defaults(), identity, desk.journal(), {});
    pings.setAgreed(true);
    pings.started();
    for (const auto stage :
         {Pings::Stage::firstStart, Pings::Stage::onboarded, Pings::Stage::firstJump})
        pings.reached(stage);
    for (const auto outcome : {Pings::VoiceOutcome::hit, Pings::VoiceOutcome::fix})
        pings.voice(outcome);
    EXPECT_TRUE(network.waitUntil([&] { return service.received().size() == 6; }));
    EXPECT_THAT(service.violations(), IsEmpty());
    EXPECT_THAT(service.received(EndpointKind::install), SizeIs(1));
    EXPECT_THAT(service.received(EndpointKind::funnel), SizeIs(3));
    EXPECT_THAT(service.received(EndpointKind::voice), SizeIs(2));
}

TEST_F(ClientsOnTheWireTest, feedbackArrivesAndAReleaseIsFound) {
    services::FeedbackService feedback(web, desk.journal());
    std::optional<bool> sent;
    feedback.send(services::FeedbackService::Category::marketing, u"100 % & mehr…"_s,
                  u"ada+news@example.org"_s, [&](bool ok) { sent = ok; });
    EXPECT_TRUE(network.waitUntil([&] { return sent.has_value(); }));
    EXPECT_EQ(sent, true);
    ASSERT_THAT(service.received(EndpointKind::feedback), SizeIs(1));
    EXPECT_EQ(service.received(EndpointKind::feedback)[0].value(u"email"_s),
              u"ada+news@example.org");

    service.setRelease(u"9.0"_s, u"1"_s, u"https://skipnest.example/9"_s);
    services::UpdateChecker checker(web, desk.applications(), network.scheduler, desk.journal(),
                                    desk.appInfo());
    checker.start();
    EXPECT_TRUE(network.waitUntil([&] { return checker.available().has_value(); }));
    EXPECT_THAT(service.violations(), IsEmpty());
}

TEST_F(ClientsOnTheWireTest, aChallengerJoinsIsRankedAndLeaves) {
    service.leaderboard().submit(
        {.id = u"other"_s, .name = u"Grace"_s, .country = u"us"_s, .jumps = 40});
    stats::JumpStats jumps(desk.files(), desk.scheduler(), network.executor, desk.wallClock(),
                           desk.journal(), desk.appInfo());
    jumps.record(stats::JumpStats::Kind::keyboard, u"Mail"_s);
    ChallengeService challenge(web, jumps, desk.defaults(), network.scheduler, desk.wallClock(),
                               desk.journal(), desk.appInfo());
    std::optional<ChallengeService::Joining> joining;
    const auto join = [&](const QString& name) {
        joining.reset();
        challenge.join(name, u"de"_s, [&](auto how) { joining = how; });
        return network.waitUntil([&] { return joining.has_value(); });
    };
    ASSERT_TRUE(join(u"GRACE"_s));
    EXPECT_EQ(joining, ChallengeService::Joining::nameTaken);
    ASSERT_TRUE(join(u"Zoë & 木"_s));
    EXPECT_EQ(joining, ChallengeService::Joining::joined);
    ASSERT_TRUE(network.waitUntil([&] { return challenge.state().lastRank > 0; }));
    EXPECT_EQ(challenge.state().lastRank, 2);
    EXPECT_EQ(challenge.state().lastOf, 2);

    std::optional<platform::Result<stats::ChallengeBoard>> board;
    challenge.fetchBoard([&](const auto& shown) { board = shown; });
    ASSERT_TRUE(network.waitUntil([&] { return board.has_value(); }));
    ASSERT_TRUE(board->ok());
    ASSERT_THAT((*board)->entries, SizeIs(2));
    EXPECT_EQ((*board)->entries[1].name, u"Zoë & 木");
    EXPECT_TRUE((*board)->entries[1].isOwn);

    std::optional<bool> left;
    challenge.leave([&](bool gone) { left = gone; });
    ASSERT_TRUE(network.waitUntil([&] { return left.has_value(); }));
    EXPECT_EQ(left, true);
    EXPECT_THAT(service.leaderboard().entries(), SizeIs(1));
    EXPECT_THAT(service.violations(), IsEmpty());
}

TEST_F(ClientsOnTheWireTest, aCrashIsReportedOnceAndPagesForTheBrowserAreRight) {
    services::CrashReporter reporter(web, desk.files(), desk.defaults(), identity, desk.journal(),
                                     desk.appInfo());
    ASSERT_TRUE(desk.addFile(reporter.recordFile(),
                             R"({"type":"signal","name":"SIGSEGV",)"
                             R"("stack":"skipnest+0x1f2a\nlibc.so.6+0x2b"})"));
    reporter.start(true);
    ASSERT_TRUE(reporter.waiting());
    reporter.sendWaiting();
    EXPECT_TRUE(network.waitUntil([&] { return service.received().size() == 1; }));
    EXPECT_THAT(service.received(EndpointKind::crash), SizeIs(1));

    // As a browser would ask.
    platform::HttpRequest page{.url = services::shareLink(web, {7, 1, 2, 90}),
                               .proxy = platform::HttpRequest::Proxy::none};
    EXPECT_TRUE(network.reply(page));
    EXPECT_THAT(service.received(EndpointKind::share), SizeIs(1));
    EXPECT_THAT(service.violations(), IsEmpty());
}

} // namespace
} // namespace skipnest::tests
