// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/BrowserExtensions.h"

#include <algorithm>
#include <optional>

namespace skipnest::sim {

// Browsers that are reached through an extension. There are none until a test says so.
class SimBrowserExtensions final : public platform::BrowserExtensions {
public:
    using Browser = platform::ExtensibleBrowser;

    void setBrowsers(std::vector<Browser> browsers) { browsers_ = std::move(browsers); }
    void setFolder(const QString& folder) { folder_ = folder; }
    // Every install fails with this from now on.
    void refuseInstall(const platform::Failure& failure) { refusal_ = failure; }
    // The extension of the browser reaches the agent, or goes.
    void connect(const QString& identifier, bool isConnected = true) {
        for (Browser& browser : browsers_)
            if (browser.identifier == identifier)
                browser.isConnected = isConnected;
        changed_.notify();
    }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] std::vector<Browser> browsers() const override { return browsers_; }
    [[nodiscard]] QString folder() const override { return folder_; }
    platform::Outcome install(const Browser& browser) override {
        if (refusal_)
            return *refusal_;
        set(browser, Browser::Host::installed);
        return platform::Done{};
    }
    platform::Outcome remove(const Browser& browser) override {
        set(browser, Browser::Host::missing);
        return platform::Done{};
    }
    [[nodiscard]] platform::Observation observeConnections(std::function<void()> changed) override {
        return changed_.add(std::move(changed));
    }

private:
    void set(const Browser& browser, Browser::Host host) {
        const auto known = std::ranges::find(browsers_, browser);
        if (known != browsers_.end())
            known->host = host;
    }

    std::vector<Browser> browsers_;
    QString folder_ = QStringLiteral("/usr/share/skipnest/extension");
    std::optional<platform::Failure> refusal_;
    platform::Observers<> changed_;
};

} // namespace skipnest::sim
