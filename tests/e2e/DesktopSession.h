// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/ChildProcess.h"
#include "tests/e2e/Keyboard.h"
#include "tests/e2e/Windows.h"
#include "tests/e2e/XConnection.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace skipnest::e2e {

enum class WindowManager { none, openbox, xfwm4 };

// A private desktop: folders of its own in place of the user's, an X server on a display that was
// free, a session bus, a window manager. Up in about 0.3 s; gone, with everything that was started
// in it, when dropped or when this process dies.
class DesktopSession {
public:
    // The programs that a session needs and this machine lacks.
    [[nodiscard]] static QStringList missingPrograms(WindowManager windowManager);

    explicit DesktopSession(WindowManager windowManager);
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    // Why the session did not come up; empty when it did.
    [[nodiscard]] const QString& failure() const { return failure_; }

    [[nodiscard]] const QString& display() const { return display_; }
    [[nodiscard]] const QStringList& environment() const { return environment_; }
    // For what is started from now on.
    void setEnvironment(const QString& name, const QString& value) {
        environment_.append(name + u'=' + value);
    }
    [[nodiscard]] QString home() const { return folder_.path(); }
    [[nodiscard]] QString configHome() const { return folder_.filePath(QStringLiteral("config")); }
    [[nodiscard]] QString stateHome() const { return folder_.filePath(QStringLiteral("state")); }
    [[nodiscard]] QString dataHome() const { return folder_.filePath(QStringLiteral("data")); }
    [[nodiscard]] QString runtimeFolder() const { return folder_.filePath(QStringLiteral("run")); }
    // Where programs of the session leave what they print.
    [[nodiscard]] QString outputPath(const QString& program) const;

    [[nodiscard]] XConnection& connection() { return *connection_; }
    [[nodiscard]] Windows& windows() { return *windows_; }
    [[nodiscard]] Keyboard& keyboard() { return *keyboard_; }

    // A program in the session; it ends with the session.
    [[nodiscard]] ChildProcess start(const QStringList& command) const;
    void startBackground(const QStringList& command);
    [[nodiscard]] Finished runToEnd(const QStringList& command) const;

    bool restartWindowManager();
    void killDisplayServer();

    // The screen as a picture; false where it could not be taken.
    bool screenshot(const QString& path) const;
    // Picture, window list and everything that was printed or logged, copied into the folder.
    void keepEvidence(const QString& folder) const;

private:
    [[nodiscard]] bool startDisplay();
    [[nodiscard]] bool startBus();
    [[nodiscard]] bool startWindowManager();
    // A property of the root that the window manager is asked to set.
    [[nodiscard]] bool becomes(const char* property, std::uint32_t wanted);
    [[nodiscard]] bool isManaged();
    void makeFolders();

    WindowManager kind_;
    QTemporaryDir folder_;
    QStringList environment_;
    QString display_;
    QString failure_;
    ChildProcess server_;
    ChildProcess bus_;
    ChildProcess windowManager_;
    std::vector<ChildProcess> background_;
    std::unique_ptr<XConnection> connection_;
    std::unique_ptr<Windows> windows_;
    std::unique_ptr<Keyboard> keyboard_;
};

} // namespace skipnest::e2e
