// SPDX-License-Identifier: Apache-2.0
#include "switcher/AppWindows.h"

#include "platform/Diagnostics.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <QStringBuilder>
#include <QStringList>

#include <algorithm>

namespace skipnest::switcher {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::Accessibility;
using platform::AccessibilityStatus;
using platform::ActivationOption;
using platform::RunningApplication;
using Element = AppWindows::Element;

namespace {

// A window needs that long to come back before it can be raised.
constexpr platform::Duration unminimizing = 180ms;
// By then the raised window has the keyboard, or will not get it.
constexpr platform::Duration settling = 250ms;

template <typename T>
std::optional<T> read(Accessibility& accessibility, const Element& element, const QString& name) {
    auto value = accessibility.attribute(element, name);
    T* typed = value ? std::get_if<T>(&*value) : nullptr;
    return typed ? std::optional(std::move(*typed)) : std::nullopt;
}

Element readElement(Accessibility& accessibility, const Element& element, const QString& name) {
    return read<Element>(accessibility, element, name).value_or(Element{});
}

// Applications and menus shorten long titles that way.
QStringView withoutEllipsis(QStringView title) {
    return title.endsWith(u'…') ? title.chopped(1) : title;
}

QString quoted(QString text) {
    return u'"' % text.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s) % u'"';
}

QString listed(const std::vector<AppWindows::WindowMenuItem>& items) {
    QStringList titles;
    for (const auto& item : items)
        titles.append(quoted(item.title));
    return u'[' % titles.join(u", "_s) % u']';
}

} // namespace

bool titlesMatch(const QString& a, const QString& b) {
    if (a.isEmpty() || b.isEmpty())
        return false;
    const QStringView first = withoutEllipsis(a);
    const QStringView second = withoutEllipsis(b);
    return first.contains(second) || second.contains(first);
}

AppWindows::AppWindows(const platform::Ports& ports) : ports_(ports), later_(ports.scheduler) {}

std::vector<AppWindows::Info> AppWindows::list(const RunningApplication& app) const {
    Accessibility& accessibility = ports_.accessibility;
    if (!accessibility.isTrusted())
        return {};
    const auto windows = read<std::vector<Element>>(
        accessibility, accessibility.application(app.pid), u"AXWindows"_s);
    std::vector<Info> infos;
    for (const Element& window : windows.value_or(std::vector<Element>{})) {
        if (read<QString>(accessibility, window, u"AXSubrole"_s) != u"AXStandardWindow"_s)
            continue;
        QString title = this->title(window).value_or(QString());
        if (!title.isEmpty())
            infos.push_back({std::move(title), window, frame(window)});
    }
    return infos;
}

Element AppWindows::focusedWindow(const RunningApplication& app) const {
    Accessibility& accessibility = ports_.accessibility;
    const Element application = accessibility.application(app.pid);
    const Element focused = readElement(accessibility, application, u"AXFocusedWindow"_s);
    return focused ? focused : readElement(accessibility, application, u"AXMainWindow"_s);
}

std::optional<std::size_t> AppWindows::indexOfFocused(const RunningApplication& app,
                                                      const std::vector<Info>& windows) const {
    const Element focused = focusedWindow(app);
    const auto found = std::ranges::find(windows, focused, &Info::element);
    if (!focused || found == windows.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - windows.begin());
}

std::optional<QString> AppWindows::title(const Element& element) const {
    return read<QString>(ports_.accessibility, element, u"AXTitle"_s);
}

std::optional<QRectF> AppWindows::frame(const Element& element) const {
    const auto position = read<QPointF>(ports_.accessibility, element, u"AXPosition"_s);
    const auto size = read<QSizeF>(ports_.accessibility, element, u"AXSize"_s);
    return position && size ? std::optional(QRectF(*position, *size)) : std::nullopt;
}

bool AppWindows::isMinimized(const Element& element) const {
    return read<bool>(ports_.accessibility, element, u"AXMinimized"_s).value_or(false);
}

std::vector<Element> AppWindows::children(const Element& element) const {
    return read<std::vector<Element>>(ports_.accessibility, element, u"AXChildren"_s)
        .value_or(std::vector<Element>{});
}

std::vector<AppWindows::WindowMenuItem>
AppWindows::windowMenuItems(const RunningApplication& app) const {
    Accessibility& accessibility = ports_.accessibility;
    if (!accessibility.isTrusted())
        return {};
    const auto bar =
        children(readElement(accessibility, accessibility.application(app.pid), u"AXMenuBar"_s));
    if (bar.size() < 2)
        return {};
    const auto isMarked = [&](const Element& item) {
        const auto mark = read<QString>(accessibility, item, u"AXMenuItemMarkChar"_s);
        return mark && !mark->isEmpty();
    };
    // By its place and not by its title, which differs by language; the last menu is Help. Without
    // a check mark it may be any menu.
    for (const Element& menu : children(bar[bar.size() - 2])) {
        const std::vector<Element> entries = children(menu);
        if (std::ranges::none_of(entries, isMarked))
            continue;
        std::vector<WindowMenuItem> items;
        for (const Element& entry : entries)
            if (QString title = this->title(entry).value_or(QString()); !title.isEmpty())
                items.push_back({std::move(title), entry, isMarked(entry)});
        return items;
    }
    return {};
}

void AppWindows::raise(const Element& window, const RunningApplication& app,
                       const QString& wantedTitle) {
    if (!isMinimized(window))
        return bringForward(window, app, wantedTitle);
    const int status = ports_.accessibility.setAttribute(window, u"AXMinimized"_s, false);
    ports_.diagnostics.log(u"raise: un-minimize err=%1"_s.arg(status));
    later_.after(unminimizing, "raise after un-minimizing",
                 [this, window, app, wantedTitle] { bringForward(window, app, wantedTitle); });
}

void AppWindows::bringForward(const Element& window, const RunningApplication& app,
                              const QString& wantedTitle) {
    Accessibility& accessibility = ports_.accessibility;
    const Element application = accessibility.application(app.pid);
    const int main = accessibility.setAttribute(window, u"AXMain"_s, true);
    const int focus = accessibility.setAttribute(application, u"AXFocusedWindow"_s, window);
    const int raised = accessibility.performAction(window, u"AXRaise"_s);
    const int front = accessibility.setAttribute(application, u"AXFrontmost"_s, true);
    // Not all windows: only the raised one is to come forward. An application that has ended by now
    // shows in the codes above.
    (void)ports_.applications.activate(app.pid, ActivationOption::none);
    ports_.diagnostics.log(u"raise '" % wantedTitle % u"': main=" % QString::number(main) %
                           u" focus=" % QString::number(focus) % u" raise=" %
                           QString::number(raised) % u" front=" % QString::number(front));
    later_.after(settling, "check of a raised window", [this, app, wantedTitle] {
        const QString focused = title(focusedWindow(app)).value_or(QString());
        ports_.diagnostics.log(u"raise verify: focused='" % focused % u"' wanted='" % wantedTitle %
                               u"' → " % (focused == wantedTitle ? u"OK"_s : u"MISMATCH"_s));
    });
}

bool AppWindows::menuRaise(const RunningApplication& app, const QString& wantedTitle) {
    const std::vector<WindowMenuItem> items = windowMenuItems(app);
    // From the bottom, where the windows are: commands above them may hold the same words.
    const auto found = std::find_if(items.rbegin(), items.rend(), [&](const WindowMenuItem& item) {
        return titlesMatch(item.title, wantedTitle);
    });
    if (found == items.rend()) {
        ports_.diagnostics.log(u"menu-raise: no matching item for '" % wantedTitle % u"' among " %
                               listed(items));
        return false;
    }
    const int status = ports_.accessibility.performAction(found->item, u"AXPress"_s);
    ports_.diagnostics.log(u"menu-raise: press '" % found->title % u"' err=" %
                           QString::number(status));
    return status == AccessibilityStatus::success;
}

} // namespace skipnest::switcher
