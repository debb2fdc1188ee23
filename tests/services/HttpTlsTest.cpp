// SPDX-License-Identifier: Apache-2.0
#include "tests/services/Network.h"

#include <QFile>
#include <QProcess>
#include <QSslConfiguration>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace skipnest::tests {
namespace {

using namespace Qt::StringLiterals;
using platform::Failure;
using platform::HttpRequest;

HttpRequest encrypted(quint16 port) {
    return {.url = QUrl(u"https://127.0.0.1:%1/version.json"_s.arg(port)),
            .proxy = HttpRequest::Proxy::none};
}

TEST(HttpTlsTest, aServerWithoutTlsIsRefused) {
    Network network;
    for (const ScriptedAnswer& answer :
         {ScriptedAnswer::reply(400, "{}"), ScriptedAnswer::closedAtOnce()}) {
        network.service.setAnswer({}, answer); // a handshake is no request, and has no path
        const auto reply = network.reply(encrypted(network.service.serverPort()));
        ASSERT_FALSE(reply);
        EXPECT_EQ(reply.failure().kind, Failure::Kind::refused)
            << qPrintable(reply.failure().detail);
    }
}

TEST(HttpTlsTest, aCertificateIsTrustedOnlyWhereTheSystemTrustsIt) {
    if (QStandardPaths::findExecutable(u"openssl"_s).isEmpty())
        GTEST_SKIP() << "openssl is not installed";
    const QTemporaryDir folder;
    QProcess maker;
    maker.setStandardErrorFile(QProcess::nullDevice()); // shows its progress there
    maker.start(u"openssl"_s,
                {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s, u"-batch"_s,
                 u"-days"_s, u"2"_s, u"-subj"_s, u"/CN=stand-in"_s, u"-addext"_s,
                 u"subjectAltName=IP:127.0.0.1"_s, u"-keyout"_s, folder.filePath(u"key"_s),
                 u"-out"_s, folder.filePath(u"certificate"_s)});
    ASSERT_TRUE(maker.waitForFinished());
    ASSERT_EQ(maker.exitCode(), 0);
    const auto certificates = QSslCertificate::fromPath(folder.filePath(u"certificate"_s));
    ASSERT_EQ(certificates.size(), 1);
    QFile key(folder.filePath(u"key"_s));
    ASSERT_TRUE(key.open(QIODevice::ReadOnly));

    Network network;
    StandInService service(network.scheduler);
    service.setCertificate(certificates.first(), QSslKey(&key, QSsl::Rsa));
    ASSERT_TRUE(service.listenHere());
    const auto stranger = network.reply(encrypted(service.serverPort()));
    ASSERT_FALSE(stranger);
    EXPECT_EQ(stranger.failure().kind, Failure::Kind::refused);
    EXPECT_TRUE(service.received().empty());

    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = before;
    trusting.addCaCertificate(certificates.first());
    QSslConfiguration::setDefaultConfiguration(trusting);
    const auto trusted = network.reply(encrypted(service.serverPort()));
    QSslConfiguration::setDefaultConfiguration(before);
    ASSERT_TRUE(trusted) << qPrintable(trusted.failure().detail);
    EXPECT_EQ(trusted->status, 200);
    EXPECT_THAT(service.violations(), testing::IsEmpty());
}

} // namespace
} // namespace skipnest::tests
