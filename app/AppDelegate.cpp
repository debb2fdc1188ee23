// SPDX-License-Identifier: Apache-2.0
#include "app/AppDelegate.h"

#include "app/LocationCheck.h"
#include "platform/Diagnostics.h"
#include "platform/FileIndex.h"
#include "platform/LoginItem.h"
#include "platform/PanelHost.h"
#include "platform/ServicesMenu.h"

#include <QStringBuilder>

#include <utility>

namespace skipnest::app {

using hotkeys::SwitcherGate;
using model::AppConfiguration;
using model::ShortcutItem;

class AppDelegate::NoSwitcher final : public SwitcherGate {
public:
    [[nodiscard]] bool isOpen() const override { return false; }
    void cancel() override {}
    Answer offer(const platform::RunningApplication&) override { return Answer::declined; }
    Answer open(const platform::RunningApplication&, std::optional<model::ModifierFlags>,
                Mode) override {
        return Answer::declined;
    }
    [[nodiscard]] bool knowsTabsOf(const QString&) const override { return false; }
};

class AppDelegate::NoCounter final : public hotkeys::JumpCounter {
public:
    void countKeyboardJump(const QString&) override {}
    void countHide() override {}
};

AppDelegate::AppDelegate(const platform::Ports& ports) : AppDelegate(ports, Options{}) {}

AppDelegate::AppDelegate(const platform::Ports& ports, Options options)
    : ports_(ports), options_(std::move(options)),
      storage_(ports.files, ports.diagnostics, ports.wallClock, ports.defaults, ports.app),
      hotkeys_(ports.hotkeys, ports.keyboardLayout, ports.diagnostics, ports.scheduler),
      ledger_(hotkeys_, ports.desktopShortcuts), focus_(ports.workspace, ports.app.pid),
      switcher_(std::make_unique<NoSwitcher>()), counter_(std::make_unique<NoCounter>()),
      jumps_(ports, focus_, *switcher_, *counter_), cycler_(ports) {}

AppDelegate::~AppDelegate() {
    *alive_ = false;
}

void AppDelegate::launch(LaunchSteps steps) {
    checkLocation(ports_, [this, alive = alive_, steps = std::move(steps)] {
        if (*alive)
            continueLaunch(steps);
    });
}

void AppDelegate::continueLaunch(const LaunchSteps& steps) {
    createList();
    if (steps.hotkeysRegistered)
        steps.hotkeysRegistered();
    createShell();
    if (const auto refreshed = ports_.servicesMenu.refresh();
        !refreshed && refreshed.failure().kind != platform::Failure::Kind::unavailable)
        ports_.diagnostics.log(u"services: not refreshed: " % refreshed.failure().detail);
    if (options_.setup == Options::Setup::check &&
        MenuBarShell::needsOnboarding(viewModel_->config()))
        shell_->showOnboarding();
    debugHooks_.install(ports_,
                        {{QStringLiteral("onboarding"), [this](const QString&) {
                              ports_.diagnostics.log(QStringLiteral("ONBOARDING: show requested"));
                              shell_->showOnboarding();
                          }}});
    if (steps.finished)
        steps.finished();
    ports_.scheduler.post([this, alive = alive_] {
        if (*alive)
            tidyAfterLaunch();
    });
}

void AppDelegate::createList() {
    // Before the list is made, so that its making registers the hotkeys once and for all.
    storage_.migrateFromLite();
    viewModel_ = std::make_unique<model::ShortcutListViewModel>(
        storage_, ports_.workspace, ports_.bookmarks, ports_.files, ports_.wallClock,
        ports_.defaults, ports_.app,
        [this](const AppConfiguration& configuration) { rebuildHotkeys(configuration); },
        [this](const AppConfiguration& configuration) { settingsApplied(configuration); });
    transfer_ = std::make_unique<model::ShortcutTransfer>(*viewModel_, ports_.files,
                                                          ports_.wallClock, ports_.app);
    storage_.takeDailySnapshot();
}

void AppDelegate::createShell() {
    shell_ = std::make_unique<MenuBarShell>(
        ports_, *viewModel_, notifications_,
        MenuBarShell::Actions{
            .jump = [this](const ShortcutItem& item) { jumps_.jump(item, ports_.scheduler.now()); },
            .capture = {},
            .voice = {},
            .checkForUpdates = {},
            .quit = options_.quit,
        });
    shell_->createStatusItemAndPopover();
}

// What need not be ready with the first key press.
void AppDelegate::tidyAfterLaunch() {
    ledger_.refresh();
    ports_.fileIndex.prepare();
    if (options_.setup == Options::Setup::countsAsDone)
        return;
    // The entry may have been removed, or point at where the program was; nobody asked for
    // anything, so nobody is told.
    const bool wanted = viewModel_->config().launchAtLogin;
    if (wanted != ports_.loginItem.isRegistered())
        (void)(wanted ? ports_.loginItem.registerItem() : ports_.loginItem.unregisterItem());
}

void AppDelegate::showPopoverAfterStart() {
    if (!ports_.panels.isOnboardingShown())
        shell_->showPopover();
}

void AppDelegate::settingsApplied(const AppConfiguration& configuration) {
    jumps_.setSwitches(
        {configuration.windowSwitcherOrDefault(), configuration.browserTabSwitchingOrDefault()});
    const auto before = std::exchange(launchAtLogin_, configuration.launchAtLogin);
    if (before && *before != configuration.launchAtLogin)
        setLaunchAtLogin(configuration.launchAtLogin);
}

void AppDelegate::setLaunchAtLogin(bool wanted) {
    const auto changed =
        wanted ? ports_.loginItem.registerItem() : ports_.loginItem.unregisterItem();
    if (!changed)
        ports_.diagnostics.print(u"[Skipnest] Failed to " %
                                 QLatin1String(wanted ? "enable" : "disable") %
                                 u" launch at login: " % changed.failure().detail);
}

void AppDelegate::rebuildHotkeys(const AppConfiguration& configuration) {
    using platform::CycleDirection;
    hotkeys_.registerAll(
        configuration.shortcuts, configuration,
        {
            .onJump =
                [this](const ShortcutItem& item) {
                    jumps_.jump(item, hotkeys_.pressTime().value_or(ports_.scheduler.now()));
                },
            .onHide = [this](const ShortcutItem& item) { jumps_.hide(item); },
            .onNextWindow = [this] { cycler_.cycle(CycleDirection::next); },
            .onPreviousWindow = [this] { cycler_.cycle(CycleDirection::previous); },
            .onVoice =
                [this] {
                    ports_.diagnostics.log(QStringLiteral("voice: this build does not listen yet"));
                },
        });
    ledger_.hotkeysRebuilt();
}

} // namespace skipnest::app
