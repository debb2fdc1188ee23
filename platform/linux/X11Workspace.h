// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "platform/Workspace.h"
#include "platform/linux/ApplicationLauncher.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/ProcessFacts.h"
#include "platform/linux/X11Applications.h"
#include "platform/linux/X11StartupNotification.h"
#include "platform/linux/X11WindowCommands.h"
#include "platform/linux/X11Windows.h"

#include <map>
#include <memory>

namespace skipnest::linuxdesktop {

// Workspace of an X11 session. Bringing a running application to the front costs one message to the
// window manager and no question to anybody.
class X11Workspace final : public platform::Workspace {
public:
    X11Workspace(platform::Scheduler& scheduler, DesktopEntries& entries, X11Windows& windows,
                 X11Applications& applications, X11WindowCommands& commands,
                 ApplicationLauncher& launcher, X11StartupNotification& startup);

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
    // X11 grants the focus by the time of the key press, which every request here carries.
    void setNextActivationToken(const QString&) override {}
    [[nodiscard]] platform::Observation
    observeActivations(std::function<void(const platform::RunningApplication&)> activated) override;

private:
    // A program that was started and shows no window yet.
    struct Starting {
        platform::Instant since;
        std::shared_ptr<ProcessHandle> process; // null until it is known
    };

    void windowsChanged();
    void succeed(OpenCompletion completion);
    void fail(OpenCompletion completion, platform::Failure failure);
    void launch(const QString& entryPath, const QStringList& files, OpenCompletion completion,
                const QUrl& url = {});
    [[nodiscard]] bool stillStarting(const QString& path);

    platform::Scheduler& scheduler_;
    DesktopEntries& entries_;
    X11Windows& windows_;
    X11Applications& applications_;
    X11WindowCommands& commands_;
    ApplicationLauncher& launcher_;
    X11StartupNotification& startup_;
    std::map<QString, Starting> starting_; // by the entry's path
    QString activeIdentity_;
    platform::Observers<const platform::RunningApplication&> activated_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    platform::Observation changes_;
};

} // namespace skipnest::linuxdesktop
