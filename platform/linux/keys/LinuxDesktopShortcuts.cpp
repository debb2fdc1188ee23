// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/LinuxDesktopShortcuts.h"

#include "platform/linux/keys/RunningDesktops.h"
#include "platform/linux/keys/SystemSettings.h"
#include "platform/linux/keys/VirtualTerminalKeys.h"

#include <cstring>
#include <memory>
#include <utility>

namespace skipnest::linuxdesktop {

using platform::Availability;
using platform::DesktopShortcutReading;

namespace {

constexpr std::uint32_t longestProperty = 1024; // in words of four bytes

QByteArray property(const X11Display& display, xcb_window_t window, const char* name) {
    xcb_connection_t* connection = display.connection();
    const auto cookie = xcb_get_property(connection, 0, window, display.atom(name),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
    const XcbPtr<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

QString windowManagerName(const X11Display& display) {
    const QByteArray check = property(display, display.root(), "_NET_SUPPORTING_WM_CHECK");
    xcb_window_t window = XCB_WINDOW_NONE;
    if (check.size() != sizeof window)
        return {};
    std::memcpy(&window, check.constData(), sizeof window);
    return QString::fromUtf8(property(display, window, "_NET_WM_NAME"));
}

} // namespace

LinuxDesktopShortcuts::LinuxDesktopShortcuts(platform::Executor& executor,
                                             const X11Display* display, const X11Keymap* keymap)
    : executor_(executor), display_(display), keymap_(keymap) {}

DesktopSession LinuxDesktopShortcuts::session() const {
    DesktopSession session(QProcessEnvironment::systemEnvironment());
    if (display_ != nullptr) {
        session.windowManager = windowManagerName(*display_);
        session.openboxFile =
            QString::fromUtf8(property(*display_, display_->root(), "_OB_CONFIG_FILE"));
    }
    return session;
}

Availability LinuxDesktopShortcuts::availability() const {
    const DesktopSession now = session();
    if (!runningDesktops(now.currentDesktop, now.windowManager).empty())
        return {};
    return {Availability::State::limited,
            QStringLiteral("The keyboard settings of this desktop cannot be read: a combo that it "
                           "takes is refused without its name."),
            QStringLiteral("Look for the combo in the desktop's own keyboard settings.")};
}

void LinuxDesktopShortcuts::read(std::function<void(DesktopShortcutReading)> done) {
    const KeyboardMap map = keymap_ != nullptr ? keymap_->current() : KeyboardMap{};
    auto terminals = display_ != nullptr && keymap_ != nullptr && keymap_->available()
                         ? virtualTerminalShortcuts(*display_, map)
                         : std::vector<platform::DesktopShortcut>{};
    const auto reading = std::make_shared<DesktopShortcutReading>();
    executor_.background(
        [reading, map, session = session(), terminals = std::move(terminals)] {
            *reading = readDesktopSettings(session, DesktopKeyNames(map), SystemSettings());
            // First: what never fires is worse than what somebody else takes.
            reading->shortcuts.insert(reading->shortcuts.begin(), terminals.begin(),
                                      terminals.end());
        },
        [reading, done = std::move(done)] { done(std::move(*reading)); });
}

} // namespace skipnest::linuxdesktop
