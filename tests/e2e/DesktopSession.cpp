// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/DesktopSession.h"

#include "tests/e2e/Waiting.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace skipnest::e2e {
namespace {

constexpr auto desktops = 4U; // openbox's default; xfwm4 is asked for as many

QStringList windowManagerCommand(WindowManager windowManager) {
    switch (windowManager) {
    case WindowManager::none:
        return {};
    case WindowManager::openbox:
        return {QStringLiteral("openbox")};
    case WindowManager::xfwm4:
        return {QStringLiteral("xfwm4"), QStringLiteral("--compositor=off")};
    }
    return {};
}

// "…/skipnest-e2e-PID-XXXXXX": whose it is can be told.
QString folderTemplate() {
    return QDir::tempPath() + QStringLiteral("/skipnest-e2e-%1-XXXXXX").arg(getpid());
}

// A harness that was killed leaves its folder; the next one clears it away.
void removeAbandonedFolders() {
    const QDir temporary(QDir::tempPath());
    for (const QString& name :
         temporary.entryList({QStringLiteral("skipnest-e2e-*-*")}, QDir::Dirs)) {
        const QString owner = name.section(u'-', 2, 2);
        if (!QFile::exists(QStringLiteral("/proc/") + owner))
            QDir(temporary.filePath(name)).removeRecursively();
    }
}

// One line from a pipe, or nothing when none came in time.
QString firstLine(int descriptor) {
    QByteArray line;
    pollfd readable{descriptor, POLLIN, 0};
    char character = 0;
    while (poll(&readable, 1, static_cast<int>(patience.count())) > 0 &&
           read(descriptor, &character, 1) == 1 && character != '\n')
        line.append(character);
    return QString::fromLatin1(line);
}

} // namespace

QStringList DesktopSession::missingPrograms(WindowManager windowManager) {
    QStringList missing;
    QStringList needed{QStringLiteral("Xvfb"), QStringLiteral("dbus-daemon"),
                       QStringLiteral("xterm")};
    needed += windowManagerCommand(windowManager).mid(0, 1);
    for (const QString& program : std::as_const(needed)) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            missing.append(program);
    }
    return missing;
}

DesktopSession::DesktopSession(WindowManager windowManager)
    : kind_(windowManager), folder_(folderTemplate()) {
    adoptOrphans();
    removeAbandonedFolders();
    makeFolders();
    if (!startDisplay())
        failure_ = QStringLiteral("Xvfb did not start");
    else if (!startBus())
        failure_ = QStringLiteral("dbus-daemon did not start");
    else if (kind_ != WindowManager::none && !startWindowManager())
        failure_ = QStringLiteral("the window manager did not start");
}

DesktopSession::~DesktopSession() {
    background_.clear();
    windowManager_.end();
    keyboard_.reset();
    windows_.reset();
    connection_.reset();
    bus_.end();
    server_.end();
    endStrays();
}

QString DesktopSession::outputPath(const QString& program) const {
    return folder_.filePath(QStringLiteral("output/%1.txt").arg(program));
}

void DesktopSession::makeFolders() {
    for (const QString& path :
         {configHome(), stateHome(), dataHome(), runtimeFolder(),
          folder_.filePath(QStringLiteral("cache")), folder_.filePath(QStringLiteral("output"))})
        QDir().mkpath(path);
    QFile::setPermissions(runtimeFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    environment_ = {
        QStringLiteral("PATH=") + qEnvironmentVariable("PATH"),
        QStringLiteral("LANG=C.UTF-8"),
        QStringLiteral("SHELL=/bin/sh"),
        QStringLiteral("HOME=") + home(),
        QStringLiteral("XDG_CONFIG_HOME=") + configHome(),
        QStringLiteral("XDG_STATE_HOME=") + stateHome(),
        QStringLiteral("XDG_DATA_HOME=") + dataHome(),
        QStringLiteral("XDG_CACHE_HOME=") + folder_.filePath(QStringLiteral("cache")),
        QStringLiteral("XDG_RUNTIME_DIR=") + runtimeFolder(),
        QStringLiteral("QT_QUICK_BACKEND=software"),
    };
    for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            environment_.append(
                QStringLiteral("%1=%2").arg(QString::fromLatin1(name), qEnvironmentVariable(name)));
    }
}

bool DesktopSession::startDisplay() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return false;
    server_ = ChildProcess::start(
        {{QStringLiteral("Xvfb"), QStringLiteral("-displayfd"), QString::number(ends[1]),
          QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1600x1000x24"),
          QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-noreset")},
         environment_,
         outputPath(QStringLiteral("Xvfb")),
         {},
         ends[1]});
    close(ends[1]);
    const QString number = firstLine(ends[0]);
    close(ends[0]);
    if (number.isEmpty())
        return false;
    display_ = u':' + number;
    environment_.append(QStringLiteral("DISPLAY=") + display_);
    connection_ = std::make_unique<XConnection>(display_);
    windows_ = std::make_unique<Windows>(*connection_);
    keyboard_ = std::make_unique<Keyboard>(*connection_);
    return connection_->valid();
}

bool DesktopSession::startBus() {
    const QString output = outputPath(QStringLiteral("bus-address"));
    bus_ = ChildProcess::start({{QStringLiteral("dbus-daemon"), QStringLiteral("--session"),
                                 QStringLiteral("--print-address=1"), QStringLiteral("--nofork"),
                                 QStringLiteral("--nopidfile")},
                                environment_,
                                output,
                                outputPath(QStringLiteral("dbus-daemon"))});
    QByteArray address;
    const bool answered = eventually([&] {
        QFile file(output);
        if (file.open(QIODevice::ReadOnly))
            address = file.readAll();
        return address.endsWith('\n');
    });
    environment_.append(QStringLiteral("DBUS_SESSION_BUS_ADDRESS=") +
                        QString::fromLatin1(address.trimmed()));
    return answered;
}

// The property of a window manager that ended may stay behind; its window does not.
bool DesktopSession::isManaged() {
    constexpr auto check = "_NET_SUPPORTING_WM_CHECK";
    const auto window = connection_->numbers(connection_->root(), check);
    return !window.empty() && !connection_->numbers(window.front(), check).empty();
}

bool DesktopSession::startWindowManager() {
    const QStringList command = windowManagerCommand(kind_);
    windowManager_ = ChildProcess::start({command, environment_, outputPath(command.first()), {}});
    if (!eventually([this] { return isManaged(); }))
        return false;
    // It has finished starting when it carries out requests: openbox announces itself and then
    // still loses what it is asked, windows to be mapped included. So it is asked until it does it.
    return becomes("_NET_NUMBER_OF_DESKTOPS", desktops) && becomes("_NET_CURRENT_DESKTOP", 1) &&
           becomes("_NET_CURRENT_DESKTOP", 0);
}

bool DesktopSession::becomes(const char* property, std::uint32_t wanted) {
    return eventually([&] {
        const auto now = connection_->numbers(connection_->root(), property);
        if (!now.empty() && now.front() == wanted)
            return true;
        connection_->ask(connection_->root(), property, {wanted});
        return false;
    });
}

ChildProcess DesktopSession::start(const QStringList& command) const {
    const QString program = command.first().section(u'/', -1);
    return ChildProcess::start({command, environment_, outputPath(program), {}, -1, home()});
}

void DesktopSession::startBackground(const QStringList& command) {
    background_.push_back(start(command));
}

Finished DesktopSession::runToEnd(const QStringList& command) const {
    return run(command, environment_);
}

bool DesktopSession::restartWindowManager() {
    windowManager_.end();
    return eventually([this] { return !isManaged(); }) && startWindowManager();
}

void DesktopSession::killDisplayServer() {
    server_.send(SIGKILL);
    (void)server_.ends(patience);
}

bool DesktopSession::screenshot(const QString& path) const {
    return runToEnd(
               {QStringLiteral("import"), QStringLiteral("-window"), QStringLiteral("root"), path})
               .exitCode == 0;
}

void DesktopSession::keepEvidence(const QString& folder) const {
    QDir().mkpath(folder);
    const QDir target(folder);
    (void)screenshot(target.filePath(QStringLiteral("screen.png")));
    QFile windowList(target.filePath(QStringLiteral("windows.txt")));
    if (windowList.open(QIODevice::WriteOnly))
        windowList.write(runToEnd({QStringLiteral("wmctrl"), QStringLiteral("-lpx")}).output);
    for (const QString& source :
         {folder_.filePath(QStringLiteral("output")), stateHome() + QStringLiteral("/Skipnest"),
          configHome() + QStringLiteral("/Skipnest")}) {
        for (const QFileInfo& file : QDir(source).entryInfoList(QDir::Files))
            QFile::copy(file.filePath(), target.filePath(file.fileName()));
    }
}

} // namespace skipnest::e2e
