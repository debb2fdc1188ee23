// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/Windows.h"

#include "tests/e2e/Waiting.h"

#include <algorithm>
#include <iterator>

namespace skipnest::e2e {
namespace {

constexpr std::uint32_t fromPager = 2;
constexpr std::uint32_t iconicState = 3;

std::uint32_t first(const std::vector<std::uint32_t>& values, std::uint32_t otherwise) {
    return values.empty() ? otherwise : values.front();
}

} // namespace

std::vector<xcb_window_t> Windows::managed() const {
    return connection_.numbers(connection_.root(), "_NET_CLIENT_LIST");
}

std::vector<xcb_window_t> Windows::ofClass(const QString& name) const {
    std::vector<xcb_window_t> result;
    std::ranges::copy_if(managed(), std::back_inserter(result),
                         [&](xcb_window_t window) { return className(window) == name; });
    return result;
}

std::vector<xcb_window_t> Windows::ofProcess(pid_t pid) const {
    std::vector<xcb_window_t> result;
    std::ranges::copy_if(managed(), std::back_inserter(result), [&](xcb_window_t window) {
        return first(connection_.numbers(window, "_NET_WM_PID"), 0) ==
               static_cast<std::uint32_t>(pid);
    });
    return result;
}

xcb_window_t Windows::active() const {
    return first(connection_.numbers(connection_.root(), "_NET_ACTIVE_WINDOW"), XCB_WINDOW_NONE);
}

QString Windows::className(xcb_window_t window) const {
    const auto names = connection_.text(window, "WM_CLASS").split('\0');
    return names.size() > 1 ? QString::fromLatin1(names[1]) : QString();
}

QString Windows::title(xcb_window_t window) const {
    const QByteArray title = connection_.text(window, "_NET_WM_NAME");
    return QString::fromUtf8(title.isEmpty() ? connection_.text(window, "WM_NAME") : title);
}

QStringList Windows::states(xcb_window_t window) const {
    QStringList result;
    for (const std::uint32_t state : connection_.numbers(window, "_NET_WM_STATE"))
        result.append(connection_.atomName(state));
    return result;
}

bool Windows::minimised(xcb_window_t window) const {
    return states(window).contains(QStringLiteral("_NET_WM_STATE_HIDDEN"));
}

std::uint32_t Windows::currentDesktop() const {
    return first(connection_.numbers(connection_.root(), "_NET_CURRENT_DESKTOP"), 0);
}

std::uint32_t Windows::desktopOf(xcb_window_t window) const {
    return first(connection_.numbers(window, "_NET_WM_DESKTOP"), 0);
}

bool Windows::activate(xcb_window_t window) {
    connection_.ask(window, "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME, 0});
    return becomesActive(window);
}

bool Windows::minimise(xcb_window_t window) {
    connection_.ask(window, "WM_CHANGE_STATE", {iconicState});
    return eventually([&] { return minimised(window); });
}

bool Windows::moveToDesktop(xcb_window_t window, std::uint32_t desktop) {
    connection_.ask(window, "_NET_WM_DESKTOP", {desktop, fromPager});
    return eventually([&] { return desktopOf(window) == desktop; });
}

bool Windows::close(xcb_window_t window) {
    connection_.ask(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, fromPager});
    return eventually([&] {
        const auto windows = managed();
        return std::ranges::find(windows, window) == windows.end();
    });
}

bool Windows::becomesActive(const QString& name) const {
    return eventually([&] { return className(active()) == name; });
}

bool Windows::becomesActive(xcb_window_t window) const {
    return eventually([&] { return active() == window; });
}

xcb_window_t Windows::appears(const QString& name) const {
    std::vector<xcb_window_t> found;
    const bool appeared = eventually([&] {
        found = ofClass(name);
        return !found.empty();
    });
    return appeared ? found.front() : xcb_window_t{XCB_WINDOW_NONE};
}

} // namespace skipnest::e2e
