// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/SwitcherGate.h"
#include "platform/KeyEvents.h"
#include "platform/Observers.h"
#include "platform/Ports.h"
#include "platform/Scheduler.h"
#include "switcher/AppWindows.h"
#include "switcher/BrowserTabs.h"
#include "switcher/ContentGrabber.h"
#include "switcher/HoldGesture.h"
#include "switcher/SwitcherModel.h"
#include "switcher/SwitcherSelection.h"
#include "switcher/Win.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace skipnest::switcher {

// The bar over the windows or tabs of the application in front: opened by its shortcut, stepped
// through by holding, driven by keys, pointer and typing, and gone with the pick.
//
// While it is up it owns a key tap, a poll timer, a watch on clicks and, where wanted, the captures
// of previews; all of them end with dismiss(), which every way out goes through.
class WindowSwitcher final : public hotkeys::SwitcherGate, private platform::KeyInterceptor {
public:
    using TabRef = switcher::TabRef;
    using Win = switcher::Win;
    using Level = SwitcherModel::Level;

    // `committed` hears of each pick with the name of the application.
    WindowSwitcher(const platform::Ports& ports, BrowserTabs& tabs,
                   std::function<void(const QString& application)> committed);
    ~WindowSwitcher() override;
    WindowSwitcher(const WindowSwitcher&) = delete;
    WindowSwitcher& operator=(const WindowSwitcher&) = delete;

    [[nodiscard]] SwitcherModel& model() { return model_; }

    [[nodiscard]] bool isOpen() const override { return isShown_; }
    // Another shortcut was pressed: closes without acting.
    void cancel() override { dismiss(); }
    [[nodiscard]] Answer offer(const platform::RunningApplication& app) override;
    // Tabs are listed at most once, with `tabsAllowed`; where there are too few, or none can be
    // had, that declines and the caller asks again for the windows. So it is only with
    // `windowsOnly` that the person is asked for Accessibility.
    [[nodiscard]] Answer open(const platform::RunningApplication& front,
                              std::optional<model::ModifierFlags> modifiers, Mode mode) override;
    [[nodiscard]] bool knowsTabsOf(const QString& bundleIdentifier) const override;

    void commit(const QString& reason);
    void dismiss();
    // Whether cards show pictures of their windows.
    void setPreviews(bool wanted);
    // Shortcuts that the program has registered: their keys are never taken for typing.
    void setShortcuts(std::function<bool(const model::KeyCombo&)> isShortcut) {
        isShortcut_ = std::move(isShortcut);
    }

private:
    using App = platform::RunningApplication;

    [[nodiscard]] std::optional<SwitcherSelection> listTabs(const App& app);
    [[nodiscard]] std::optional<SwitcherSelection> listWindows(const App& app);
    void promptForAccessibility();
    void begin(const App& app, std::optional<model::ModifierFlags> modifiers,
               SwitcherSelection selection);
    void tapKeys();
    void startPreviews();
    void showPreview(const ContentGrabber::Shot& shot);

    void poll();
    Verdict keyPressed(const platform::KeyPress& press) override;
    void tapWasDisabled(Disabled) override {}
    void act(const platform::KeyPress& press);
    void logSearch();
    void connectModel();
    void pick(bool isThere, const QString& reason);
    void stepOn();
    void refresh();
    void activate(const Target& target, const App& app, const std::vector<Win>& wins);

    platform::Ports ports_;
    BrowserTabs& tabs_;
    std::function<void(const QString&)> committed_;
    std::function<bool(const model::KeyCombo&)> isShortcut_;
    AppWindows windows_;
    ContentGrabber grabber_;
    SwitcherModel model_;
    bool previews_ = false;

    // Of the session.
    bool isShown_ = false;
    App app_;
    SwitcherSelection selection_;
    HoldGesture hold_;
    platform::KeyTap tap_;
    platform::Timer pollTimer_;
    platform::Observation clickAway_;
};

} // namespace skipnest::switcher
