// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/KeyCombo.h"
#include "platform/RunningApplication.h"

#include <optional>

namespace skipnest::hotkeys {

// What a press of a shortcut asks of the window switcher. The switcher lives above this folder;
// whoever has none answers `declined` everywhere.
class SwitcherGate {
public:
    enum class Answer { taken, declined };
    // Whether a browser may be listed by its tabs. With `windowsOnly` tabs are never asked for.
    enum class Mode { tabsAllowed, windowsOnly };

    virtual ~SwitcherGate() = default;

    [[nodiscard]] virtual bool isOpen() const = 0;
    virtual void cancel() = 0;

    // Taken only while the bar is open for this very process, which then steps on to its next
    // window. An application that is not in front is always activated by its shortcut, not listed.
    [[nodiscard]] virtual Answer offer(const platform::RunningApplication& app) = 0;

    // Opens the bar over the application in front. `modifiers` are the shortcut's, so that the bar
    // can close when they are let go; nothing when the press had no combo.
    [[nodiscard]] virtual Answer open(const platform::RunningApplication& front,
                                      std::optional<model::ModifierFlags> modifiers, Mode mode) = 0;

    // Whether the tabs of the application with this identifier can be listed.
    [[nodiscard]] virtual bool knowsTabsOf(const QString& bundleIdentifier) const = 0;
};

} // namespace skipnest::hotkeys
