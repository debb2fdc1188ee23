// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/InstalledApplications.h"
#include "platform/Ports.h"

namespace skipnest::voice {

// Where applications are folders of their own: what lies directly in the folders in which they are
// installed.
class InstalledInFolders final : public platform::InstalledApplications {
public:
    explicit InstalledInFolders(const platform::Ports& ports) : ports_(ports) {}

    [[nodiscard]] std::vector<platform::InstalledApplication> list() override;

private:
    platform::Ports ports_;
};

} // namespace skipnest::voice
