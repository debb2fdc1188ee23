// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11ScriptRunner.h"

#include "platform/linux/browser/SelectedWindow.h"

namespace skipnest::linuxdesktop {
namespace {

using platform::ScriptAnswer;
using platform::ScriptError;
using platform::ScriptText;

// Apple event error numbers.
constexpr int noSuchProcess = -600;
constexpr int noSuchObject = -1719;

} // namespace

X11ScriptRunner::X11ScriptRunner(X11Windows& windows, X11Applications& applications,
                                 X11WindowCommands& commands, ExtensionTabs& tabs,
                                 const X11Display& display)
    : windows_(windows), applications_(applications), commands_(commands), tabs_(tabs),
      details_(display) {}

platform::Availability X11ScriptRunner::availability() const {
    windows_.settle();
    if (windows_.hasWindowManager())
        return {};
    return {platform::Availability::State::unavailable,
            QStringLiteral("No window manager runs: windows cannot be minimised."),
            QStringLiteral("Start a window manager.")};
}

ScriptAnswer X11ScriptRunner::run(const platform::ScriptRequest& request,
                                  platform::Duration budget) {
    return std::visit(
        [this, budget](const auto& meaning) -> ScriptAnswer {
            if constexpr (std::is_same_v<decltype(meaning), const platform::CycleWindows&>) {
                return cycle(meaning);
            } else {
                ScriptAnswer answer = tabs_.run(meaning, budget);
                raiseSelectedTab(meaning.bundleIdentifier);
                return answer;
            }
        },
        request.meaning);
}

ScriptAnswer X11ScriptRunner::cycle(const platform::CycleWindows& request) {
    applications_.update();
    // Two applications may have one identifier; the person means the one that they look at.
    const X11Application* application = applications_.active();
    if (application == nullptr ||
        application->identity.bundleIdentifier != request.bundleIdentifier)
        application = applications_.withBundleIdentifier(request.bundleIdentifier);
    if (application == nullptr)
        return ScriptError{noSuchProcess,
                           QStringLiteral("%1 isn't running.").arg(request.bundleIdentifier)};
    if (!windows_.hasWindowManager())
        return ScriptError{noSuchObject, QStringLiteral("No window manager minimises windows.")};
    switch (request.direction) {
    case platform::CycleDirection::next:
        return minimiseFirst(*application);
    case platform::CycleDirection::previous:
        return restoreLast(*application);
    }
    Q_UNREACHABLE();
}

// A browser in the background may select the tab and still leave its window where it is.
void X11ScriptRunner::raiseSelectedTab(const QString& bundleIdentifier) {
    if (!tabs_.selected())
        return;
    applications_.update();
    const X11Application* application = applications_.withBundleIdentifier(bundleIdentifier);
    if (application == nullptr)
        return;
    const auto details = details_.read(application->windows);
    std::vector<BrowserWindow> faces;
    for (const xcb_window_t window : application->windows) {
        const auto found = details.find(window);
        faces.push_back(found == details.end()
                            ? BrowserWindow{}
                            : BrowserWindow{found->second.title, found->second.frame});
    }
    const auto shown = windowThatShows(*tabs_.selected(), faces);
    if (shown && windows_.active() != application->windows[*shown])
        commands_.activate(application->windows[*shown]);
}

ScriptAnswer X11ScriptRunner::minimiseFirst(const X11Application& application) {
    xcb_window_t first = XCB_WINDOW_NONE;
    xcb_window_t next = XCB_WINDOW_NONE;
    for (const xcb_window_t window : application.windows) {
        const X11Window* known = windows_.find(window);
        if (known == nullptr || windows_.isHidden(*known))
            continue;
        if (first == XCB_WINDOW_NONE && known->canMinimise)
            first = window;
        else if (next == XCB_WINDOW_NONE)
            next = window;
    }
    if (first == XCB_WINDOW_NONE)
        return ScriptError{
            noSuchObject,
            QStringLiteral("%1 has no window to minimise.").arg(application.identity.name)};
    commands_.iconify(first);
    // Left to itself the window manager may give the front to another application.
    if (next != XCB_WINDOW_NONE)
        commands_.activate(next);
    return ScriptText{};
}

ScriptAnswer X11ScriptRunner::restoreLast(const X11Application& application) {
    xcb_window_t last = XCB_WINDOW_NONE;
    std::uint64_t since = 0;
    for (const xcb_window_t window : application.windows) {
        const X11Window* known = windows_.find(window);
        if (known != nullptr && windows_.isHidden(*known) && known->hiddenSince >= since) {
            last = window;
            since = known->hiddenSince;
        }
    }
    if (last == XCB_WINDOW_NONE)
        return ScriptError{
            noSuchObject,
            QStringLiteral("%1 has no minimised window.").arg(application.identity.name)};
    commands_.activate(last);
    return ScriptText{};
}

} // namespace skipnest::linuxdesktop
