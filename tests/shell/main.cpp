// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/XServer.h"
#include "tests/x11/XSession.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <iostream>

// An X server, a session bus, a window manager and a home of one's own; no tray.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    for (const char* program : {"openbox", "trayer", "xdotool", "xterm", "wmctrl", "dbus-daemon"}) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty()) {
            std::cout << "SKIPPED SUITE: " << program << " is not installed\n";
            return 0;
        }
    }
    const auto server = skipnest::tests::XServer::start();
    if (!server) {
        std::cout << "SKIPPED SUITE: Xvfb is not installed or does not start\n";
        return 0;
    }
    const QTemporaryDir home;
    for (const char* variable : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, QFile::encodeName(home.path()));
    for (const char* variable : {"XDG_SESSION_TYPE", "XDG_CURRENT_DESKTOP", "WAYLAND_DISPLAY"})
        qunsetenv(variable);
    qputenv("DISPLAY", server->display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    QProcess bus;
    bus.start(QStringLiteral("dbus-daemon"),
              {QStringLiteral("--session"), QStringLiteral("--print-address=1"),
               QStringLiteral("--nofork")});
    if (!bus.waitForReadyRead())
        return 1;
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
    QProcess windowManager;
    windowManager.setStandardErrorFile(QProcess::nullDevice());
    windowManager.start(QStringLiteral("openbox"), QStringList());
    int result = 1;
    {
        const QApplication application(argc, argv);
        QGuiApplication::setQuitOnLastWindowClosed(false);
        skipnest::platform::QtScheduler scheduler;
        // A tray that starts before the window manager does keeps the size it had without.
        if (skipnest::tests::waitUntil(scheduler,
                                       [] { return skipnest::tests::runTool("wmctrl -l"); }))
            result = RUN_ALL_TESTS();
    }
    for (QProcess* process : {&windowManager, &bus}) {
        process->kill();
        process->waitForFinished();
    }
    return result;
}
