// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/DBusNotifications.h"
#include "tests/x11/XSession.h"

#include <QProcess>

#include <gmock/gmock.h>

namespace skipnest::tests {
namespace {

using platform::Availability;

void post(const char* name, const QStringList& arguments = {}) {
    QProcess::execute(QStringLiteral("dbus-send"),
                      QStringList{QStringLiteral("--session"), QStringLiteral("/any/path"),
                                  QString::fromLatin1(name)} +
                          arguments);
}

TEST(DBusNotificationsTest, TellsOfItsOwnSignalsUntilDropped) {
    platform::QtScheduler scheduler;
    linuxdesktop::DBusNotifications notifications;
    std::vector<std::string> told;
    platform::Observation first =
        notifications.observe(QStringLiteral("com.skipnest.test.go"), [&](const QString& object) {
            told.push_back("first " + object.toStdString());
            if (object == QStringLiteral("stop"))
                first.reset(); // while it is being told
        });
    const platform::Observation second =
        notifications.observe(QStringLiteral("com.skipnest.test.end"), [&](const QString& object) {
            told.push_back("second " + object.toStdString());
        });

    post("com.skipnest.test.go", {QStringLiteral("string:grüße")});
    post("com.skipnest.test.go");
    post("com.skipnest.test.other");
    post("com.skipnest.test.go", {QStringLiteral("int32:7")});
    post("com.skipnest.test.go", {QStringLiteral("string:stop")});
    post("com.skipnest.test.go", {QStringLiteral("string:too late")});
    post("com.skipnest.test.end");
    EXPECT_TRUE(waitUntil(scheduler, [&] { return !told.empty() && told.back() == "second "; }));
    EXPECT_THAT(told, testing::ElementsAre("first grüße", "first ", "first stop", "second "));
}

TEST(DBusNotificationsTest, SaysThatThereIsNoBus) {
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_EQ(linuxdesktop::DBusNotifications().availability().state,
              Availability::State::unavailable);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

} // namespace
} // namespace skipnest::tests
