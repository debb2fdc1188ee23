// SPDX-License-Identifier: Apache-2.0
#include "tests/services/Network.h"

#include "platform/WebService.h"

#include <gmock/gmock.h>

#include <ostream>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::Failure;
using platform::FormFields;
using platform::HttpExchange;
using platform::HttpReply;
using platform::HttpRequest;
using platform::Result;
using testing::IsEmpty;

const QString page = u"/version.json"_s;

class HttpClientTest : public testing::Test {
protected:
    Network network;
    StandInService& service = network.service;
};

TEST_F(HttpClientTest, aRequestTellsNothingOfThePersonAndHasItsReply) {
    const auto reply = network.reply(network.request(page));
    ASSERT_TRUE(reply) << qPrintable(reply.failure().detail);
    EXPECT_EQ(reply->status, 200);
    EXPECT_THAT(reply->body.toStdString(), testing::HasSubstr("0.0.1"));
    EXPECT_THAT(service.violations(), IsEmpty());
    ASSERT_EQ(service.received().size(), 1U);
    std::vector<std::string> headers;
    for (const auto& [name, value] : service.received().front().request.headers)
        headers.push_back(name.toStdString());
    EXPECT_THAT(headers, testing::IsSubsetOf({"accept-encoding", "accept-language", "cache-control",
                                              "connection", "host", "pragma", "user-agent"}));
}

TEST_F(HttpClientTest, formsArriveAsTheyWereWritten) {
    platform::WebService web(network.client, network.scheduler, service.address());
    const QString text = u"Ein + zwei & drei = 100 %\nGrüße, \"🐝\" ; ~ -- \t €"_s;
    int answered = 0;
    web.post(u"/feedback.php"_s, {{u"category"_s, u"other"_s}, {u"message"_s, text}},
             [&](const Result<HttpReply>& reply) { answered += reply && reply->isSuccess(); });
    web.get(u"/leaderboard.php"_s,
            {{u"api"_s, u"checkname"_s},
             {u"n"_s, u"Zoë & 木 + \\"_s},
             {u"i"_s, u"5f3f1c5e-9f0b-4a57-8f6e-1f2d3c4b5a69"_s}},
            [&](const Result<HttpReply>& reply) { answered += reply && reply->isSuccess(); });
    EXPECT_TRUE(network.waitUntil([&] { return answered == 2; }));
    EXPECT_THAT(service.violations(), IsEmpty());
    ASSERT_EQ(service.received(EndpointKind::feedback).size(), 1U);
    EXPECT_EQ(service.received(EndpointKind::feedback)[0].value(u"message"_s), text);
    ASSERT_EQ(service.received(EndpointKind::checkName).size(), 1U);
    EXPECT_EQ(service.received(EndpointKind::checkName)[0].value(u"n"_s), u"Zoë & 木 + \\");
}

TEST_F(HttpClientTest, cookiesOfAReplyDoNotComeBack) {
    service.setAnswer(page, ScriptedAnswer::reply(200, "{}", "Set-Cookie: who=ada; Path=/\r\n"));
    ASSERT_TRUE(network.reply(network.request(page)));
    ASSERT_TRUE(network.reply(network.request(page)));
    EXPECT_EQ(service.received().size(), 2U); // nor is the first reply taken again
    EXPECT_THAT(service.violations(), IsEmpty());
}

TEST_F(HttpClientTest, anyStatusIsAReplyAndARedirectIsNotFollowed) {
    for (const int status :
         {204, 304, 400, 401, 403, 404, 405, 409, 410, 418, 429, 500, 501, 503, 599}) {
        const QByteArray body = status == 204 || status == 304 ? "" : "why";
        service.setAnswer(page, ScriptedAnswer::reply(status, body));
        const auto reply = network.reply(network.request(page));
        ASSERT_TRUE(reply) << status << ' ' << qPrintable(reply.failure().detail);
        EXPECT_EQ(reply->status, status);
        EXPECT_EQ(reply->body, body) << status;
    }
    const auto before = service.received().size();
    service.setAnswer(page, ScriptedAnswer::redirect("/version.php"));
    const auto reply = network.reply(network.request(page));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 302);
    EXPECT_EQ(service.received().size(), before + 1);
}

struct Fault {
    const char* what;
    ScriptedAnswer answer;
    Failure::Kind kind;
};
void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.what;
}

class HttpFaultTest : public testing::TestWithParam<Fault> {
protected:
    Network network;
};

TEST_P(HttpFaultTest, isNamed) {
    network.service.setAnswer(page, GetParam().answer);
    HttpRequest request = network.request(page);
    request.deadline = 400ms;
    const platform::Instant asked = network.scheduler.now();
    const auto reply = network.reply(request);
    ASSERT_FALSE(reply) << reply->status << ' ' << reply->body.toStdString();
    EXPECT_EQ(reply.failure().kind, GetParam().kind) << qPrintable(reply.failure().detail);
    EXPECT_FALSE(reply.failure().detail.contains(u"127.0.0.1"));
    if (GetParam().kind == Failure::Kind::timedOut) {
        EXPECT_GE(network.scheduler.now() - asked, request.deadline);
    }
}

ScriptedAnswer bytes(const QByteArray& all) {
    return {ScriptedAnswer::Manner::whole, all};
}

const Fault faults[] = {
    {"silent", ScriptedAnswer::silent(), Failure::Kind::timedOut},
    {"trickling", ScriptedAnswer::trickling(), Failure::Kind::timedOut},
    {"cut", ScriptedAnswer::cut(), Failure::Kind::malformed},
    {"cutInTheHeaders", bytes("HTTP/1.1 200 OK\r\nContent-Le"), Failure::Kind::malformed},
    {"closedAtOnce", ScriptedAnswer::closedAtOnce(), Failure::Kind::malformed},
    {"noHttp", bytes("SSH-2.0-x\r\n\r\nabc"), Failure::Kind::malformed},
    {"noStatus", bytes("HTTP/1.1 what\r\n\r\n"), Failure::Kind::malformed},
    {"endless", ScriptedAnswer::huge(), Failure::Kind::tooLarge},
    {"announcedTooLong", bytes("HTTP/1.1 200 OK\r\nContent-Length: 9999999\r\n\r\n{}"),
     Failure::Kind::tooLarge},
    {"aByteTooLong", ScriptedAnswer::reply(200, QByteArray(64 * 1024 + 1, 'x')),
     Failure::Kind::tooLarge},
};
INSTANTIATE_TEST_SUITE_P(Faults, HttpFaultTest, testing::ValuesIn(faults),
                         [](const auto& row) { return std::string(row.param.what); });

TEST_F(HttpClientTest, theLongestReplyIsTaken) {
    service.setAnswer(page, ScriptedAnswer::reply(200, QByteArray(64 * 1024, 'x')));
    const auto reply = network.reply(network.request(page));
    ASSERT_TRUE(reply) << qPrintable(reply.failure().detail);
    EXPECT_EQ(reply->body.size(), 64 * 1024);
}

TEST_F(HttpClientTest, aPostThatGotNoAnswerIsNotSentAgain) {
    service.setAnswer(u"/feedback.php"_s, ScriptedAnswer::closedAtOnce());
    HttpRequest request = network.request(u"/feedback.php"_s);
    request.method = HttpRequest::Method::post;
    request.contentType = "application/x-www-form-urlencoded";
    request.body = "category=bug&message=once";
    const auto reply = network.reply(request);
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.failure().kind, Failure::Kind::malformed);
    EXPECT_EQ(service.received(EndpointKind::feedback).size(), 1U);
}

TEST_F(HttpClientTest, aServerThatIsNotThereRefuses) {
    const HttpRequest request = network.request(page);
    service.close();
    const auto reply = network.reply(request);
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.failure().kind, Failure::Kind::refused);
}

TEST_F(HttpClientTest, nothingIsToldAfterTheExchangeWasDropped) {
    bool heard = false;
    // Before it began, and while the reply comes.
    platform::HttpExchange early =
        network.client.send(network.request(page), [&](const auto&) { heard = true; });
    early.reset();
    service.setAnswer(page, ScriptedAnswer::trickling());
    HttpRequest slow = network.request(page);
    slow.deadline = 300ms;
    platform::HttpExchange late = network.client.send(slow, [&](const auto&) { heard = true; });
    ASSERT_TRUE(network.waitUntil([&] { return !service.received().empty(); }));
    late.reset();
    bool isOver = false;
    const auto end = network.scheduler.after(500ms, "end", [&] { isOver = true; });
    ASSERT_TRUE(network.waitUntil([&] { return isOver; }));
    EXPECT_FALSE(heard);
}

TEST_F(HttpClientTest, aCompletionMayDropItsExchangeAndBeginTheNext) {
    HttpExchange exchange;
    int replies = 0;
    const std::function<void(const Result<HttpReply>&)> again = [&](const Result<HttpReply>&) {
        if (++replies < 3)
            exchange = network.client.send(network.request(page), again);
        else
            exchange.reset();
    };
    exchange = network.client.send(network.request(page), again);
    EXPECT_TRUE(network.waitUntil([&] { return replies == 3; }));
}

TEST_F(HttpClientTest, theEnvironmentsProxyIsUsedOnlyWhereItIsWanted) {
    StandInService proxy(network.scheduler);
    ASSERT_TRUE(proxy.listenHere());
    qputenv("http_proxy", proxy.address().toLatin1());
    qputenv("no_proxy", "");
    // Nobody listens there.
    HttpRequest request{.url = QUrl(u"http://127.0.0.2:9/version.json"_s),
                        .proxy = HttpRequest::Proxy::none};
    const auto direct = network.reply(request);
    EXPECT_EQ(proxy.received().size(), 0U);
    request.proxy = HttpRequest::Proxy::system;
    (void)network.reply(request);
    EXPECT_EQ(proxy.received().size(), 1U);
    qunsetenv("http_proxy");
    qunsetenv("no_proxy");
    ASSERT_FALSE(direct);
    EXPECT_EQ(direct.failure().kind, Failure::Kind::refused);
}

} // namespace
} // namespace skipnest::tests
