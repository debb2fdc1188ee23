// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Files.h"
#include "platform/LoginItem.h"

namespace skipnest::linuxdesktop {

// The entry in the person's autostart folder. Desktops switch entries off in their own ways; one
// that is switched off, or whose program is gone, counts as not registered.
class XdgLoginItem final : public platform::LoginItem {
public:
    // `configFolder` is $XDG_CONFIG_HOME.
    XdgLoginItem(platform::Files& files, platform::AppInfo app, const QString& configFolder);

    // Limited for a program that runs from a build folder.
    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] bool isRegistered() const override;
    platform::Outcome registerItem() override;
    platform::Outcome unregisterItem() override;

private:
    [[nodiscard]] QString ownExec() const;

    platform::Files& files_;
    platform::AppInfo app_;
    QString folder_;
    QString path_;
};

} // namespace skipnest::linuxdesktop
