// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ScriptRunner.h"
#include "platform/linux/X11Applications.h"
#include "platform/linux/X11WindowCommands.h"
#include "platform/linux/X11Windows.h"
#include "platform/linux/browser/ExtensionTabs.h"
#include "platform/linux/windows/X11WindowDetails.h"

namespace skipnest::linuxdesktop {

// Carries out what scripts mean: what is about windows by way of the window manager, at once; what
// is about tabs by way of the browser's extension.
class X11ScriptRunner final : public platform::ScriptRunner {
public:
    X11ScriptRunner(X11Windows& windows, X11Applications& applications, X11WindowCommands& commands,
                    ExtensionTabs& tabs, const X11Display& display);

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] QStringList furtherBrowsers() const override { return ExtensionTabs::browsers(); }
    platform::Outcome acceptBrowsers() override { return tabs_.listen(); }
    [[nodiscard]] platform::ScriptAnswer run(const platform::ScriptRequest& request,
                                             platform::Duration budget) override;

private:
    platform::ScriptAnswer cycle(const platform::CycleWindows& request);
    platform::ScriptAnswer minimiseFirst(const X11Application& application);
    platform::ScriptAnswer restoreLast(const X11Application& application);
    void raiseSelectedTab(const QString& bundleIdentifier);

    X11Windows& windows_;
    X11Applications& applications_;
    X11WindowCommands& commands_;
    ExtensionTabs& tabs_;
    X11WindowDetailsReader details_;
};

} // namespace skipnest::linuxdesktop
