// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimAccessibility.h"

#include <QJsonValue>

#include <algorithm>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::AccessibilityElement;
using platform::AccessibilityStatus;
using platform::AccessibilityValue;
using platform::ProcessIdentifier;

namespace {

using Elements = std::vector<AccessibilityElement>;

enum class Kind : std::uint64_t { application = 1, window, menuBar, menuBarItem, menu, menuItem };

// An element's number says all about it: 31 bits of process identifier, 3 of kind, 30 of its number
// among those of its kind.
constexpr unsigned kindShift = 30;
constexpr unsigned pidShift = 33;

AccessibilityElement element(ProcessIdentifier pid, Kind kind, std::uint64_t number = 0) {
    return {static_cast<std::uint64_t>(pid.value) << pidShift |
            static_cast<std::uint64_t>(kind) << kindShift | number};
}

// Where the window is in its application's list; its size where it is not.
std::size_t placeOf(const SimApp& app, std::uint64_t window) {
    const auto found = std::ranges::find(app.windows, window, &SimWindow::id);
    return static_cast<std::size_t>(found - app.windows.begin());
}

std::optional<AccessibilityValue> windowAt(const SimApp& app, std::optional<std::size_t> place) {
    if (!place || *place >= app.windows.size())
        return std::nullopt;
    return element(app.pid, Kind::window, app.windows[*place].id);
}

std::optional<AccessibilityValue> ofWindow(const SimWindow& window, const QString& name) {
    if (name == u"AXTitle")
        return window.title;
    if (name == u"AXSubrole" && window.subrole)
        return *window.subrole;
    if (name == u"AXMinimized")
        return window.minimized;
    if (name == u"AXPosition" && window.frame)
        return window.frame->topLeft();
    if (name == u"AXSize" && window.frame)
        return window.frame->size();
    if (name == u"AXWindowID")
        return QString::number(window.id);
    return std::nullopt;
}

std::optional<AccessibilityValue> ofMenuItem(const SimMenuItem& item, const QString& name) {
    if (name == u"AXTitle")
        return item.title;
    if (name == u"AXMenuItemMarkChar" && item.mark)
        return *item.mark;
    return std::nullopt;
}

// What can be written fails only when written; the rest cannot be read.
bool isSettable(const QString& name) {
    return name == u"AXMinimized" || name == u"AXMain" || name == u"AXFocusedWindow" ||
           name == u"AXFrontmost";
}

} // namespace

// An element with what it stands for; `app` is null where that has gone.
struct SimAccessibility::Place {
    Place(SimApplications& applications, const AccessibilityElement& element)
        : kind(static_cast<Kind>(element.id >> kindShift & 7)),
          number(element.id & ((std::uint64_t{1} << kindShift) - 1)) {
        SimApp* running =
            applications.findRunning({static_cast<std::int64_t>(element.id >> pidShift)});
        if (!running)
            return;
        if (kind == Kind::window && placeOf(*running, number) == running->windows.size())
            return;
        if (kind == Kind::menuItem && number >= running->windowMenu.size())
            return;
        app = running;
    }

    [[nodiscard]] SimWindow& window() const { return app->windows[placeOf(*app, number)]; }
    [[nodiscard]] const SimMenuItem& menuItem() const { return app->windowMenu[number]; }
    [[nodiscard]] int error(const QString& name) const {
        const auto found = app->accessibilityErrors.find(name);
        return found == app->accessibilityErrors.end() ? AccessibilityStatus::success
                                                       : found->second;
    }

    Kind kind;
    std::uint64_t number;
    SimApp* app = nullptr;
};

AccessibilityElement SimAccessibility::application(ProcessIdentifier pid) {
    return pid.value > 0 ? element(pid, Kind::application) : AccessibilityElement{};
}

std::optional<AccessibilityValue> SimAccessibility::ofApplication(const SimApp& app,
                                                                  const QString& name) const {
    if (name == u"AXTitle")
        return app.name;
    if (name == u"AXFrontmost")
        return applications_.frontName() == app.name;
    if (name == u"AXFocusedWindow")
        return windowAt(app, app.focused);
    if (name == u"AXMainWindow")
        return windowAt(app, app.main ? app.main : app.focused.value_or(0));
    if (name == u"AXMenuBar" && app.menuBar)
        return element(app.pid, Kind::menuBar);
    if (name != u"AXWindows")
        return std::nullopt;
    Elements windows;
    for (const SimWindow& window : app.windows)
        windows.push_back(element(app.pid, Kind::window, window.id));
    return windows;
}

std::optional<AccessibilityValue> SimAccessibility::attribute(const AccessibilityElement& of,
                                                              const QString& name) {
    const Place place(applications_, of);
    if (!trusted_ || !place.app ||
        (!isSettable(name) && place.error(name) != AccessibilityStatus::success))
        return std::nullopt;
    const SimApp& app = *place.app;
    const bool asksForChildren = name == u"AXChildren";
    switch (place.kind) {
    case Kind::application:
        return ofApplication(app, name);
    case Kind::window:
        if (name == u"AXMain")
            return (app.main ? app.main : app.focused.value_or(0)) == placeOf(app, place.number);
        return ofWindow(place.window(), name);
    case Kind::menuItem:
        return ofMenuItem(place.menuItem(), name);
    case Kind::menuBar: {
        Elements items;
        for (std::uint64_t i = 0; asksForChildren && i < app.menuBar.value_or(0); ++i)
            items.push_back(element(app.pid, Kind::menuBarItem, i));
        return asksForChildren ? std::optional<AccessibilityValue>(items) : std::nullopt;
    }
    case Kind::menuBarItem:
        if (asksForChildren)
            return Elements{element(app.pid, Kind::menu, place.number)};
        return std::nullopt;
    case Kind::menu: {
        Elements items;
        const bool isWindowMenu = place.number + 2 == app.menuBar.value_or(0);
        for (std::size_t i = 0; isWindowMenu && i < app.windowMenu.size(); ++i)
            items.push_back(element(app.pid, Kind::menuItem, i));
        return asksForChildren ? std::optional<AccessibilityValue>(items) : std::nullopt;
    }
    }
    return std::nullopt;
}

QString SimAccessibility::titleOf(const AccessibilityElement& of) const {
    const Place place(applications_, of);
    if (!place.app)
        return {};
    if (place.kind == Kind::window)
        return place.window().title;
    return place.kind == Kind::menuItem ? place.menuItem().title : place.app->name;
}

int SimAccessibility::setAttribute(const AccessibilityElement& of, const QString& name,
                                   const AccessibilityValue& value) {
    QJsonValue shown;
    if (const auto* flag = std::get_if<bool>(&value))
        shown = *flag;
    else if (const auto* text = std::get_if<QString>(&value))
        shown = *text;
    else if (const auto* other = std::get_if<AccessibilityElement>(&value))
        shown = titleOf(*other);
    journal_.call(u"axSet"_s,
                  {{u"title"_s, titleOf(of)}, {u"attribute"_s, name}, {u"value"_s, shown}});
    if (!trusted_)
        return AccessibilityStatus::apiDisabled;
    const Place place(applications_, of);
    if (!place.app)
        return AccessibilityStatus::invalidElement;
    if (const int error = place.error(name))
        return error;

    const auto* flag = std::get_if<bool>(&value);
    const auto* window = std::get_if<AccessibilityElement>(&value);
    if (place.kind == Kind::window && name == u"AXMinimized" && flag) {
        place.window().minimized = *flag;
    } else if (place.kind == Kind::window && name == u"AXMain" && flag) {
        if (*flag)
            place.app->main = placeOf(*place.app, place.number);
    } else if (place.kind == Kind::application && name == u"AXFocusedWindow" && window) {
        const Place wanted(applications_, *window);
        if (wanted.app != place.app || wanted.kind != Kind::window)
            return AccessibilityStatus::invalidElement;
        place.app->focused = placeOf(*place.app, wanted.number);
    } else if (place.kind == Kind::application && name == u"AXFrontmost" && flag) {
        if (*flag)
            (void)applications_.bringToFront(place.app->name); // it runs, or it were no place
    } else {
        return AccessibilityStatus::attributeUnsupported;
    }
    return AccessibilityStatus::success;
}

int SimAccessibility::performAction(const AccessibilityElement& of, const QString& name) {
    const Place place(applications_, of);
    const bool raises = name == u"AXRaise";
    const bool presses = name == u"AXPress" && place.kind == Kind::menuItem;
    if (raises || presses)
        journal_.call(raises ? u"raise"_s : u"menuPress"_s, {{u"title"_s, titleOf(of)}});
    else
        journal_.call(u"axAction"_s, {{u"title"_s, titleOf(of)}, {u"action"_s, name}});
    if (!trusted_)
        return AccessibilityStatus::apiDisabled;
    if (!place.app)
        return AccessibilityStatus::invalidElement;
    if (const int error = place.error(name))
        return error;
    if (presses)
        choose(*place.app, place.menuItem());
    else if (raises && place.kind == Kind::window)
        place.app->focused = place.app->main = placeOf(*place.app, place.number);
    else
        return AccessibilityStatus::actionUnsupported;
    return AccessibilityStatus::success;
}

void SimAccessibility::choose(const SimApp& app, const SimMenuItem& item) {
    const auto named = std::ranges::find(app.windows, item.title, &SimWindow::title);
    if (named == app.windows.end())
        return;
    SimApp& chosen = *applications_.findRunning(app.pid);
    const auto place = static_cast<std::size_t>(named - app.windows.begin());
    chosen.windows[place].minimized = false;
    chosen.focused = chosen.main = place;
}

} // namespace skipnest::sim
