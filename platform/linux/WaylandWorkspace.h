// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Workspace.h"
#include "platform/linux/ApplicationLauncher.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/SessionKind.h"
#include "platform/linux/WaylandActivation.h"

#include <QString>

namespace skipnest::linuxdesktop {

// Opening things in a session that does not tell which applications run: a Wayland session, where a
// program is brought to the front by starting it with an activation token, or one without any
// display, where opening is refused.
class WaylandWorkspace final : public platform::Workspace {
public:
    // `waylandSocket` as waylandSocketPath() finds it; only used where `session` is Wayland.
    WaylandWorkspace(SessionKind session, const QString& waylandSocket, DesktopEntries& entries,
                     platform::Scheduler& scheduler, platform::Executor& executor);

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] bool isApplication(const QString& path) const override;
    [[nodiscard]] QString displayName(const QString& path) const override;
    [[nodiscard]] QString bundleIdentifier(const QString& path) const override;
    [[nodiscard]] std::optional<QString> defaultApplication(const QString& path) const override;
    [[nodiscard]] std::vector<platform::RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<platform::RunningApplication> frontmostApplication() const override;
    void openApplication(const QString& path, OpenCompletion completion) override;
    void openFile(const QString& path, OpenCompletion completion) override;
    void openUrl(const QUrl& url, OpenCompletion completion) override;
    // Without one, a token of our own is asked for.
    void setNextActivationToken(const QString& token) override;
    [[nodiscard]] platform::Observation
    observeActivations(std::function<void(const platform::RunningApplication&)> activated) override;

private:
    void launch(LaunchRequest request, OpenCompletion completion);
    void refuse(platform::Failure failure, OpenCompletion completion);

    SessionKind session_;
    DesktopEntries& entries_;
    platform::Scheduler& scheduler_;
    ApplicationLauncher launcher_;
    WaylandActivation activation_;
    QString nextToken_;
};

} // namespace skipnest::linuxdesktop
