// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/Fixtures.h"

#include "tests/e2e/Waiting.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace skipnest::e2e {
namespace {

void write(const QString& path, const QString& text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

QString installTerminal(DesktopSession& session, const QString& className) {
    const QString path =
        session.dataHome() + QStringLiteral("/applications/%1.desktop").arg(className.toLower());
    write(path, QStringLiteral("[Desktop Entry]\n"
                               "Type=Application\n"
                               "Name=%1\n"
                               "Exec=xterm -class %1 -T %1\n"
                               "StartupWMClass=%1\n")
                    .arg(className));
    return path;
}

xcb_window_t openTerminal(DesktopSession& session, const QString& className) {
    Windows& windows = session.windows();
    const auto before = windows.ofClass(className);
    session.startBackground({QStringLiteral("xterm"), QStringLiteral("-class"), className,
                             QStringLiteral("-T"), className});
    xcb_window_t opened = XCB_WINDOW_NONE;
    const bool appeared = eventually([&] {
        for (const xcb_window_t window : windows.ofClass(className)) {
            if (std::ranges::find(before, window) == before.end())
                opened = window;
        }
        return opened != XCB_WINDOW_NONE;
    });
    // xfwm4 leaves the focus where it was when a window comes up within its first moments.
    return appeared && windows.activate(opened) ? opened : xcb_window_t{XCB_WINDOW_NONE};
}

void setDefaultApplications(DesktopSession& session) {
    write(session.configHome() + QStringLiteral("/mimeapps.list"),
          QStringLiteral("[Default Applications]\n"
                         "text/plain=org.xfce.mousepad.desktop\n"
                         "inode/directory=pcmanfm-qt.desktop\n"));
}

QString systemEntry(const QString& desktopId) {
    const QString path = QStringLiteral("/usr/share/applications/%1.desktop").arg(desktopId);
    return QFile::exists(path) ? path : QString();
}

} // namespace skipnest::e2e
