// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/browser/BrowserHosts.h"
#include "platform/BrowserExtension.h"
#include "platform/linux/PosixFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using State = platform::ExtensibleBrowser::Host;
using Packaging = platform::ExtensibleBrowser::Packaging;

QJsonObject jsonIn(const QString& path) {
    QFile file(path);
    (void)file.open(QFile::ReadOnly);
    return QJsonDocument::fromJson(file.readAll()).object();
}

class BrowserHostsTest : public ::testing::Test {
protected:
    void make(const QString& folder) { QDir(home.path()).mkpath(folder); }
    [[nodiscard]] BrowserHosts hosts(const QString& host = u"/opt/skipnest/host"_s) {
        return {files, {home.path(), home.path() + u"/.config"_s, {home.path() + u"/bin"_s}, host}};
    }
    QStringList states(const QString& host = u"/opt/skipnest/host"_s) {
        QStringList all;
        for (const auto& browser : hosts(host).found())
            all.append(u"%1 %2 %3"_s.arg(browser.name)
                           .arg(static_cast<int>(browser.packaging))
                           .arg(static_cast<int>(browser.host)));
        return all;
    }
    static QString row(const QString& name, Packaging packaging, State state) {
        return u"%1 %2 %3"_s.arg(name)
            .arg(static_cast<int>(packaging))
            .arg(static_cast<int>(state));
    }

    QTemporaryDir home;
    PosixFiles files;
};

TEST_F(BrowserHostsTest, EveryBrowserOfTheUserGetsItsManifestAndLosesItAgain) {
    EXPECT_EQ(states(), QStringList());
    make(u".config/BraveSoftware/Brave-Browser"_s);
    make(u"bin"_s);
    QFile program(home.path() + u"/bin/firefox-esr"_s);
    ASSERT_TRUE(program.open(QFile::WriteOnly));
    make(u"snap/chromium"_s);
    make(u".var/app/org.mozilla.firefox"_s);
    const QString brave = u"Brave"_s;
    const QString firefox = u"Firefox"_s;
    const QStringList sandboxed{row(u"Chromium"_s, Packaging::snap, State::unreachable),
                                row(firefox, Packaging::flatpak, State::unreachable)};
    const auto expected = [&](State state) {
        return QStringList{sandboxed[0], row(brave, Packaging::native, state),
                           row(firefox, Packaging::native, state), sandboxed[1]};
    };
    EXPECT_EQ(states(), expected(State::missing));
    for (const auto& browser : hosts().found()) {
        if (browser.host == State::unreachable)
            continue;
        EXPECT_TRUE(hosts().install(browser)) << qPrintable(browser.name);
    }
    EXPECT_EQ(states(), expected(State::installed));
    EXPECT_EQ(states(u"/elsewhere/host"_s), expected(State::outdated));

    const QJsonObject chromium =
        jsonIn(home.path() + u"/.config/BraveSoftware/Brave-Browser/NativeMessagingHosts/"
                             u"com.skipnest.browser_host.json"_s);
    EXPECT_EQ(chromium.value(u"path"), u"/opt/skipnest/host"_s);
    EXPECT_EQ(chromium.value(u"allowed_origins").toArray().size(), 1);
    const QJsonObject mozilla =
        jsonIn(home.path() + u"/.mozilla/native-messaging-hosts/com.skipnest.browser_host.json"_s);
    EXPECT_EQ(mozilla.value(u"allowed_extensions").toArray(), QJsonArray{u"tabs@skipnest.com"_s});
    EXPECT_EQ(mozilla.value(u"name"), u"com.skipnest.browser_host"_s);

    for (const auto& browser : hosts().found())
        EXPECT_TRUE(hosts().remove(browser)) << qPrintable(browser.name);
    EXPECT_EQ(states(), expected(State::missing));
}

// A browser derives the identifier from the key; a host that allows another one is never started.
TEST(Extension, HasTheIdentifiersThatItsHostAllows) {
    const QJsonObject manifest = jsonIn(QStringLiteral(SKIPNEST_EXTENSION "/manifest.json"));
    const QByteArray key = QByteArray::fromBase64(manifest.value(u"key").toString().toLatin1());
    const QByteArray digest =
        QCryptographicHash::hash(key, QCryptographicHash::Sha256).toHex().left(32);
    QString identifier;
    for (const char digit : digest)
        identifier += QChar(u'a' + (digit <= '9' ? digit - '0' : digit - 'a' + 10));
    EXPECT_EQ(identifier, platform::chromiumExtensionId.toString());
    EXPECT_EQ(manifest.value(u"browser_specific_settings")
                  .toObject()
                  .value(u"gecko")
                  .toObject()
                  .value(u"id"),
              platform::firefoxExtensionId.toString());
    EXPECT_EQ(manifest.value(u"permissions").toArray(),
              (QJsonArray{u"nativeMessaging"_s, u"tabs"_s}))
        << "nothing else is asked of people";
    EXPECT_FALSE(manifest.contains(u"content_scripts"));
    EXPECT_EQ(manifest.value(u"incognito"), u"not_allowed"_s);
}

} // namespace
} // namespace skipnest::linuxdesktop
