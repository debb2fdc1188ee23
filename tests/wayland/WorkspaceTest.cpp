// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/SessionKind.h"
#include "platform/linux/WaylandWorkspace.h"

#include "platform/QtExecutor.h"
#include "platform/QtScheduler.h"
#include "tests/wayland/WaylandDesktop.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QFile>

#include <gtest/gtest.h>

#include <csignal>

namespace skipnest::waylandtest {

// The receiving end of a D-Bus activated application.
class ActivatedApplication : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    std::optional<QVariantMap> platformData;

public Q_SLOTS:
    Q_SCRIPTABLE void Activate(const QVariantMap& data) { platformData = data; }
};

namespace {

using linuxdesktop::DesktopEntries;
using linuxdesktop::SessionKind;
using linuxdesktop::WaylandWorkspace;
using platform::Failure;
using platform::Outcome;

class WorkspaceTest : public testing::Test {
protected:
    Outcome open(const QString& path) {
        std::optional<Outcome> answer;
        workspace_.openApplication(path, [&answer](const Outcome& outcome) { answer = outcome; });
        EXPECT_FALSE(answer) << "the completion came from inside the request";
        if (!comesTrue([&answer] { return answer.has_value(); }))
            return Failure{Failure::Kind::timedOut, QStringLiteral("no completion")};
        return *answer;
    }
    // An entry whose program leaves what it finds in its environment, and that text.
    QString entryThatTellsItsToken(const QString& id) {
        return desktop_.addEntry(
            id, id,
            QStringLiteral("sh -c \"echo token=\\\\$XDG_ACTIVATION_TOKEN "
                           "id=\\\\$DESKTOP_STARTUP_ID > %1.part; mv %1.part %1\"")
                .arg(desktop_.path(id)));
    }
    std::optional<QString> told(const QString& id) {
        QFile file(desktop_.path(id));
        if (!comesTrue([&file] { return file.exists(); }) || !file.open(QIODevice::ReadOnly))
            return std::nullopt;
        const QString text = QString::fromUtf8(file.readAll()).trimmed();
        file.remove();
        return text;
    }

    WaylandDesktop& desktop_ = WaylandDesktop::current();
    platform::QtScheduler scheduler_;
    platform::QtExecutor executor_{scheduler_};
    DesktopEntries entries_{scheduler_, executor_};
    WaylandWorkspace workspace_{SessionKind::wayland, desktop_.socketPath(), entries_, scheduler_,
                                executor_};
};

const QString noToken = QStringLiteral("token= id=");

TEST_F(WorkspaceTest, theSessionIsSeenAsWayland) {
    const auto environment = QProcessEnvironment::systemEnvironment();
    EXPECT_EQ(linuxdesktop::findSession(environment).kind, SessionKind::wayland);
    EXPECT_EQ(linuxdesktop::waylandSocketPath(environment), desktop_.socketPath());
}

TEST_F(WorkspaceTest, aProgramThatIsOpenedHasTheFocus) {
    const QString first = desktop_.addEntry(QStringLiteral("first"), QStringLiteral("First"),
                                            QStringLiteral("foot --app-id=first"));
    const QString second = desktop_.addEntry(QStringLiteral("second"), QStringLiteral("Second"),
                                             QStringLiteral("foot --app-id=second"));
    for (const auto& [path, appId] :
         {std::pair(first, QStringLiteral("first")), std::pair(second, QStringLiteral("second"))}) {
        const Outcome opened = open(path);
        ASSERT_TRUE(opened) << opened.failure().detail.toStdString();
        EXPECT_TRUE(comesTrue([&, id = appId] { return desktop_.windows(id).focused; }))
            << appId.toStdString();
        EXPECT_EQ(desktop_.windows(appId).count, 1);
    }
    EXPECT_FALSE(desktop_.windows(QStringLiteral("first")).focused);
    desktop_.closeWindows(QStringLiteral("first"));
    desktop_.closeWindows(QStringLiteral("second"));
}

TEST_F(WorkspaceTest, everyLaunchHasATokenOfTheCompositorsOwn) {
    const QString path = entryThatTellsItsToken(QStringLiteral("teller"));
    ASSERT_TRUE(open(path));
    const auto first = told(QStringLiteral("teller"));
    ASSERT_TRUE(first);
    EXPECT_NE(*first, noToken);
    ASSERT_TRUE(open(path));
    const auto second = told(QStringLiteral("teller"));
    ASSERT_TRUE(second);
    EXPECT_NE(*second, noToken);
    EXPECT_NE(*second, *first);
}

TEST_F(WorkspaceTest, aTokenGivenWithTheRequestIsHandedOnOnce) {
    const QString path = entryThatTellsItsToken(QStringLiteral("given"));
    workspace_.setNextActivationToken(QStringLiteral("from-the-key"));
    ASSERT_TRUE(open(path));
    EXPECT_EQ(told(QStringLiteral("given")), QStringLiteral("token=from-the-key id=from-the-key"));
    ASSERT_TRUE(open(path));
    EXPECT_FALSE(told(QStringLiteral("given")).value_or(noToken).contains(u"from-the-key"));
}

TEST_F(WorkspaceTest, aProgramActivatedOverTheBusGetsTheTokenWithTheCall) {
    ActivatedApplication application;
    auto bus = QDBusConnection::sessionBus();
    ASSERT_TRUE(bus.registerService(QStringLiteral("com.skipnest.Activated")));
    ASSERT_TRUE(bus.registerObject(QStringLiteral("/com/skipnest/Activated"), &application,
                                   QDBusConnection::ExportScriptableSlots));
    const QString path = desktop_.addEntry(
        QStringLiteral("com.skipnest.Activated"), QStringLiteral("Activated"),
        QStringLiteral("false"), QStringLiteral("DBusActivatable=true\nStartupNotify=true"));
    workspace_.setNextActivationToken(QStringLiteral("over-the-bus"));
    ASSERT_TRUE(open(path));
    ASSERT_TRUE(comesTrue([&application] { return application.platformData.has_value(); }));
    EXPECT_EQ(application.platformData->value(QStringLiteral("desktop-startup-id")).toString(),
              QStringLiteral("over-the-bus"));
}

TEST_F(WorkspaceTest, aHungCompositorDoesNotKeepAProgramFromStarting) {
    const QString path = entryThatTellsItsToken(QStringLiteral("hung"));
    desktop_.compositor().send(SIGSTOP);
    const Outcome opened = open(path);
    const auto text = told(QStringLiteral("hung"));
    desktop_.compositor().send(SIGCONT);
    EXPECT_TRUE(opened);
    EXPECT_EQ(text, noToken);
}

TEST_F(WorkspaceTest, withoutACompositorItSaysWhatItCannotDo) {
    WaylandWorkspace gone(SessionKind::wayland, desktop_.path(QStringLiteral("none")), entries_,
                          scheduler_, executor_);
    const QString path = entryThatTellsItsToken(QStringLiteral("gone"));
    gone.openApplication(path, {});
    EXPECT_EQ(told(QStringLiteral("gone")), noToken);

    WaylandWorkspace headless(SessionKind::none, {}, entries_, scheduler_, executor_);
    std::optional<Outcome> answer;
    headless.openApplication(path, [&answer](const Outcome& outcome) { answer = outcome; });
    ASSERT_TRUE(comesTrue([&answer] { return answer.has_value(); }));
    EXPECT_EQ(answer->failure().kind, Failure::Kind::unavailable);
    EXPECT_FALSE(QFile::exists(desktop_.path(QStringLiteral("gone"))));
}

TEST_F(WorkspaceTest, anEntryThatCannotStartIsAFailure) {
    const QString path = desktop_.addEntry(QStringLiteral("broken"), QStringLiteral("Broken"),
                                           QStringLiteral("no-such-program-anywhere"));
    EXPECT_FALSE(open(path));
    EXPECT_FALSE(open(desktop_.path(QStringLiteral("missing.desktop"))));
}

TEST_F(WorkspaceTest, aFileOpensWithTheProgramThatIsItsDefault) {
    const QString viewer =
        desktop_.addEntry(QStringLiteral("viewer"), QStringLiteral("Viewer"),
                          QStringLiteral("sh -c \"echo \\\\$0 > %1.part; mv %1.part %1\" %f")
                              .arg(desktop_.path(QStringLiteral("viewed"))),
                          QStringLiteral("MimeType=application/x-skipnest-test;"));
    QFile list(desktop_.path(QStringLiteral("config/mimeapps.list")));
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write("[Default Applications]\ntext/plain=viewer.desktop\n");
    list.close();
    QFile note(desktop_.path(QStringLiteral("eine Notiz.txt")));
    ASSERT_TRUE(note.open(QIODevice::WriteOnly));
    note.close();
    // GIO notices a changed list of defaults from its own thread, a moment later.
    ASSERT_TRUE(
        comesTrue([&] { return workspace_.defaultApplication(note.fileName()) == viewer; }));
    workspace_.openFile(note.fileName(), {});
    EXPECT_EQ(told(QStringLiteral("viewed")), note.fileName());
}

} // namespace
} // namespace skipnest::waylandtest

#include "WorkspaceTest.moc"
