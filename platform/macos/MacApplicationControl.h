// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Workspace.h"
#include "platform/macos/ApplicationBridge.h"

namespace skipnest::macos {

// Commands to running applications by NSRunningApplication.
class MacApplicationControl final : public platform::ApplicationControl {
public:
    explicit MacApplicationControl(ApplicationBridge& bridge);

    [[nodiscard]] platform::ApplicationState state(platform::ProcessIdentifier pid) const override;
    platform::Outcome activate(platform::ProcessIdentifier pid,
                               platform::ActivationOption option) override;
    platform::Outcome hide(platform::ProcessIdentifier pid) override;
    platform::Outcome terminate(platform::ProcessIdentifier pid,
                                platform::Termination termination) override;

private:
    ApplicationBridge& bridge_;
};

} // namespace skipnest::macos
