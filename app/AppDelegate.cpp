// SPDX-License-Identifier: Apache-2.0
#include "app/AppDelegate.h"

#include "app/LocationCheck.h"
#include "platform/Alerts.h"
#include "platform/CrashCapture.h"
#include "platform/Diagnostics.h"
#include "platform/FileIndex.h"
#include "platform/LoginItem.h"
#include "platform/PanelHost.h"
#include "platform/ServicesMenu.h"
#include "platform/StatusItem.h"
#include "platform/UserDefaults.h"

#include <QCoreApplication>
#include <QStringBuilder>

#include <algorithm>
#include <utility>

namespace skipnest::app {

using model::AppConfiguration;
using model::ShortcutItem;

class AppDelegate::Counter final : public hotkeys::JumpCounter {
public:
    explicit Counter(stats::JumpStats& stats) : stats_(stats) {}
    void countKeyboardJump(const QString& name) override {
        stats_.record(stats::JumpStats::Kind::keyboard, name);
    }
    void countHide() override { stats_.markUsed(QStringLiteral("hide")); }

private:
    stats::JumpStats& stats_;
};

AppDelegate::AppDelegate(const platform::Ports& ports) : AppDelegate(ports, Options{}) {}

AppDelegate::AppDelegate(const platform::Ports& ports, Options options)
    : ports_(ports), options_(std::move(options)),
      storage_(ports.files, ports.diagnostics, ports.wallClock, ports.defaults, ports.app),
      stats_(ports.files, ports.scheduler, ports.executor, ports.wallClock, ports.diagnostics,
             ports.app),
      webClients_(ports_, stats_),
      hotkeys_(ports.hotkeys, ports.keyboardLayout, ports.diagnostics, ports.scheduler),
      ledger_(hotkeys_, ports.desktopShortcuts), focus_(ports.workspace, ports.app.pid),
      browserTabs_(ports),
      switcher_(ports, browserTabs_,
                [this](const QString& application) {
                    stats_.record(stats::JumpStats::Kind::switcher, application);
                }),
      counter_(std::make_unique<Counter>(stats_)), jumps_(ports, focus_, switcher_, *counter_),
      cycler_(ports), switcherHooks_(ports, switcher_, browserTabs_),
      browserPrompt_(ports, browserTabs_, switcher_, [this](const QString& browser) {
          shell_->showPopover({platform::PopoverScreen::browsers, {}, browser});
      }) {
    switcher_.setShortcuts([this](const model::KeyCombo& combo) {
        return std::ranges::any_of(hotkeys_.registered(), [&combo](const auto& entry) {
            return entry.hotkey.combo == combo;
        });
    });
}

AppDelegate::~AppDelegate() {
    *alive_ = false;
}

void AppDelegate::launch(LaunchSteps steps) {
    captureCrashes();
    checkLocation(ports_, [this, alive = alive_, steps = std::move(steps)] {
        if (*alive)
            continueLaunch(steps);
    });
}

void AppDelegate::captureCrashes() {
    if (ports_.crashCapture.availability().state == platform::Availability::State::unavailable)
        return;
    // The record cannot make its folder when the time has come.
    auto installed = ports_.files.createFolder(ports_.app.supportFolder);
    if (installed)
        installed = ports_.crashCapture.install(webClients_.crashes.recordFile());
    if (!installed)
        ports_.diagnostics.log(u"crash: not captured: " % installed.failure().detail);
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
    auto hooks = switcherHooks_.hooks();
    hooks.push_back({QStringLiteral("onboarding"), [this](const QString&) {
                         ports_.diagnostics.log(QStringLiteral("ONBOARDING: show requested"));
                         shell_->showOnboarding();
                     }});
    debugHooks_.install(ports_, std::move(hooks));
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
            .checkForUpdates = webClients_.web.isConfigured()
                                   ? std::function<void()>([this] { checkForUpdates(); })
                                   : std::function<void()>(),
            .quit = options_.quit,
            .droppedOnIcon = [this] { stats_.markUsed(QStringLiteral("drop")); },
            .uses = [this](const QString& name) { return stats_.store().byTarget.value(name); },
        });
    QObject::connect(&stats_, &stats::JumpStats::changed, &context_,
                     [this] { shell_->usesChanged(); });
    QObject::connect(&webClients_.updates, &services::UpdateChecker::checked, &context_,
                     [this](auto outcome) { updatesChecked(outcome); });
    shell_->createStatusItemAndPopover();
    ports_.panels.createSwitcherBar();
}

// What need not be ready with the first key press.
void AppDelegate::tidyAfterLaunch() {
    ledger_.refresh();
    ports_.fileIndex.prepare();
    webClients_.start(options_.updates);
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

void AppDelegate::setWindowPreviews(bool wanted) {
    if (const auto stored = ports_.defaults.setValue(QStringLiteral("sk.windowPreviews"), wanted);
        !stored)
        ports_.diagnostics.log(u"settings: sk.windowPreviews holds until the end of this run, " %
                               stored.failure().detail);
    applyWindowPreviews(viewModel_->config().windowSwitcherOrDefault());
}

// Without a bar to show them in, the system is to keep no picture of any window.
void AppDelegate::applyWindowPreviews(bool isSwitching) {
    switcher_.setPreviews(isSwitching &&
                          ports_.defaults.value(QStringLiteral("sk.windowPreviews")).toBool(true));
}

void AppDelegate::settingsApplied(const AppConfiguration& configuration) {
    const bool isSwitching = configuration.windowSwitcherOrDefault();
    jumps_.setSwitches({isSwitching, configuration.browserTabSwitchingOrDefault()});
    applyWindowPreviews(isSwitching);
    if (!isSwitching)
        switcher_.dismiss();
    webClients_.settingsApplied(configuration.crashReportsOrDefault(),
                                configuration.didOnboard.value_or(false));
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

// Chosen in the menu: unlike the daily check it always ends with an answer.
void AppDelegate::checkForUpdates() {
    if (webClients_.updates.available())
        return webClients_.updates.open();
    isAnswerAwaited_ = true;
    webClients_.updates.check();
}

void AppDelegate::updatesChecked(services::UpdateChecker::Outcome outcome) {
    using Outcome = services::UpdateChecker::Outcome;
    const auto text = [](const char* source) {
        return QCoreApplication::translate("AppDelegate", source);
    };
    const QString newer = text(QT_TRANSLATE_NOOP("AppDelegate", "Skipnest update available"));
    ports_.statusItem.setToolTip(webClients_.updates.available() ? newer
                                                                 : QStringLiteral("Skipnest"));
    if (!std::exchange(isAnswerAwaited_, false))
        return;
    if (outcome == Outcome::newer)
        return webClients_.updates.open();
    const bool isNewest = outcome == Outcome::newest;
    ports_.alerts.show(
        {isNewest ? text(QT_TRANSLATE_NOOP("AppDelegate", "Skipnest is up to date"))
                  : text(QT_TRANSLATE_NOOP("AppDelegate", "The check for updates failed")),
         isNewest ? text(QT_TRANSLATE_NOOP("AppDelegate", "%1 is the newest version."))
                        .arg(ports_.app.version)
                  : text(QT_TRANSLATE_NOOP("AppDelegate", "Check your connection and try again.")),
         {text(QT_TRANSLATE_NOOP("AppDelegate", "OK"))}},
        [](int) {});
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
