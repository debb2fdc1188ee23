// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Accessibility.h"
#include "platform/Executor.h"
#include "platform/Observers.h"
#include "platform/Scheduler.h"
#include "platform/linux/X11Applications.h"
#include "platform/linux/X11Windows.h"
#include "platform/linux/windows/WindowMenu.h"

#include <map>
#include <memory>
#include <optional>

namespace skipnest::linuxdesktop {

// The Window menus of programs, as elements: windows that the window manager does not have, such as
// the documents inside a larger window, are listed and raised through them.
//
// A worker reads the menu a moment after a window has come to the front, and again after it was
// asked for; every question is answered from what it has read by then. A program that does not
// answer costs the worker a second at most and has no menu. What a newer reading replaces, and what
// has ended, is gone.
class WindowMenus {
public:
    using Element = platform::AccessibilityElement;

    WindowMenus(platform::Scheduler& scheduler, platform::Executor& executor, X11Windows& windows,
                X11Applications& applications);
    ~WindowMenus();
    WindowMenus(const WindowMenus&) = delete;
    WindowMenus& operator=(const WindowMenus&) = delete;

    // Whether this is an element that bar() leads to, now or at some time.
    [[nodiscard]] static bool isMenu(const Element& element);

    // The menu bar of the application; none where no window list is known. It is shaped as macOS
    // has it, the Window menu the last but one, wherever the program keeps it.
    [[nodiscard]] Element bar(const X11Application& application);
    [[nodiscard]] std::optional<platform::AccessibilityValue> attribute(const Element& element,
                                                                        const QString& name) const;
    // Does what a click on the entry does, as soon as the program answers.
    int press(const Element& entry);
    // The process of the application that the element is of; 0 where it has gone.
    [[nodiscard]] std::int64_t processOf(const Element& element) const;

private:
    struct Known {
        std::uint64_t number; // of the reading
        WindowMenu menu;
    };
    struct Run {
        std::int64_t processId;
        std::shared_ptr<std::atomic<bool>> stop = std::make_shared<std::atomic<bool>>(false);
        bool isLate = false;
    };

    void lookAtFront();
    void readSoon(std::int64_t processId);
    void read();
    void finish(const WindowMenuReading& reading);
    [[nodiscard]] const Known* find(const Element& element) const;
    [[nodiscard]] const WindowMenu::Entry* entry(const Element& element) const;
    [[nodiscard]] bool isRunning(std::int64_t processId) const;

    platform::Scheduler& scheduler_;
    platform::Executor& executor_;
    X11Windows& windows_;
    X11Applications& applications_;
    const std::shared_ptr<AtspiConnection> connection_ = std::make_shared<AtspiConnection>();
    std::map<std::int64_t, Known> known_; // by process
    std::uint64_t lastNumber_ = 0;
    xcb_window_t seenActive_ = XCB_WINDOW_NONE;
    std::int64_t wanted_ = 0; // the process to read next; 0: none
    std::optional<Run> run_;
    platform::Timer settling_;
    platform::Timer deadline_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    platform::Observation changes_;
};

} // namespace skipnest::linuxdesktop
