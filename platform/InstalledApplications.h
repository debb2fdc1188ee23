// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <vector>

namespace skipnest::platform {

struct InstalledApplication {
    QString path; // as Workspace has it
    QString name; // localised, as people see it

    bool operator==(const InstalledApplication&) const = default;
};

// The applications that a person finds in the menus of this machine.
class InstalledApplications {
public:
    virtual ~InstalledApplications() = default;

    // From what is known already; costs no look at each application. On the main thread.
    [[nodiscard]] virtual std::vector<InstalledApplication> list() = 0;
};

} // namespace skipnest::platform
