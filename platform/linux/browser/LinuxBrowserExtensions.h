// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/BrowserExtensions.h"
#include "platform/linux/browser/BrowserHosts.h"
#include "platform/linux/browser/ExtensionTabs.h"

#include <QProcessEnvironment>

namespace skipnest::linuxdesktop {

// The browsers of this user, what each has been told of our host, and which are connected.
class LinuxBrowserExtensions final : public platform::BrowserExtensions {
public:
    LinuxBrowserExtensions(platform::Files& files, const platform::AppInfo& app,
                           const QProcessEnvironment& environment, ExtensionTabs& tabs);

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] std::vector<platform::ExtensibleBrowser> browsers() const override;
    [[nodiscard]] QString folder() const override;
    platform::Outcome install(const platform::ExtensibleBrowser& browser) override;
    platform::Outcome remove(const platform::ExtensibleBrowser& browser) override;
    [[nodiscard]] platform::Observation observeConnections(std::function<void()> changed) override {
        return tabs_.observeConnections(std::move(changed));
    }

private:
    platform::Files& files_;
    const QString programFolder_;
    BrowserHosts hosts_;
    ExtensionTabs& tabs_;
};

} // namespace skipnest::linuxdesktop
