// SPDX-License-Identifier: Apache-2.0
#include "app/ControlSocket.h"

#include "platform/QtScheduler.h"
#include "platform/sim/VirtualScheduler.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::app {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

class Peers final : public platform::PeerCredentials {
public:
    [[nodiscard]] bool isSameUser(std::intptr_t) const override { return same; }
    bool same = true;
};

// Echoes the verb; "later" is answered when the test says so.
class ControlSocketTest : public testing::Test {
protected:
    ControlSocketTest() { EXPECT_TRUE(socket.listen(path)); }

    // Runs both the real event loop and the virtual clock's posted work until it holds.
    template <typename Condition> bool until(Condition condition) {
        for (int turns = 0; turns < 2000; ++turns) {
            if (condition())
                return true;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
            scheduler.runPosted();
        }
        return condition();
    }
    std::unique_ptr<QLocalSocket> connected() {
        auto client = std::make_unique<QLocalSocket>();
        client->connectToServer(path);
        EXPECT_TRUE(until([&] { return client->state() == QLocalSocket::ConnectedState; }));
        return client;
    }
    std::string line(QLocalSocket& client) {
        if (!until([&] { return client.canReadLine(); }))
            return "nothing";
        return client.readLine().trimmed().toStdString();
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("control.sock"));
    sim::VirtualScheduler scheduler;
    Peers peers;
    std::vector<ControlSocket::Reply> owed;
    ControlSocket socket{peers, scheduler,
                         [this](const QJsonObject& request, ControlSocket::Reply reply) {
                             if (request[QStringLiteral("verb")] == QStringLiteral("later"))
                                 owed.push_back(std::move(reply));
                             else
                                 reply(ControlReply::success(request[QStringLiteral("verb")]));
                         }};
};

TEST_F(ControlSocketTest, answersInOrderOneAtATimeAndOnlyForItsUser) {
    EXPECT_EQ(QFileInfo(path).permissions() &
                  (QFile::ReadOther | QFile::WriteOther | QFile::ReadGroup | QFile::WriteGroup),
              QFile::Permissions());
    const auto client = connected();
    client->write("{\"verb\":\"later\"}\n{\"verb\":\"b\"}\n");
    ASSERT_TRUE(until([&] { return owed.size() == 1; }));
    EXPECT_FALSE(client->canReadLine());
    owed[0](ControlReply::failure(QStringLiteral("no"), {{QStringLiteral("n"), 1}}));
    EXPECT_EQ(line(*client), R"({"error":"no","n":1,"ok":false})");
    EXPECT_EQ(line(*client), R"({"ok":true,"result":"b"})");

    peers.same = false;
    const auto stranger = connected();
    EXPECT_TRUE(until([&] { return stranger->state() == QLocalSocket::UnconnectedState; }));
}

TEST_F(ControlSocketTest, badRequestsAreRefusedAndTheConnectionGoesOn) {
    const auto client = connected();
    for (const char* bad : {"\n", "[1]\n", "{\"verb\":\n", "\xff\xfe\n", "null\n"}) {
        client->write(bad);
        EXPECT_THAT(line(*client), HasSubstr("\"ok\":false")) << bad;
    }
    client->write("{\"verb\":\"still here\"}\n");
    EXPECT_THAT(line(*client), HasSubstr("still here"));
}

TEST_F(ControlSocketTest, requestsOfUpTo64KiBAreRead) {
    const auto requestOf = [](qsizetype size) {
        const QByteArray frame = "{\"verb\":\"\"}";
        return QByteArray("{\"verb\":\"") + QByteArray(size - frame.size(), 'x') + "\"}";
    };
    const auto client = connected();
    client->write(requestOf(65'536) + '\n');
    EXPECT_THAT(line(*client), HasSubstr("\"ok\":true"));
    client->write(requestOf(65'537) + '\n');
    EXPECT_THAT(line(*client), HasSubstr("64 KiB"));
    EXPECT_TRUE(until([&] { return client->state() == QLocalSocket::UnconnectedState; }));

    // Without a line break it is not waited for any longer than that.
    const auto endless = connected();
    endless->write(QByteArray(100'000, '{'));
    EXPECT_THAT(line(*endless), HasSubstr("64 KiB"));
}

TEST_F(ControlSocketTest, silentConnectionsEndUnlessAnAnswerIsOwed) {
    const auto silent = connected();
    const auto waiting = connected();
    waiting->write("{\"verb\":\"later\"}\n");
    ASSERT_TRUE(until([&] { return owed.size() == 1; }));
    scheduler.advanceTo(scheduler.now() + 1999ms);
    EXPECT_FALSE(until([&] { return silent->state() == QLocalSocket::UnconnectedState; }));
    scheduler.advanceTo(scheduler.now() + 1ms);
    EXPECT_TRUE(until([&] { return silent->state() == QLocalSocket::UnconnectedState; }));
    scheduler.advanceTo(scheduler.now() + 60s);
    owed[0](ControlReply::success(true));
    EXPECT_THAT(line(*waiting), HasSubstr("\"ok\":true"));
    EXPECT_THAT(scheduler.runningTimers(), ElementsAre(testing::_));
    waiting->disconnectFromServer();
    EXPECT_TRUE(until([&] { return scheduler.runningTimers().isEmpty(); }));
}

TEST_F(ControlSocketTest, seventeenthConnectionIsTurnedAway) {
    std::vector<std::unique_ptr<QLocalSocket>> clients;
    for (int i = 0; i < 16; ++i) {
        clients.push_back(connected());
        clients.back()->write("{\"verb\":\"in\"}\n");
        EXPECT_THAT(line(*clients.back()), HasSubstr("in"));
    }
    const auto extra = connected();
    EXPECT_THAT(line(*extra), HasSubstr("too many"));
    clients.pop_back();
    EXPECT_TRUE(until([&] {
        const auto next = connected();
        next->write("{\"verb\":\"room\"}\n");
        return line(*next).find("room") != std::string::npos;
    }));
}

TEST_F(ControlSocketTest, closedOneStillAnswersWhatItOwes) {
    const auto client = connected();
    client->write("{\"verb\":\"later\"}\n");
    ASSERT_TRUE(until([&] { return owed.size() == 1; }));
    socket.close();
    EXPECT_FALSE(QFileInfo::exists(path));
    owed[0](ControlReply::success(true));
    EXPECT_THAT(line(*client), HasSubstr("\"ok\":true"));
}

} // namespace
} // namespace skipnest::app
