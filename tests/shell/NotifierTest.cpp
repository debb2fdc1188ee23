// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/shell/QtStatusItem.h"
#include "tests/shell/Events.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QProcess>

#include <gmock/gmock.h>

namespace skipnest::tests {
namespace {

using linuxdesktop::QtStatusItem;
using platform::Availability;
using testing::ElementsAre;

// The panel, and this test's hand on the icon in it.
class NotifierTest : public testing::Test {
protected:
    [[nodiscard]] bool waitFor(const std::function<bool()>& condition) {
        return waitUntil(scheduler, condition);
    }
    // Waits until our icon has been put into the panel.
    [[nodiscard]] bool startPanel() {
        panel = std::make_unique<QProcess>();
        panel->start(QStringLiteral(NOTIFIER_HOST), QStringList());
        return waitFor([&] { return panel->canReadLine(); }) &&
               !(item = QString::fromLatin1(panel->readLine().trimmed())).isEmpty();
    }
    void stopPanel() {
        panel->kill();
        panel->waitForFinished();
    }
    QDBusMessage call(const char* path, const char* interface, const char* member,
                      const QVariantList& arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            item, QLatin1String(path), QLatin1String(interface), QLatin1String(member));
        message.setArguments(arguments);
        const QDBusPendingCall reply = caller.asyncCall(message);
        EXPECT_TRUE(waitFor([&] { return reply.isFinished(); }));
        EXPECT_FALSE(reply.isError()) << member << ": " << reply.error().message().toStdString();
        return reply.reply();
    }
    void press(const char* member) {
        call("/StatusNotifierItem", "org.kde.StatusNotifierItem", member, {0, 0});
    }
    // Id and label of what the panel's menu would show; "-" is a separator, disabled ones in
    // parentheses.
    [[nodiscard]] std::vector<std::pair<int, std::string>> menu() {
        const QDBusMessage reply =
            call("/MenuBar", "com.canonical.dbusmenu", "GetLayout", {0, -1, QStringList()});
        const auto layout = reply.arguments().value(1).value<QDBusArgument>();
        std::vector<std::pair<int, std::string>> found;
        int id = 0;
        QVariantMap properties;
        layout.beginStructure();
        layout >> id >> properties;
        layout.beginArray();
        while (!layout.atEnd()) {
            QDBusVariant child;
            layout >> child;
            const auto entry = child.variant().value<QDBusArgument>();
            entry.beginStructure();
            entry >> id >> properties;
            QString label = properties.value(QStringLiteral("label")).toString();
            if (properties.value(QStringLiteral("type")) == QStringLiteral("separator"))
                label = QStringLiteral("-");
            else if (!properties.value(QStringLiteral("enabled"), true).toBool())
                label = u'(' + label + u')';
            found.emplace_back(id, label.toStdString());
        }
        return found;
    }

    platform::QtScheduler scheduler;
    std::unique_ptr<linuxdesktop::X11Display> display = linuxdesktop::X11Display::open(scheduler);
    QDBusConnection caller =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("caller"));
    std::unique_ptr<QProcess> panel;
    QString item;
    Events events;
};

// One story, as Qt decides about trays once in a process.
TEST_F(NotifierTest, ComesUpWithThePanelAndAgainWhenItRestarts) {
    QtStatusItem status(scheduler, display.get());
    status.show(QStringLiteral("skipnest"), events);
    status.setToolTip(QStringLiteral("Skipnest"));
    EXPECT_EQ(status.availability().state, Availability::State::unavailable);

    ASSERT_TRUE(startPanel());
    EXPECT_EQ(status.availability().state, Availability::State::limited);
    EXPECT_FALSE(status.geometry());

    press("Activate");
    EXPECT_TRUE(waitFor([&] { return events.clicks == 1; }));
    press("Activate");
    EXPECT_EQ(events.clicks, 1) << "a double click is one click";
    ASSERT_TRUE(doubleClickPasses(scheduler));
    press("SecondaryActivate");
    EXPECT_TRUE(waitFor([&] { return events.clicks == 2; }));

    status.setMenu({{1, QStringLiteral("Open"), true},
                    {0, {}, true},
                    {2, QStringLiteral("a_b & c & d_e"), true},
                    {3, QStringLiteral("Voice"), false}});
    const auto entries = menu();
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0].second, "Open");
    EXPECT_EQ(entries[1].second, "-");
    // The panel takes "__" for an underscore and "_" for the mark of a letter.
    EXPECT_EQ(entries[2].second, "a__b _& c & d__e");
    EXPECT_EQ(entries[3].second, "(Voice)");
    call("/MenuBar", "com.canonical.dbusmenu", "Event",
         {entries[2].first, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(QString())),
          0U});
    EXPECT_TRUE(waitFor([&] { return !events.chosen.empty(); }));
    EXPECT_THAT(events.chosen, ElementsAre(2));

    stopPanel();
    EXPECT_TRUE(
        waitFor([&] { return status.availability().state == Availability::State::unavailable; }));
    ASSERT_TRUE(startPanel());
    ASSERT_TRUE(doubleClickPasses(scheduler));
    press("SecondaryActivate");
    EXPECT_TRUE(waitFor([&] { return events.clicks == 3; }));
    stopPanel();
}

} // namespace
} // namespace skipnest::tests
