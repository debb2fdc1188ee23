// SPDX-License-Identifier: Apache-2.0
#include "app/BrowserPrompt.h"

#include "platform/Alerts.h"
#include "platform/Scheduler.h"

#include <QCoreApplication>

#include <utility>

namespace skipnest::app {

BrowserPrompt::BrowserPrompt(const platform::Ports& ports, switcher::BrowserTabs& tabs,
                             switcher::WindowSwitcher& bar,
                             std::function<void(const QString&)> showHow)
    : ports_(ports), bar_(bar), showHow_(std::move(showHow)) {
    tabs.setGuide([this](const platform::RunningApplication& browser) {
        waiting_ = browser;
        askSoon();
    });
    QObject::connect(&bar.model(), &switcher::SwitcherModel::changed, &context_, [this] {
        if (waiting_ && !bar_.isOpen())
            askSoon();
    });
}

// What the press or the bar's end is doing now, such as bringing a window to the front, goes first.
void BrowserPrompt::askSoon() {
    ports_.scheduler.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired() && !bar_.isOpen())
            ask();
    });
}

void BrowserPrompt::ask() {
    const auto browser = std::exchange(waiting_, std::nullopt);
    if (!browser)
        return;
    const QString name = browser->name.isEmpty()
                             ? QCoreApplication::translate("BrowserPrompt", "your browser")
                             : browser->name;
    ports_.alerts.show(
        {QCoreApplication::translate("BrowserPrompt", "Let Skipnest switch %1 tabs").arg(name),
         QCoreApplication::translate(
             "BrowserPrompt",
             "To step through tabs and search them, Skipnest needs its extension in %1. "
             "Loading it takes a minute.")
             .arg(name),
         {QCoreApplication::translate("BrowserPrompt", "Show me how"),
          QCoreApplication::translate("BrowserPrompt", "Later")}},
        [this, alive = std::weak_ptr(alive_), id = browser->bundleIdentifier](int button) {
            if (button == 0 && !alive.expired())
                showHow_(id);
        });
}

} // namespace skipnest::app
