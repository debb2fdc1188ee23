// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/e2e/ChildProcess.h"

#include <QJsonObject>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <optional>

namespace skipnest::waylandtest {

// A private Wayland session without a screen: folders of its own in place of the user's, a session
// bus and sway. One a test program: GLib reads the folders from the environment once.
class WaylandDesktop {
public:
    // The programs that it needs and this machine lacks.
    [[nodiscard]] static QStringList missingPrograms();
    [[nodiscard]] static WaylandDesktop& current() { return *current_; }

    // sway refuses to run as root: where this process is root it becomes nobody, for good. The
    // agent's binary is copied to where that user can run it.
    WaylandDesktop();
    ~WaylandDesktop();
    WaylandDesktop(const WaylandDesktop&) = delete;
    WaylandDesktop& operator=(const WaylandDesktop&) = delete;

    // Why it did not come up; empty when it did.
    [[nodiscard]] const QString& failure() const { return failure_; }

    [[nodiscard]] QString path(const QString& name) const { return folder_.filePath(name); }
    [[nodiscard]] QString agentBinary() const; // empty where this build has none
    [[nodiscard]] QString socketPath() const;
    [[nodiscard]] e2e::ChildProcess& compositor() { return sway_; }
    [[nodiscard]] const QStringList& environment() const { return environment_; }

    // A desktop entry in the user's folder; the answer is its path.
    QString addEntry(const QString& id, const QString& name, const QString& exec,
                     const QString& more = {}) const;
    // Runs a program of the session to its end.
    [[nodiscard]] e2e::Finished run(const QStringList& command) const;
    [[nodiscard]] e2e::ChildProcess start(const QStringList& command) const;

    // How many windows have this app id, and whether one of them has the focus.
    struct Windows {
        int count = 0;
        bool focused = false;
    };
    [[nodiscard]] Windows windows(const QString& appId) const;
    void closeWindows(const QString& appId) const;

private:
    [[nodiscard]] bool becomeOrdinaryUser();
    void setUpEnvironment();
    [[nodiscard]] bool startBus();
    [[nodiscard]] bool startSway();

    static WaylandDesktop* current_; // NOLINT(readability-identifier-naming): a private member
    QTemporaryDir folder_;
    QStringList environment_;
    QString failure_;
    e2e::ChildProcess bus_;
    e2e::ChildProcess sway_;
};

// Runs this thread's event loop until the condition holds; false where it never did.
[[nodiscard]] bool comesTrue(const std::function<bool()>& condition);

} // namespace skipnest::waylandtest
