// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/XServer.h"
#include "tests/x11workspace/Desk.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <iostream>

namespace {

void write(const QString& path, const QByteArray& text) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text);
}

// A home of its own with entries for terminals that differ by class, and in that only FixtureOne
// answers to startup notification.
void furnish(const QString& home) {
    const QString applications = home + QStringLiteral("/applications/");
    QDir().mkpath(applications);
    for (const QByteArray name : {"FixtureOne", "FixtureTwo"})
        write(applications + QString::fromLatin1(name) + QStringLiteral(".desktop"),
              "[Desktop Entry]\nType=Application\nName=" + name + "\nStartupWMClass=" + name +
                  (name == "FixtureOne" ? "\nStartupNotify=true" : "") +
                  "\nMimeType=text/plain;\nExec=xterm -class " + name + " -e sh -c cat sh %F\n");
    write(applications + QStringLiteral("Missing.desktop"),
          "[Desktop Entry]\nType=Application\nName=Missing\nExec=no-such-program %U\n");
    write(home + QStringLiteral("/mimeapps.list"),
          "[Default Applications]\ntext/plain=FixtureTwo.desktop\n");
    for (const char* variable : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, QFile::encodeName(home));
}

bool installed(const char* program) {
    return !QStandardPaths::findExecutable(QString::fromLatin1(program)).isEmpty();
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    for (const char* program : {WINDOW_MANAGER, "xterm", "wmctrl", "dbus-daemon"}) {
        if (!installed(program)) {
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
    furnish(home.path());
    qputenv("DISPLAY", server->display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qunsetenv("XDG_SESSION_TYPE");
    QProcess bus;
    bus.start(QStringLiteral("dbus-daemon"),
              {QStringLiteral("--session"), QStringLiteral("--print-address=1"),
               QStringLiteral("--nofork")});
    if (!bus.waitForReadyRead())
        return 1;
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.readLine().trimmed());
    const QGuiApplication application(argc, argv);
    skipnest::tests::startWindowManager();
    const int result = skipnest::tests::windowManagerWorks() ? RUN_ALL_TESTS() : 1;
    skipnest::tests::killWindowManager();
    bus.kill();
    bus.waitForFinished();
    return result;
}
