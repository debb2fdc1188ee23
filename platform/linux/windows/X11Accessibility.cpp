// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/windows/X11Accessibility.h"

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::AccessibilityElement;
using platform::AccessibilityStatus;
using platform::AccessibilityValue;
using platform::ProcessIdentifier;

// Attributes of one listing are read together; a title that is asked for later than this may be
// another by now.
constexpr platform::Duration freshFor = 100ms;

// The highest bit tells applications, whose process identifiers may be negative, from windows.
constexpr std::uint64_t applicationBit = std::uint64_t{1} << 63;

AccessibilityElement elementOf(xcb_window_t window) {
    return {window};
}

bool isApplication(const AccessibilityElement& element) {
    return (element.id & applicationBit) != 0;
}

bool isMenu(const AccessibilityElement& element) {
    return !isApplication(element) && WindowMenus::isMenu(element);
}

ProcessIdentifier pidOf(const AccessibilityElement& element) {
    // The bit below is the sign.
    const std::uint64_t sign = (element.id << 1) & applicationBit;
    return {static_cast<std::int64_t>((element.id & ~applicationBit) | sign)};
}

xcb_window_t windowOf(const AccessibilityElement& element) {
    return static_cast<xcb_window_t>(element.id);
}

QString subrole(X11WindowDetails::Role role) {
    switch (role) {
    case X11WindowDetails::Role::standard:
        return u"AXStandardWindow"_s;
    case X11WindowDetails::Role::dialog:
        return u"AXDialog"_s;
    case X11WindowDetails::Role::floating:
        return u"AXFloatingWindow"_s;
    }
    return {};
}

bool isOf(const X11Application& application, xcb_window_t window) {
    return std::find(application.windows.begin(), application.windows.end(), window) !=
           application.windows.end();
}

} // namespace

X11Accessibility::X11Accessibility(X11Display& display, platform::Scheduler& scheduler,
                                   platform::Executor& executor, X11Windows& windows,
                                   X11Applications& applications, X11WindowCommands& commands)
    : scheduler_(scheduler), windows_(windows), applications_(applications), commands_(commands),
      reader_(display), menus_(scheduler, executor, windows, applications) {}

platform::Availability X11Accessibility::availability() const {
    using Service = AtspiConnection::Service;
    using State = platform::Availability::State;
    windows_.settle();
    if (!windows_.hasWindowManager())
        return {State::limited,
                u"No window manager runs: windows can be raised, but not minimised."_s,
                u"Start a window manager."_s};
    switch (AtspiConnection::service()) {
    case Service::running:
        return {};
    case Service::forSomeToolkits:
        return {State::limited,
                u"Qt programs do not show their Window menus: documents that share one window "
                "cannot be listed."_s,
                u"Turn accessibility on in the desktop's settings and start the program again."_s};
    case Service::absent:
        return {State::limited,
                u"Window menus of programs cannot be read: documents that share one window cannot "
                "be listed."_s,
                u"Install at-spi2-core, turn accessibility on in the desktop's settings and log "
                "in again."_s};
    }
    Q_UNREACHABLE();
}

AccessibilityElement X11Accessibility::application(ProcessIdentifier pid) {
    return {static_cast<std::uint64_t>(pid.value) | applicationBit};
}

std::optional<AccessibilityValue> X11Accessibility::attribute(const AccessibilityElement& element,
                                                              const QString& name) {
    if (!element)
        return std::nullopt;
    if (isMenu(element))
        return menus_.attribute(element, name);
    return isApplication(element) ? applicationAttribute(pidOf(element), name)
                                  : windowAttribute(windowOf(element), name);
}

const X11Application* X11Accessibility::find(ProcessIdentifier pid) {
    applications_.update();
    return applications_.withPid(pid);
}

std::optional<AccessibilityValue> X11Accessibility::applicationAttribute(ProcessIdentifier pid,
                                                                         const QString& name) {
    const X11Application* application = find(pid);
    if (application == nullptr)
        return std::nullopt;
    if (name == u"AXWindows")
        return listWindows(*application);
    if (name == u"AXMenuBar") {
        const AccessibilityElement bar = menus_.bar(*application);
        return bar ? std::optional<AccessibilityValue>(bar) : std::nullopt;
    }
    if (name == u"AXTitle")
        return application->identity.name;
    if (name == u"AXFrontmost")
        return applications_.active() == application;
    if (name == u"AXFocusedWindow" && isOf(*application, windows_.active()))
        return elementOf(windows_.active());
    if (name == u"AXMainWindow")
        return elementOf(application->windows.front());
    return std::nullopt;
}

AccessibilityValue X11Accessibility::listWindows(const X11Application& application) {
    const platform::Instant now = scheduler_.now();
    known_.clear();
    for (auto& [window, details] : reader_.read(application.windows))
        known_.insert({window, {std::move(details), now}});
    std::vector<AccessibilityElement> listed;
    for (const xcb_window_t window : application.windows) {
        const auto known = known_.find(window);
        if (known != known_.end() && known->second.details.inTaskbar)
            listed.push_back(elementOf(window));
    }
    return listed;
}

const X11WindowDetails* X11Accessibility::details(xcb_window_t window) {
    auto known = known_.find(window);
    if (known == known_.end() || scheduler_.now() - known->second.readAt > freshFor) {
        known_.erase(window);
        for (auto& [read, details] : reader_.read({window}))
            known_.insert({read, {std::move(details), scheduler_.now()}});
        known = known_.find(window);
    }
    return known == known_.end() ? nullptr : &known->second.details;
}

std::optional<AccessibilityValue> X11Accessibility::windowAttribute(xcb_window_t window,
                                                                    const QString& name) {
    const X11Window* managed = windows_.find(window);
    if (managed == nullptr)
        return std::nullopt;
    if (name == u"AXMinimized")
        return windows_.isHidden(*managed);
    if (name == u"AXMain")
        return windows_.active() == window;
    if (name == u"AXWindowID")
        return u"0x%1"_s.arg(window, 0, 16);
    const X11WindowDetails* shown = details(window);
    if (shown == nullptr)
        return std::nullopt;
    if (name == u"AXTitle")
        return shown->title;
    if (name == u"AXSubrole")
        return subrole(shown->role);
    if (name == u"AXPosition" && shown->frame)
        return shown->frame->topLeft();
    if (name == u"AXSize" && shown->frame)
        return shown->frame->size();
    return std::nullopt;
}

int X11Accessibility::setAttribute(const AccessibilityElement& element, const QString& name,
                                   const AccessibilityValue& value) {
    const auto* flag = std::get_if<bool>(&value);
    const auto* other = std::get_if<AccessibilityElement>(&value);
    if (isMenu(element))
        return AccessibilityStatus::attributeUnsupported;
    if (!isApplication(element)) {
        if (name == u"AXMinimized" && flag)
            return setMinimised(windowOf(element), *flag);
        if (name == u"AXMain" && flag && *flag)
            return bringForward(windowOf(element));
        return AccessibilityStatus::attributeUnsupported;
    }
    const X11Application* application = find(pidOf(element));
    if (application == nullptr)
        return AccessibilityStatus::invalidElement;
    if (name == u"AXFocusedWindow" && other)
        return isOf(*application, windowOf(*other)) ? bringForward(windowOf(*other))
                                                    : AccessibilityStatus::invalidElement;
    if (name == u"AXFrontmost" && flag && *flag) {
        const xcb_window_t requested = windows_.requestedActive();
        return bringForward(isOf(*application, requested) ? requested
                                                          : application->windows.front());
    }
    return AccessibilityStatus::attributeUnsupported;
}

int X11Accessibility::performAction(const AccessibilityElement& element, const QString& name) {
    if (isMenu(element) && name == u"AXPress")
        return press(element);
    if (isApplication(element) || isMenu(element) || name != u"AXRaise")
        return AccessibilityStatus::actionUnsupported;
    return bringForward(windowOf(element));
}

int X11Accessibility::press(const AccessibilityElement& entry) {
    applications_.update();
    // Window managers keep windows of a program behind that is not in front itself.
    const X11Application* front = applications_.active();
    const std::int64_t process = menus_.processOf(entry);
    if (process != 0 && (front == nullptr || front->processId != process)) {
        const auto& all = applications_.all();
        const auto owner = std::ranges::find(all, process, &X11Application::processId);
        if (owner != all.end())
            (void)bringForward(owner->windows.front());
    }
    return menus_.press(entry);
}

int X11Accessibility::setMinimised(xcb_window_t window, bool minimised) {
    windows_.settle();
    const X11Window* managed = windows_.find(window);
    if (managed == nullptr)
        return AccessibilityStatus::invalidElement;
    if (!minimised)
        return windows_.isHidden(*managed) ? bringForward(window) : AccessibilityStatus::success;
    if (!windows_.hasWindowManager() || !managed->canMinimise)
        return AccessibilityStatus::failure;
    commands_.iconify(window);
    return AccessibilityStatus::success;
}

int X11Accessibility::bringForward(xcb_window_t window) {
    windows_.settle();
    if (windows_.find(window) == nullptr)
        return AccessibilityStatus::invalidElement;
    if (windows_.requestedActive() != window)
        commands_.activate(window);
    return AccessibilityStatus::success;
}

} // namespace skipnest::linuxdesktop
