// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Ports.h"
#include "platform/RunningApplication.h"
#include "switcher/BrowserTabs.h"
#include "switcher/WindowSwitcher.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace skipnest::app {

// Says, once, that a browser needs an extension before its tabs can be listed, and leads to where
// that is shown. Not while the bar is up, which then has the browser's windows and the keyboard.
class BrowserPrompt {
public:
    // `showHow` gets the browser's identifier.
    BrowserPrompt(const platform::Ports& ports, switcher::BrowserTabs& tabs,
                  switcher::WindowSwitcher& bar, std::function<void(const QString&)> showHow);

private:
    void askSoon();
    void ask();

    platform::Ports ports_;
    switcher::WindowSwitcher& bar_;
    std::function<void(const QString&)> showHow_;
    std::optional<platform::RunningApplication> waiting_;
    QObject context_; // connections end with the prompt
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::app
