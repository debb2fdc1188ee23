// SPDX-License-Identifier: Apache-2.0
#include "app/AppDelegate.h"

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

AppDelegate::AppDelegate(const platform::Ports& ports)
    : ports_(ports),
      storage_(ports.files, ports.diagnostics, ports.wallClock, ports.defaults, ports.app),
      hotkeys_(ports.hotkeys, ports.keyboardLayout, ports.diagnostics, ports.scheduler),
      focus_(ports.workspace, ports.app.pid), switcher_(std::make_unique<NoSwitcher>()),
      counter_(std::make_unique<NoCounter>()), jumps_(ports, focus_, *switcher_, *counter_),
      cycler_(ports) {}

AppDelegate::~AppDelegate() = default;

void AppDelegate::launch() {
    // Before the list is made, so that its making registers the hotkeys once and for all.
    storage_.migrateFromLite();
    viewModel_ = std::make_unique<model::ShortcutListViewModel>(
        storage_, ports_.workspace, ports_.bookmarks, ports_.files, ports_.wallClock,
        [this](const AppConfiguration& configuration) { rebuildHotkeys(configuration); },
        [this](const AppConfiguration& configuration) {
            jumps_.setSwitches({configuration.windowSwitcherOrDefault(),
                                configuration.browserTabSwitchingOrDefault()});
        });
    storage_.takeDailySnapshot();
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
}

} // namespace skipnest::app
