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
#include "switcher/SwitcherModel.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace skipnest::switcher {

// The bar over the windows or tabs of the application in front: opened by its shortcut, stepped
// through by holding, driven by keys, pointer and typing, and gone with the pick.
class WindowSwitcher final : public hotkeys::SwitcherGate, private platform::KeyInterceptor {
public:
    struct TabRef {
        std::int64_t windowIndex = 0;
        std::int64_t tabIndex = 0;
        QString title;
        QString domain;
        bool active = false;
        QString url;
    };
    struct Win {
        QString title;
        AppWindows::Element element; // none: raised through the Window menu
        std::optional<QRectF> frame;
        QString identifier; // "AXWindowID", empty where unknown
        std::optional<std::int64_t> browserWindowIndex;
        std::vector<TabRef> tabs;
    };

    // `committed` hears of each pick with the name of what was picked.
    WindowSwitcher(const platform::Ports& ports, BrowserTabs& tabs,
                   std::function<void(const QString& application)> committed);
    ~WindowSwitcher() override;

    [[nodiscard]] SwitcherModel& model() { return model_; }

    [[nodiscard]] bool isOpen() const override { return isShown_; }
    // Another shortcut was pressed: closes without acting.
    void cancel() override { dismiss(); }
    [[nodiscard]] Answer offer(const platform::RunningApplication& app) override;
    [[nodiscard]] Answer open(const platform::RunningApplication& front,
                              std::optional<model::ModifierFlags> modifiers, Mode mode) override;
    [[nodiscard]] bool knowsTabsOf(const QString& bundleIdentifier) const override;

    void commit(const QString& reason);
    void dismiss();
    // Previews are wanted ("windowSwitcher" previews of the settings).
    void setPreviews(bool wanted);
};

} // namespace skipnest::switcher
