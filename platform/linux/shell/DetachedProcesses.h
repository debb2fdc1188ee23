// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ProcessLauncher.h"

namespace skipnest::linuxdesktop {

// Programs in sessions of their own, so that they outlive this one and its terminal.
class DetachedProcesses final : public platform::ProcessLauncher {
public:
    platform::Outcome launch(const QString& program, const QStringList& arguments) override;
};

} // namespace skipnest::linuxdesktop
