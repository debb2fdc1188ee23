// SPDX-License-Identifier: Apache-2.0
#include "tests/browser/HostProcess.h"

#include "platform/BrowserExtension.h"

#include <gtest/gtest.h>

namespace skipnest::browser {
namespace {

using platform::framedMessage;

class Host : public ::testing::Test {
protected:
    QTemporaryDir runtime;
};

TEST_F(Host, ServesItsExtensionOnly) {
    const QString ours = HostProcess::origin().constFirst();
    const QString gecko = platform::firefoxExtensionId.toString();
    const QString manifest = QStringLiteral("/etc/com.skipnest.browser_host.json");
    const QString page = QStringLiteral("https://example.com/");
    struct Row {
        const char* name;
        QStringList arguments;
        bool served;
    };
    for (const Row& row : {
             Row{"Chromium", {ours, QStringLiteral("--parent-window=0")}, true},
             Row{"Firefox", {manifest, gecko}, true},
             Row{"nobody", {}, false},
             Row{"another extension", {QString(ours).replace(u'p', u'q')}, false},
             Row{"without its end", {ours.chopped(1)}, false},
             Row{"a page", {page}, false},
             Row{"a page that adds our name", {page, gecko}, false},
             Row{"another add-on", {manifest, gecko + u'x'}, false},
         }) {
        HostProcess host(runtime.path(), row.arguments);
        host.closeInput();
        EXPECT_EQ(host.ended(), row.served ? 0 : 2) << row.name;
    }
}

TEST_F(Host, CarriesWholeMessagesBothWays) {
    AgentEnd agent(runtime.path());
    HostProcess host(runtime.path());
    ASSERT_TRUE(agent.accept());
    agent.send(framedMessage("{\"id\":1}") + framedMessage("{\"id\":2}"));
    EXPECT_EQ(host.answers().next(), QByteArray("{\"id\":1}"));
    EXPECT_EQ(host.answers().next(), QByteArray("{\"id\":2}"));
    // Byte by byte, and far more than a pipe holds.
    for (const char byte : framedMessage("slow"))
        host.send(QByteArray(1, byte));
    const QByteArray large(5'000'000, 'x');
    host.send(framedMessage(large));
    EXPECT_EQ(agent.receive(), QByteArray("slow"));
    EXPECT_EQ(agent.receive(), large);
}

TEST_F(Host, EndsWithTheBrowserAndAtWhatIsNoMessage) {
    struct Row {
        const char* name;
        QByteArray sent;
        bool closes;
        int status;
    };
    const quint32 tooLong = platform::longestTabsAnswer + 1;
    for (const Row& row : {
             Row{"the browser ended", {}, true, 0},
             Row{"in the middle of a message", framedMessage("{}").chopped(1), true, 0},
             Row{"a length above the limit",
                 QByteArray(reinterpret_cast<const char*>(&tooLong), sizeof tooLong), false, 1},
             Row{"a length of nothing", QByteArray(4, '\0'), false, 1},
         }) {
        AgentEnd agent(runtime.path());
        HostProcess host(runtime.path());
        ASSERT_TRUE(agent.accept());
        host.send(row.sent);
        if (row.closes)
            host.closeInput();
        EXPECT_EQ(host.ended(), row.status) << row.name;
    }
}

TEST_F(Host, FindsAnAgentThatCameLaterOrSaidNonsense) {
    HostProcess host(runtime.path());
    host.send(framedMessage("{\"id\":1,\"lost\":true}"));
    EXPECT_FALSE(host.ended(200));
    AgentEnd agent(runtime.path());
    ASSERT_TRUE(agent.accept()) << "after the first pause";
    agent.send(framedMessage("{\"welcome\":1}"));
    EXPECT_EQ(host.answers().next(), QByteArray("{\"welcome\":1}"));
    agent.hangUp();
    ASSERT_TRUE(agent.accept()) << "it ended and came back";
    // Above what a request may be: the host hangs up, and tells the browser nothing of it.
    agent.send(framedMessage(QByteArray(platform::longestTabsRequest + 1, 'x')));
    ASSERT_TRUE(agent.accept());
    agent.send(framedMessage("{\"id\":2}"));
    EXPECT_EQ(host.answers().next(), QByteArray("{\"id\":2}"));
    host.send(framedMessage("{\"id\":2,\"here\":true}"));
    EXPECT_EQ(agent.receive(), QByteArray("{\"id\":2,\"here\":true}"));
}

} // namespace
} // namespace skipnest::browser
