// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/ArrivalWatch.h"
#include "hotkeys/FocusTracker.h"
#include "hotkeys/JumpCounter.h"
#include "hotkeys/Reactivation.h"
#include "hotkeys/SwitcherGate.h"
#include "model/ShortcutItem.h"
#include "platform/Bookmarks.h"
#include "platform/DelayedTasks.h"
#include "platform/Ports.h"

#include <functional>
#include <optional>

namespace skipnest::hotkeys {

// The two switches of the configuration that a press reads.
struct JumpSwitches {
    bool switcherEnabled = true;
    bool browserTabsEnabled = true;
};

// What a press of a shortcut does: opens the target or brings it to the front, hands the press to
// the window switcher when the target is in front already, or hides the target.
class JumpExecution {
public:
    using Completion = ArrivalWatch::Completion;

    enum class Started { no, yes };

    JumpExecution(const platform::Ports& ports, FocusTracker& focus, SwitcherGate& switcher,
                  JumpCounter& counter);

    void setSwitches(const JumpSwitches& switches) { switches_ = switches; }

    // `pressed` is when the key went down, for the time that the jump took. `completion` (may be
    // empty) hears once whether the target came to the front, also when nothing was started.
    Started jump(const model::ShortcutItem& item, platform::Instant pressed,
                 Completion completion = {});

    void hide(const model::ShortcutItem& item);

    // The application that the shortcut opens its target in, where it runs.
    [[nodiscard]] std::optional<platform::RunningApplication>
    runningTarget(const model::ShortcutItem& item);
    // Opens the window switcher over the application, in front or not, without keys to hold. False
    // where it is switched off or there is nothing to switch between.
    [[nodiscard]] bool chooseWindow(const platform::RunningApplication& app);

    [[nodiscard]] const ArrivalWatch& arrivals() const { return arrivals_; }

private:
    enum class Scope { plain, securityScoped };

    struct Opening {
        QString path;
        Scope scope = Scope::plain;
        std::optional<model::KeyCombo> combo;
        QString name;
        platform::Instant pressed;
        Completion completion;
    };

    Started open(const Opening& opening);
    Started openApplication(const Opening& opening, platform::ScopedAccess access);
    Started openDocument(const Opening& opening, platform::ScopedAccess access);
    Started reactivate(const Opening& opening, const platform::RunningApplication& front);
    [[nodiscard]] bool isTakenBySwitcher(std::optional<model::ModifierFlags> modifiers,
                                         const platform::RunningApplication& app);

    // The bookmark's place of the target now; the failure is for whoever wants to tell it.
    [[nodiscard]] std::optional<platform::Result<QString>>
    resolveBookmark(const model::ShortcutItem& item);
    [[nodiscard]] JumpDestination destination(const QString& applicationPath) const;
    [[nodiscard]] std::optional<platform::RunningApplication>
    runningInstance(const JumpDestination& destination) const;
    void countJump(const QString& name);
    void cancelSwitcher();
    void showNotFound(const QString& path);
    void handBackAfterHide(const platform::RunningApplication& app);
    [[nodiscard]] std::function<void(const platform::Outcome&)>
    openCompletion(const Opening& opening, platform::ScopedAccess access);

    platform::Ports ports_;
    FocusTracker& focus_;
    SwitcherGate& switcher_;
    JumpCounter& counter_;
    JumpSwitches switches_;
    ArrivalWatch arrivals_;
    Reactivation reactivation_;
    platform::DelayedTasks delayed_;
};

} // namespace skipnest::hotkeys
