// SPDX-License-Identifier: Apache-2.0
#include "app/BrowserPrompt.h"

#include "platform/Alerts.h"

#include <QCoreApplication>

#include <utility>

namespace skipnest::app {

void promptForExtension(const platform::Ports& ports, const platform::RunningApplication& browser,
                        std::function<void()> showHow) {
    const char* context = "BrowserPrompt";
    const QString name = browser.name.isEmpty()
                             ? QCoreApplication::translate(context, "your browser")
                             : browser.name;
    ports.alerts.show(
        {QCoreApplication::translate(context, "Let Skipnest switch %1 tabs").arg(name),
         QCoreApplication::translate(
             context, "To step through tabs and search them, Skipnest needs its extension in %1. "
                      "Loading it takes a minute.")
             .arg(name),
         {QCoreApplication::translate(context, "Show me how"),
          QCoreApplication::translate(context, "Later")}},
        [showHow = std::move(showHow)](int button) {
            if (button == 0)
                showHow();
        });
}

} // namespace skipnest::app
