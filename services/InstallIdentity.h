// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/UserDefaults.h"
#include "platform/WebService.h"

namespace skipnest::services {

// Who reports: this installation, never the person. Made once, kept under "sk.install.id".
class InstallIdentity {
public:
    InstallIdentity(platform::UserDefaults& defaults, const platform::AppInfo& app)
        : defaults_(defaults), version_(app.version), build_(app.build) {}

    [[nodiscard]] const QString& version() const { return version_; }
    // Makes the identifier where there is none.
    [[nodiscard]] QString identifier() const;
    // "v" version, "b" build, "e" edition, "id" identifier.
    [[nodiscard]] platform::FormFields commonFields() const;
    static constexpr auto edition = "pro";

private:
    platform::UserDefaults& defaults_;
    QString version_;
    QString build_;
};

} // namespace skipnest::services
