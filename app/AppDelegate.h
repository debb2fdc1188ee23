// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/FocusTracker.h"
#include "hotkeys/HotkeyManager.h"
#include "hotkeys/JumpExecution.h"
#include "hotkeys/WindowCycler.h"
#include "model/ShortcutListViewModel.h"
#include "model/StorageService.h"
#include "platform/Ports.h"

#include <memory>
#include <optional>

namespace skipnest::app {

// Everything that lives for the whole run, and how it is connected. The real program and `replay`
// run this same wiring, on different ports.
class AppDelegate {
public:
    explicit AppDelegate(const platform::Ports& ports);
    ~AppDelegate();

    // The launch sequence, from the point where this process is the only agent: the migration, the
    // document with its hotkeys, the daily snapshot. Called once.
    void launch();

    [[nodiscard]] const platform::Ports& ports() const { return ports_; }
    [[nodiscard]] model::StorageService& storage() { return storage_; }
    [[nodiscard]] model::ShortcutListViewModel& viewModel() { return *viewModel_; }
    [[nodiscard]] hotkeys::HotkeyManager& hotkeys() { return hotkeys_; }
    [[nodiscard]] hotkeys::JumpExecution& jumps() { return jumps_; }
    [[nodiscard]] hotkeys::WindowCycler& cycler() { return cycler_; }

private:
    // Stand where the window switcher and the statistics plug in; both decline.
    class NoSwitcher;
    class NoCounter;

    void rebuildHotkeys(const model::AppConfiguration& configuration);

    platform::Ports ports_;
    model::StorageService storage_;
    hotkeys::HotkeyManager hotkeys_;
    hotkeys::FocusTracker focus_;
    std::unique_ptr<hotkeys::SwitcherGate> switcher_;
    std::unique_ptr<hotkeys::JumpCounter> counter_;
    hotkeys::JumpExecution jumps_;
    hotkeys::WindowCycler cycler_;
    std::unique_ptr<model::ShortcutListViewModel> viewModel_;
};

} // namespace skipnest::app
