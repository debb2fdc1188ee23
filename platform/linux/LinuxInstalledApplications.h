// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/InstalledApplications.h"
#include "platform/linux/DesktopEntries.h"

#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace skipnest::linuxdesktop {

// The desktop entries that menus show. Gathered anew only after an entry came, went or changed.
class LinuxInstalledApplications final : public platform::InstalledApplications {
public:
    LinuxInstalledApplications(DesktopEntries& entries, QStringList folders)
        : entries_(entries), folders_(std::move(folders)) {}

    [[nodiscard]] std::vector<platform::InstalledApplication> list() override;

private:
    DesktopEntries& entries_;
    const QStringList folders_; // the most important first
    std::optional<std::uint64_t> generation_;
    std::vector<platform::InstalledApplication> known_;
};

} // namespace skipnest::linuxdesktop
