// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"
#include "platform/ScriptRunner.h"
#include "platform/linux/browser/BrowserProcess.h"
#include "platform/linux/browser/TabsServer.h"

#include <QHash>
#include <QRect>

#include <memory>
#include <optional>
#include <vector>

namespace skipnest::linuxdesktop {

// The tabs of browsers whose extension is connected, with the answers and error numbers of
// platform::ScriptRunner. Each profile of a browser has its own connection; their windows are
// numbered through, the profile that was in front last comes first. Titles and addresses are kept
// nowhere: the numbers of the last listing lead back to the profile, and its extension knows the
// tab.
class ExtensionTabs {
public:
    static constexpr int notPermitted = -1743; // no extension of this browser is connected
    static constexpr int noSuchObject = -1719;

    // What the browser says of a tab that it has just selected.
    struct Selected {
        QString title;
        QRect window; // in the browser's own pixels; empty where it does not say
    };

    ExtensionTabs(platform::Scheduler& scheduler, QString runtimeFolder,
                  TabsServer::Identify identify = browserThatStarted);

    // From here on hosts find the agent. For the one that runs, nobody else.
    platform::Outcome listen();
    // The browsers whose extension is connected, by identifier; asked of the agent where that is
    // another process.
    [[nodiscard]] QStringList connectedBrowsers() const;
    // Told on the main thread when that has changed.
    [[nodiscard]] platform::Observation observeConnections(std::function<void()> changed) {
        return changed_->add(std::move(changed));
    }

    // Browsers that only the extension reaches here: also those that other systems can ask by
    // themselves, so that nobody is sent to another system's settings for them.
    [[nodiscard]] static QStringList browsers();

    [[nodiscard]] platform::ScriptAnswer run(const platform::EnumerateTabs& request,
                                             platform::Duration budget);
    [[nodiscard]] platform::ScriptAnswer run(const platform::ActivateTab& request,
                                             platform::Duration budget);
    [[nodiscard]] platform::ScriptAnswer run(const platform::RelocateTab& request,
                                             platform::Duration budget);

    // By the last run; nothing where it selected none.
    [[nodiscard]] const std::optional<Selected>& selected() const { return selected_; }

private:
    using ConnectionId = TabsServer::ConnectionId;
    struct Section {
        ConnectionId connection = 0;
        std::int64_t windows = 0;
    };
    struct Place {
        ConnectionId connection = 0;
        std::int64_t window = 0; // by the profile's own count
    };

    [[nodiscard]] Place placeOf(const QString& browser, std::int64_t window,
                                const std::vector<ConnectionId>& connections) const;
    [[nodiscard]] platform::ScriptAnswer select(const TabsServer::Question& question,
                                                platform::Duration budget);

    platform::Scheduler& scheduler_;
    const QString socketPath_;
    const std::shared_ptr<platform::Observers<>> changed_ =
        std::make_shared<platform::Observers<>>();
    TabsServer server_;
    QHash<QString, std::vector<Section>> listed_; // by browser
    std::optional<Selected> selected_;
};

} // namespace skipnest::linuxdesktop
