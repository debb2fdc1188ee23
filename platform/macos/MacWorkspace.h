// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Scheduler.h"
#include "platform/Workspace.h"
#include "platform/macos/WorkspaceBridge.h"

#include <memory>

namespace skipnest::macos {

// Applications by NSWorkspace, which keeps its list up to date by itself while the main run loop
// runs: questions cost no round trip.
class MacWorkspace final : public platform::Workspace {
public:
    MacWorkspace(WorkspaceBridge& bridge, platform::Scheduler& scheduler);

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] bool isApplication(const QString& path) const override;
    [[nodiscard]] QString displayName(const QString& path) const override;
    [[nodiscard]] QString bundleIdentifier(const QString& path) const override;
    [[nodiscard]] std::optional<QString> defaultApplication(const QString& path) const override;
    [[nodiscard]] std::vector<platform::RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<platform::RunningApplication> frontmostApplication() const override;
    // Nothing to do: macOS has no such tokens.
    void setNextActivationToken(const QString& token) override;
    void openApplication(const QString& path, OpenCompletion completion) override;
    void openFile(const QString& path, OpenCompletion completion) override;
    void openUrl(const QUrl& url, OpenCompletion completion) override;
    [[nodiscard]] platform::Observation
    observeActivations(std::function<void(const platform::RunningApplication&)> activated) override;

private:
    void refuse(const QString& path, OpenCompletion completion);
    [[nodiscard]] WorkspaceBridge::Opened answering(const QString& path,
                                                    OpenCompletion completion) const;

    WorkspaceBridge& bridge_;
    platform::Scheduler& scheduler_;
    platform::Observers<const platform::RunningApplication&> observers_;
    bool observing_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::macos
