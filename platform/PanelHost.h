// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"

#include <QRect>
#include <QSize>
#include <QString>

#include <functional>

namespace skipnest::platform {

enum class PopoverScreen {
    list,
    add,
    importing,
    exporting,
    settings,
    feedback,
    statistics,
    challenge,
    crash,
    browsers,
};

// What the popover shows. `targetPath` only for `add`: the target is chosen already. `browser` only
// for `browsers`: the identifier of the one to set up, else the person chooses.
struct PopoverRoute {
    PopoverScreen screen = PopoverScreen::list;
    QString targetPath;
    QString browser = {};

    bool operator==(const PopoverRoute&) const = default;
};

// The windows of the program, made by whoever draws them. All calls on the main thread.
class PanelHost {
public:
    virtual ~PanelHost() = default;

    // Builds the popover, hidden, so that showing it later costs one frame. Called once, when the
    // list model exists.
    virtual void createPopover() = 0;
    [[nodiscard]] virtual QSize popoverSize() const = 0;
    [[nodiscard]] virtual bool isPopoverShown() const = 0;
    // Shows it there with the keyboard's focus; where it is shown already, only the route changes.
    virtual void showPopover(const PopoverRoute& route, const QRect& frame) = 0;
    virtual void hidePopover() = 0;
    // Told whenever the popover was hidden, by us or because the person went elsewhere.
    [[nodiscard]] virtual Observation observePopoverHidden(std::function<void()> hidden) = 0;

    // Builds the switcher's bar, hidden. Called once, when the switcher exists.
    virtual void createSwitcherBar() = 0;
    // Shows what the switcher's model says, without taking the keyboard's focus from the
    // application below; the bar sizes itself and stays in the middle of this area.
    virtual void showSwitcherBar(const QRect& available) = 0;
    virtual void hideSwitcherBar() = 0;

    [[nodiscard]] virtual bool isOnboardingShown() const = 0;
    virtual void showOnboarding() = 0;
    virtual void closeOnboarding() = 0;
};

// The name of a screen as the command line and logs have it: "list", "add", "import", "export",
// "settings", "feedback", "statistics", "challenge", "crash", "browsers".
[[nodiscard]] QString screenName(PopoverScreen screen);

} // namespace skipnest::platform
