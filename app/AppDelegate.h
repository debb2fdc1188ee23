// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "app/BrowserPrompt.h"
#include "app/DebugHooks.h"
#include "app/MenuBarShell.h"
#include "app/SwitcherHooks.h"
#include "app/WebClients.h"
#include "hotkeys/FocusTracker.h"
#include "hotkeys/HotkeyManager.h"
#include "hotkeys/JumpExecution.h"
#include "hotkeys/KeyLedger.h"
#include "hotkeys/WindowCycler.h"
#include "model/ShortcutListViewModel.h"
#include "model/ShortcutTransfer.h"
#include "model/StorageService.h"
#include "platform/NotificationCenter.h"
#include "platform/Ports.h"
#include "stats/JumpStats.h"
#include "switcher/BrowserTabs.h"
#include "switcher/WindowSwitcher.h"

#include <functional>
#include <memory>
#include <optional>

namespace skipnest::app {

// Everything that lives for the whole run, and how it is connected. The real program and `replay`
// run this same wiring, on different ports.
class AppDelegate {
public:
    struct Options {
        // What a start puts in order for the person: a first shortcut, the login item. A simulated
        // desktop stands for one where all of that was done long ago.
        enum class Setup { check, countsAsDone };
        Setup setup = Setup::check;
        WebClients::Updates updates = WebClients::Updates::check;
        std::function<void()> quit; // empty: nothing offers to quit
    };
    struct LaunchSteps {
        std::function<void()> hotkeysRegistered;
        std::function<void()> finished;
    };

    explicit AppDelegate(const platform::Ports& ports);
    AppDelegate(const platform::Ports& ports, Options options);
    ~AppDelegate();

    // The launch sequence, from the point where this process is the only agent. Called once. It is
    // over when this returns, but for a program that lies in the wrong place: then nothing further
    // happens until the person has answered.
    void launch(LaunchSteps steps = {});
    // What a start by hand shows: without a tray, starting the program again is the way in.
    void showPopoverAfterStart();

    [[nodiscard]] const platform::Ports& ports() const { return ports_; }
    [[nodiscard]] model::StorageService& storage() { return storage_; }
    [[nodiscard]] hotkeys::HotkeyManager& hotkeys() { return hotkeys_; }
    [[nodiscard]] hotkeys::JumpExecution& jumps() { return jumps_; }
    [[nodiscard]] switcher::BrowserTabs& browserTabs() { return browserTabs_; }
    [[nodiscard]] switcher::WindowSwitcher& switcher() { return switcher_; }
    [[nodiscard]] hotkeys::WindowCycler& cycler() { return cycler_; }
    [[nodiscard]] platform::NotificationCenter& notifications() { return notifications_; }
    [[nodiscard]] hotkeys::KeyLedger& ledger() { return ledger_; }
    [[nodiscard]] stats::JumpStats& stats() { return stats_; }
    [[nodiscard]] platform::WebService& webService() { return webClients_.web; }
    [[nodiscard]] services::Pings& pings() { return webClients_.pings; }
    [[nodiscard]] services::FeedbackService& feedbackService() { return webClients_.feedback; }
    [[nodiscard]] services::UpdateChecker& updates() { return webClients_.updates; }
    [[nodiscard]] services::CrashReporter& crashReporter() { return webClients_.crashes; }
    [[nodiscard]] stats::ChallengeService& challenge() { return webClients_.challenge; }
    // These exist from the launch on; panels may use them from createPopover() on.
    [[nodiscard]] model::ShortcutListViewModel& viewModel() { return *viewModel_; }
    [[nodiscard]] model::ShortcutTransfer& transfer() { return *transfer_; }
    [[nodiscard]] MenuBarShell& shell() { return *shell_; }
    // Whether the switcher's cards show what is in the windows; kept under "sk.windowPreviews".
    void setWindowPreviews(bool wanted);

private:
    class Counter;

    void captureCrashes();
    void continueLaunch(const LaunchSteps& steps);
    void createList();
    void createShell();
    void rebuildHotkeys(const model::AppConfiguration& configuration);
    void settingsApplied(const model::AppConfiguration& configuration);
    void applyWindowPreviews(bool isSwitching);
    void setLaunchAtLogin(bool wanted);
    void checkForUpdates();
    void updatesChecked(services::UpdateChecker::Outcome outcome);
    void tidyAfterLaunch();

    platform::Ports ports_;
    Options options_;
    platform::NotificationCenter notifications_;
    model::StorageService storage_;
    stats::JumpStats stats_;
    WebClients webClients_;
    hotkeys::HotkeyManager hotkeys_;
    hotkeys::KeyLedger ledger_;
    hotkeys::FocusTracker focus_;
    switcher::BrowserTabs browserTabs_;
    switcher::WindowSwitcher switcher_;
    std::unique_ptr<hotkeys::JumpCounter> counter_;
    hotkeys::JumpExecution jumps_;
    hotkeys::WindowCycler cycler_;
    std::unique_ptr<model::ShortcutListViewModel> viewModel_;
    std::unique_ptr<model::ShortcutTransfer> transfer_;
    std::unique_ptr<MenuBarShell> shell_;
    SwitcherHooks switcherHooks_;
    BrowserPrompt browserPrompt_;
    DebugHooks debugHooks_;
    std::optional<bool> launchAtLogin_; // as last applied
    bool isAnswerAwaited_ = false;      // the person asked for updates
    QObject context_;                   // connections end with the delegate
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::app
