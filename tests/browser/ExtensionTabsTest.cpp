// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/ExtensionTabs.h"

#include "platform/BrowserExtension.h"
#include "platform/QtScheduler.h"
#include "platform/linux/browser/TabListing.h"
#include "tests/browser/HostProcess.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using browser::Incoming;
using platform::framedMessage;
using platform::ScriptAnswer;
using platform::ScriptBudgetExceeded;
using platform::ScriptError;
using platform::ScriptText;

const QString chromium = u"org.chromium.Chromium"_s;
const QString firefox = u"org.mozilla.firefox"_s;

QJsonObject parsed(const QByteArray& message) {
    return QJsonDocument::fromJson(message).object();
}

QByteArray framed(const QJsonObject& message) {
    return framedMessage(QJsonDocument(message).toJson(QJsonDocument::Compact));
}

QJsonArray tab(const QString& title, const QString& url, bool active = false) {
    return {title, active ? 1 : 0, url};
}

// One profile of a browser: says hello and answers each request by a script on a thread of its own.
class Profile {
public:
    // Null: no answer at all.
    using Script = std::function<QJsonObject(const QJsonObject& request)>;

    Profile(const QString& socketPath, Script script)
        : thread_([this, socketPath, script = std::move(script)] { serve(socketPath, script); }) {
        while (!welcome_ && !ended_)
            std::this_thread::yield();
    }
    ~Profile() {
        leaves_ = true;
        thread_.join();
    }
    [[nodiscard]] bool isWelcome() const { return welcome_; }
    [[nodiscard]] bool isTurnedAway() const { return ended_; }

private:
    void serve(const QString& path, const Script& script) {
        QLocalSocket socket;
        socket.connectToServer(path);
        socket.write(framed({{u"hello"_s, 1}}));
        socket.waitForBytesWritten();
        Incoming incoming(socket);
        while (!leaves_ && socket.state() == QLocalSocket::ConnectedState) {
            const auto message = incoming.next(5);
            if (!message)
                continue;
            const QJsonObject request = parsed(*message);
            if (request.contains(u"welcome")) {
                welcome_ = true;
                continue;
            }
            QJsonObject answer = script(request);
            if (answer.contains(u"hang up"))
                break;
            if (answer.isEmpty())
                continue;
            if (!answer.contains(u"id"))
                answer.insert(u"id"_s, request.value(u"id"));
            socket.write(framed(answer));
            socket.waitForBytesWritten();
        }
        ended_ = true;
    }

    std::atomic<bool> welcome_ = false;
    std::atomic<bool> ended_ = false;
    std::atomic<bool> leaves_ = false;
    std::thread thread_;
};

class ExtensionTabsTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(tabs.listen()); }

    [[nodiscard]] QString socketPath() const { return platform::tabsSocketPath(runtime.path()); }
    [[nodiscard]] ScriptAnswer list(const QString& browser = chromium) {
        return tabs.run(platform::EnumerateTabs{browser}, 1s);
    }
    static QString text(const ScriptAnswer& answer) {
        const auto* text = std::get_if<ScriptText>(&answer);
        return text != nullptr ? QString(text->text).replace(QChar(1), u'|') : u"no text"_s;
    }
    static int error(const ScriptAnswer& answer) {
        const auto* error = std::get_if<ScriptError>(&answer);
        return error != nullptr ? error->number : 0;
    }

    QTemporaryDir runtime;
    QString identity = chromium;
    platform::QtScheduler clock;
    ExtensionTabs tabs{clock, runtime.path(), [this](std::int64_t) { return identity; }};
};

TEST_F(ExtensionTabsTest, ABrowserWithoutExtensionIsAnErrorAtOnce) {
    EXPECT_EQ(error(list()), -1743);
    EXPECT_EQ(error(tabs.run(platform::ActivateTab{chromium, 1, 1}, 1s)), -1743);
    EXPECT_EQ(error(tabs.run(platform::RelocateTab{chromium, 1, 1, u"u"_s, u"t"_s}, 1s)), -1743);
    const Profile other(socketPath(), [](const QJsonObject&) { return QJsonObject(); });
    EXPECT_EQ(error(list(firefox)), -1743) << "another browser's extension";
    EXPECT_EQ(QFileInfo(socketPath()).permissions() &
                  (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
              QFile::Permissions());
    identity.clear();
    EXPECT_TRUE(
        Profile(socketPath(), [](const QJsonObject&) { return QJsonObject(); }).isTurnedAway())
        << "a process that no browser started";
}

TEST_F(ExtensionTabsTest, ProfilesAreOneBrowserAndTheOneLastInFrontComesFirst) {
    QJsonArray asked;
    const auto profile = [&asked](const QString& name, double focusedAt) {
        return [&asked, name, focusedAt](const QJsonObject& request) -> QJsonObject {
            if (request.value(u"do") == u"enumerate"_s)
                return {{u"focusedAt"_s, focusedAt},
                        {u"windows"_s,
                         QJsonArray{QJsonArray{tab(name, u"u1"_s, true), tab(u"b"_s, u"u2"_s)},
                                    QJsonArray{tab(u"c"_s, u"u3"_s)}}}};
            QJsonObject seen = request;
            seen.insert(u"profile"_s, name);
            seen.remove(u"id"_s);
            asked.append(seen);
            return {{u"found"_s, name == u"work"}, {u"title"_s, name}};
        };
    };
    const Profile work(socketPath(), profile(u"work"_s, 200));
    const Profile home(socketPath(), profile(u"home"_s, 100));
    EXPECT_EQ(text(list()), u"1|1|work|1|u1\n1|2|b|0|u2\n2|1|c|0|u3\n"
                            u"3|1|home|1|u1\n3|2|b|0|u2\n4|1|c|0|u3\n"_s);
    EXPECT_EQ(text(tabs.run(platform::ActivateTab{chromium, 2, 1}, 1s)), QString());
    ASSERT_TRUE(tabs.selected());
    EXPECT_EQ(tabs.selected()->title, u"work"_s);
    // The place's own profile has lost it; the other one has it.
    EXPECT_EQ(text(tabs.run(platform::RelocateTab{chromium, 4, 1, u"u3"_s, u"c"_s}, 1s)), u"1"_s);
    EXPECT_EQ(asked, (QJsonArray{
                         QJsonObject{{u"do"_s, u"activate"_s},
                                     {u"window"_s, 2},
                                     {u"tab"_s, 1},
                                     {u"profile"_s, u"work"_s}},
                         QJsonObject{{u"do"_s, u"relocate"_s},
                                     {u"window"_s, 2},
                                     {u"tab"_s, 1},
                                     {u"url"_s, u"u3"_s},
                                     {u"title"_s, u"c"_s},
                                     {u"profile"_s, u"home"_s}},
                         QJsonObject{{u"do"_s, u"relocate"_s},
                                     {u"window"_s, 0},
                                     {u"tab"_s, 0},
                                     {u"url"_s, u"u3"_s},
                                     {u"title"_s, u"c"_s},
                                     {u"profile"_s, u"work"_s}},
                     }));
}

TEST_F(ExtensionTabsTest, ALateAnswerIsDroppedAndTheNextRequestGetsItsOwn) {
    qint64 late = 0;
    const Profile profile(socketPath(), [&late](const QJsonObject& request) -> QJsonObject {
        if (late == 0) {
            late = request.value(u"id").toInteger();
            return {};
        }
        // The answer to the request before, then the one to this.
        const bool isOld = std::exchange(late, -1) > 0;
        return {{u"id"_s,
                 isOld ? request.value(u"id").toInteger() - 1 : request.value(u"id").toInteger()},
                {u"windows"_s, QJsonArray{QJsonArray{tab(isOld ? u"old"_s : u"new"_s, u"u"_s)}}}};
    });
    const auto begun = clock.now();
    EXPECT_TRUE(std::holds_alternative<ScriptBudgetExceeded>(
        tabs.run(platform::EnumerateTabs{chromium}, 80ms)));
    EXPECT_GE(clock.now() - begun, 80ms);
    EXPECT_TRUE(std::holds_alternative<ScriptBudgetExceeded>(
        tabs.run(platform::EnumerateTabs{chromium}, 80ms)))
        << "answered with another number only";
    EXPECT_EQ(text(list()), u"1|1|new|0|u\n"_s);
}

TEST_F(ExtensionTabsTest, AHostThatGoesOrTalksNonsenseIsNotWaitedFor) {
    const auto hangsUp = [](const QJsonObject&) { return QJsonObject{{u"hang up"_s, 1}}; };
    {
        const Profile profile(socketPath(), hangsUp);
        const auto begun = clock.now();
        EXPECT_EQ(error(tabs.run(platform::EnumerateTabs{chromium}, 10s)), -1743);
        EXPECT_LT(clock.now() - begun, 5s);
    }
    const quint32 tooLong = platform::longestTabsAnswer + 1;
    for (const QByteArray& nonsense :
         {framedMessage("[]"), framedMessage("{\"hel"), framedMessage("{\"id\":1}"),
          QByteArray(reinterpret_cast<const char*>(&tooLong), sizeof tooLong)}) {
        QLocalSocket socket;
        socket.connectToServer(socketPath());
        socket.write(nonsense);
        EXPECT_TRUE(socket.waitForDisconnected(browser::patience)) << nonsense.toHex().constData();
    }
    EXPECT_EQ(error(list()), -1743);
    const Profile refuses(socketPath(), [](const QJsonObject& request) -> QJsonObject {
        return {{u"error"_s, request.value(u"tab").toInt() == 1 ? u"Tabs are being dragged."_s
                                                                : u"no http://secret/"_s}};
    });
    const auto refusal = [this](int number) {
        return std::get<ScriptError>(tabs.run(platform::ActivateTab{chromium, 1, number}, 1s));
    };
    EXPECT_EQ(refusal(1).number, -1719);
    EXPECT_EQ(refusal(1).description, u"Tabs are being dragged."_s);
    EXPECT_FALSE(refusal(2).description.contains(u"secret")) << "an address ends up in the log";
}

TEST_F(ExtensionTabsTest, AHalfMessageHoldsUpNobodyAndALongOneArrives) {
    QLocalSocket half;
    half.connectToServer(socketPath());
    half.write(framedMessage("{\"hello\":1}").chopped(3));
    half.waitForBytesWritten();
    // Nearly as long as a message may be.
    const QString title(platform::longestTabsAnswer - 200, u'x');
    const Profile profile(socketPath(), [&](const QJsonObject&) -> QJsonObject {
        return {{u"windows"_s, QJsonArray{QJsonArray{tab(title, u"u"_s)}}}};
    });
    const QString lines = text(tabs.run(platform::EnumerateTabs{chromium}, 5s));
    EXPECT_EQ(lines.size(), title.size() + QString(u"1|1||0|u\n"_s).size());
}

TEST_F(ExtensionTabsTest, WhoeverWatchesHearsOfConnectionsOnTheMainThread) {
    int noArguments = 0;
    const QCoreApplication application(noArguments, nullptr);
    int told = 0;
    const auto watching = tabs.observeConnections([&told] { ++told; });
    const auto becomes = [&told](int expected) {
        for (int i = 0; told < expected && i < 500; ++i)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        return told == expected;
    };
    {
        const Profile profile(socketPath(), [](const QJsonObject&) { return QJsonObject(); });
        EXPECT_EQ(told, 0) << "never from inside";
        EXPECT_TRUE(becomes(1));
        EXPECT_EQ(tabs.connectedBrowsers(), QStringList{chromium});
    }
    EXPECT_TRUE(becomes(2));
    EXPECT_EQ(tabs.connectedBrowsers(), QStringList());
}

TEST_F(ExtensionTabsTest, AnybodyOfTheUserMayAskWhoIsConnected) {
    const Profile profile(socketPath(), [](const QJsonObject&) { return QJsonObject(); });
    // Another process's view of it: the command line's.
    EXPECT_EQ(ExtensionTabs(clock, runtime.path()).connectedBrowsers(), QStringList{chromium});
    QLocalSocket socket;
    socket.connectToServer(socketPath());
    socket.write(framed({{u"who"_s, 1}}));
    Incoming incoming(socket);
    EXPECT_EQ(parsed(incoming.next().value_or(QByteArray())).value(u"connected").toArray(),
              QJsonArray{chromium});
}

TEST(TabListing, TakesAnythingAndKeepsTheNumbers) {
    struct Row {
        const char* name;
        QJsonObject answer;
        QString lines;
    };
    const QString hostile = u"a\u0001b\nc\td\u007f"_s;
    for (const Row& row : {
             Row{"empty", {}, QString()},
             Row{"no windows", {{u"windows"_s, u"x"_s}}, QString()},
             Row{"separators in texts",
                 {{u"windows"_s, QJsonArray{QJsonArray{tab(hostile, u"u\nv"_s)}}}},
                 u"7|1|a b c d |0|u v\n"_s},
             Row{"tabs that are none",
                 {{u"windows"_s, QJsonArray{1, QJsonArray{QJsonValue(), QJsonArray{1, 2, 3},
                                                          tab(u"t"_s, QString(), true)}}}},
                 u"8|3|t|1|\n"_s},
         }) {
        EXPECT_EQ(tabListing(row.answer, 7).lines.replace(QChar(1), u'|'), row.lines) << row.name;
    }
}

} // namespace
} // namespace skipnest::linuxdesktop
