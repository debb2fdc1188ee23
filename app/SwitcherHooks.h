// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/DebugHooks.h"
#include "platform/Ports.h"
#include "platform/RunningApplication.h"
#include "switcher/AppWindows.h"
#include "switcher/BrowserTabs.h"
#include "switcher/WindowSwitcher.h"

#include <optional>
#include <vector>

namespace skipnest::app {

// Debug hooks that try the window switcher on what runs on this desktop and say in the log what
// came of it.
class SwitcherHooks {
public:
    // All outlive this object, which outlives the hooks.
    SwitcherHooks(const platform::Ports& ports, switcher::WindowSwitcher& bar,
                  switcher::BrowserTabs& tabs)
        : ports_(ports), bar_(bar), tabs_(tabs), windows_(ports) {}

    [[nodiscard]] std::vector<DebugHooks::Hook> hooks();

private:
    void log(const QString& line) const;
    [[nodiscard]] std::optional<platform::RunningApplication> runningBrowser() const;
    // Opens the bar over a running browser and closes it.
    void testBar();
    // Raises a window of the application in front through its Window menu: the one of this title,
    // else the last one that is not marked.
    void testMenuRaise(const QString& title);
    // Searches a running browser's tabs; nothing finds all of them.
    void testTabSearch(const QString& query);
    // What has the focus in the application in front, attribute by attribute.
    void dumpFocus();

    platform::Ports ports_;
    switcher::WindowSwitcher& bar_;
    switcher::BrowserTabs& tabs_;
    switcher::AppWindows windows_;
};

} // namespace skipnest::app
