// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/SessionKind.h"

#include "platform/linux/FileDescriptor.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

namespace skipnest::linuxdesktop {
namespace {

bool answersX11(const QString& display) {
    xcb_connection_t* connection = xcb_connect(QFile::encodeName(display).constData(), nullptr);
    const bool answers = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return answers;
}

bool answersWayland(const QString& socketPath) {
    const QByteArray path = QFile::encodeName(socketPath);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(path.size()) >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    // A listener whose queue is full is busy, not gone, and would keep a blocking connect waiting.
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
               0 ||
           errno == EAGAIN;
}

bool hasWaylandPlugin() {
    const QStringList folders = QCoreApplication::libraryPaths();
    return std::ranges::any_of(folders, [](const QString& folder) {
        return !QDir(folder + QStringLiteral("/platforms"))
                    .entryList({QStringLiteral("libqwayland*.so")}, QDir::Files)
                    .isEmpty();
    });
}

} // namespace

SessionProbes SessionProbes::real() {
    return {answersX11, answersWayland, hasWaylandPlugin};
}

QString waylandSocketPath(const QProcessEnvironment& environment) {
    QString name = environment.value(QStringLiteral("WAYLAND_DISPLAY"));
    if (name.startsWith(u'/'))
        return name;
    if (name.isEmpty())
        name = QStringLiteral("wayland-0");
    const QString folder = environment.value(QStringLiteral("XDG_RUNTIME_DIR"));
    return folder.startsWith(u'/') ? folder + u'/' + name : QString();
}

Session findSession(const QProcessEnvironment& environment, const SessionProbes& probes) {
    const auto text = [&environment](const char16_t* name) {
        return environment.value(QString::fromUtf16(name));
    };
    const bool waylandSession = text(u"XDG_SESSION_TYPE") == u"wayland";
    if (waylandSession || !text(u"WAYLAND_DISPLAY").isEmpty()) {
        const QString socket = waylandSocketPath(environment);
        if (!socket.isEmpty() && probes.waylandAnswers(socket))
            return {SessionKind::wayland, probes.waylandPluginInstalled()
                                              ? QByteArray("wayland")
                                              : QByteArray("offscreen")};
    }
    const QString display = text(u"DISPLAY");
    if (!display.isEmpty() && probes.x11Answers(display)) {
        // A sandbox may hide the compositor's socket; the display is then still XWayland's.
        if (waylandSession)
            return {SessionKind::wayland, QByteArray("offscreen")};
        return {SessionKind::x11, QByteArray("xcb")};
    }
    return {SessionKind::none, QByteArray("offscreen")};
}

} // namespace skipnest::linuxdesktop
