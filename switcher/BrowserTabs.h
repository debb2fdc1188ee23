// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Ports.h"
#include "platform/RunningApplication.h"
#include "platform/ScriptRunner.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace skipnest::switcher {

// The tabs of a browser, asked for and selected by scripts.
class BrowserTabs {
public:
    enum class Dialect { chromium, safari, arc };
    struct BrowserTab {
        std::int64_t windowIndex = 0; // from 1, at the time of listing; 1 is the front window
        std::int64_t tabIndex = 0;    // from 1
        QString title;                // may be empty
        bool active = false;
        QString url; // empty where unknown

        bool operator==(const BrowserTab&) const = default;
    };
    enum class Prompt { ifDenied, never };

    explicit BrowserTabs(const platform::Ports& ports);

    // What is done, once, where a browser that only an extension reaches has none connected.
    void setGuide(std::function<void(const platform::RunningApplication&)> guide) {
        guide_ = std::move(guide);
    }

    // By exact identifier; the backend's own browsers count as `chromium`.
    [[nodiscard]] std::optional<Dialect> dialect(const QString& bundleIdentifier) const;
    [[nodiscard]] bool isSupported(const platform::RunningApplication& app) const;
    // In the order of the answer; empty on any failure. Waits at most 1.5 s.
    [[nodiscard]] std::vector<BrowserTab> enumerate(const platform::RunningApplication& app,
                                                    Prompt prompt);
    // Waits at most 4 s in all.
    void activate(const BrowserTab& tab, const platform::RunningApplication& app);

    // The texts, without the timeout that is put around them when they run.
    [[nodiscard]] static QString enumerateScript(Dialect dialect, const QString& bundleIdentifier);
    [[nodiscard]] static QString activateScript(Dialect dialect, const QString& bundleIdentifier,
                                                std::int64_t window, std::int64_t tab);
    // Nothing for `arc`, whose tabs are not looked for again.
    [[nodiscard]] static std::optional<QString>
    relocateScript(Dialect dialect, const QString& bundleIdentifier, const BrowserTab& tab);
    [[nodiscard]] static QString wrapped(const QString& script);
    // Lines that are not right are left out.
    [[nodiscard]] static std::vector<BrowserTab> parse(const QString& output);
    // From the fixed table alone.
    [[nodiscard]] static std::optional<Dialect> knownDialect(const QString& bundleIdentifier);

private:
    // Nothing where no answer came.
    [[nodiscard]] std::optional<QString> run(platform::ScriptRequest request,
                                             platform::Duration budget);
    void showConsentPrompt(const platform::RunningApplication& app);

    platform::Ports ports_;
    int lastError_ = 0;
    bool consentPromptShown_ = false;
    std::function<void(const platform::RunningApplication&)> guide_;
};

} // namespace skipnest::switcher
