// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/DesktopTest.h"

#include <QCoreApplication>
#include <QDir>

#include <iostream>

namespace skipnest::e2e {

void DesktopTest::open(WindowManager windowManager) {
    session = std::make_unique<DesktopSession>(windowManager);
    ASSERT_TRUE(session->failure().isEmpty()) << qPrintable(session->failure());
    agent = std::make_unique<Agent>(*session);
    oneEntry = installTerminal(*session, one);
    twoEntry = installTerminal(*session, two);
    setDefaultApplications(*session);
    oneWindow = openTerminal(*session, one);
    twoWindow = openTerminal(*session, two);
    ASSERT_NE(oneWindow, XCB_WINDOW_NONE);
    ASSERT_NE(twoWindow, XCB_WINDOW_NONE);
}

void DesktopTest::bindBoth() {
    agent->set(QStringLiteral("voiceSearch"), false);
    agent->bind({one, oneEntry, QStringLiteral("ctrl+alt+j")});
    agent->bind({two, twoEntry, QStringLiteral("ctrl+alt+k")});
}

void DesktopTest::startAgent() {
    ASSERT_TRUE(agent->start()) << "the agent does not answer";
}

::testing::AssertionResult DesktopTest::jumps(QStringView chord, const QString& className) {
    keyboard().tap(chord);
    if (windows().becomesActive(className))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << qPrintable(chord.toString()) << " did not bring up " << qPrintable(className)
           << "; in front is '" << qPrintable(windows().className(windows().active())) << "'";
}

void DesktopTest::TearDown() {
    if (HasFailure() && session) {
        const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
        QString name =
            QString::fromLatin1(test->test_suite_name()) + u'.' + QString::fromLatin1(test->name());
        name.replace(u'/', u'-');
        const QString folder = QDir::current().filePath(QStringLiteral("e2e-evidence/") + name);
        QDir(folder).removeRecursively();
        session->keepEvidence(folder);
        std::cout << "evidence kept in " << qPrintable(folder) << std::endl;
    }
    agent.reset();
    session.reset();
}

QString nameOf(WindowManager windowManager) {
    switch (windowManager) {
    case WindowManager::none:
        return QStringLiteral("none");
    case WindowManager::openbox:
        return QStringLiteral("openbox");
    case WindowManager::xfwm4:
        return QStringLiteral("xfwm4");
    }
    return {};
}

} // namespace skipnest::e2e

int main(int argc, char** argv) {
    using skipnest::e2e::Agent;
    using skipnest::e2e::DesktopSession;
    using skipnest::e2e::WindowManager;
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    QStringList missing = DesktopSession::missingPrograms(WindowManager::openbox);
    if (const QString agent = Agent::missing(); !agent.isEmpty())
        missing.append(agent);
    if (!missing.isEmpty()) {
        std::cout << "SKIPPED SUITE " << qPrintable(application.applicationName()) << ": missing "
                  << qPrintable(missing.join(QStringLiteral(", "))) << std::endl;
        return 0;
    }
    return RUN_ALL_TESTS();
}
