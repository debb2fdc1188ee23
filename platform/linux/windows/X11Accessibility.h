// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Accessibility.h"
#include "platform/Executor.h"
#include "platform/Scheduler.h"
#include "platform/linux/X11Applications.h"
#include "platform/linux/X11WindowCommands.h"
#include "platform/linux/X11Windows.h"
#include "platform/linux/windows/WindowMenus.h"
#include "platform/linux/windows/X11WindowDetails.h"

#include <unordered_map>

namespace skipnest::linuxdesktop {

// Applications and their windows as the window manager has them. Which windows there are, which has
// the keyboard and which are minimised is known from events; titles, types and frames of all the
// windows of an application are asked of the X server, no program, in one round trip when its
// windows are listed.
//
// Of menus only the list of windows in a program's Window menu is known: WindowMenus.
//
// Bringing a window forward is one request here, whatever of "AXMain", "AXFocusedWindow", "AXRaise"
// and "AXFrontmost" asks for it: the window manager goes to its desktop, takes it out of its icon,
// raises it and gives it the keyboard. The first one sends it, those that follow find it on its
// way.
class X11Accessibility final : public platform::Accessibility {
public:
    X11Accessibility(X11Display& display, platform::Scheduler& scheduler,
                     platform::Executor& executor, X11Windows& windows,
                     X11Applications& applications, X11WindowCommands& commands);

    [[nodiscard]] platform::Availability availability() const override;
    // X has no such permission.
    [[nodiscard]] bool isTrusted() const override { return true; }
    void promptForTrust() override {}
    [[nodiscard]] platform::AccessibilityElement
    application(platform::ProcessIdentifier pid) override;
    [[nodiscard]] std::optional<platform::AccessibilityValue>
    attribute(const platform::AccessibilityElement& element, const QString& name) override;
    int setAttribute(const platform::AccessibilityElement& element, const QString& name,
                     const platform::AccessibilityValue& value) override;
    int performAction(const platform::AccessibilityElement& element, const QString& name) override;

private:
    struct Known {
        X11WindowDetails details;
        platform::Instant readAt;
    };

    [[nodiscard]] std::optional<platform::AccessibilityValue>
    applicationAttribute(platform::ProcessIdentifier pid, const QString& name);
    [[nodiscard]] std::optional<platform::AccessibilityValue> windowAttribute(xcb_window_t window,
                                                                              const QString& name);
    [[nodiscard]] platform::AccessibilityValue listWindows(const X11Application& application);
    [[nodiscard]] const X11Application* find(platform::ProcessIdentifier pid);
    [[nodiscard]] const X11WindowDetails* details(xcb_window_t window);
    int setMinimised(xcb_window_t window, bool minimised);
    int bringForward(xcb_window_t window);
    int press(const platform::AccessibilityElement& entry);

    platform::Scheduler& scheduler_;
    X11Windows& windows_;
    X11Applications& applications_;
    X11WindowCommands& commands_;
    const X11WindowDetailsReader reader_;
    std::unordered_map<xcb_window_t, Known> known_;
    WindowMenus menus_;
};

} // namespace skipnest::linuxdesktop
