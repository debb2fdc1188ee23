// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11StartupNotification.h"

#include <QCoreApplication>
#include <QSysInfo>

#include <cstring>

namespace skipnest::linuxdesktop {
namespace {

QByteArray quoted(const QString& text) {
    QByteArray value = text.toUtf8();
    value.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + value + '"';
}

} // namespace

X11StartupNotification::X11StartupNotification(X11Display& display)
    : display_(display), window_(xcb_generate_id(display.connection())),
      begin_(display.atom("_NET_STARTUP_INFO_BEGIN")), continue_(display.atom("_NET_STARTUP_INFO")),
      prefix_("skipnest-" + QSysInfo::machineHostName().toUtf8() + '-' +
              QByteArray::number(QCoreApplication::applicationPid()) + '-') {
    // Messages name the window they come from; it is never shown.
    const std::uint32_t overrideRedirect = 1;
    xcb_create_window(display.connection(), 0, window_, display.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &overrideRedirect);
}

X11StartupNotification::~X11StartupNotification() {
    xcb_destroy_window(display_.connection(), window_);
    xcb_flush(display_.connection());
}

QByteArray X11StartupNotification::begin(const DesktopEntry& entry, std::uint32_t desktop) {
    const QByteArray id = prefix_ + QByteArray::number(++lastId_) + "_TIME" +
                          QByteArray::number(display_.requestTime());
    QByteArray message =
        "new: ID=" + quoted(QString::fromUtf8(id)) + " NAME=" + quoted(entry.name) + " SCREEN=0" +
        " DESKTOP=" + QByteArray::number(desktop) + " BIN=" + quoted(entry.programs.value(0)) +
        " APPLICATION_ID=" + quoted(entry.path);
    if (!entry.icon.isEmpty())
        message += " ICON=" + quoted(entry.icon);
    if (!entry.startupWmClass.isEmpty())
        message += " WMCLASS=" + quoted(entry.startupWmClass);
    broadcast(message);
    return id;
}

void X11StartupNotification::remove(const QByteArray& id) {
    broadcast("remove: ID=" + quoted(QString::fromUtf8(id)));
}

void X11StartupNotification::broadcast(const QByteArray& message) {
    // The terminating null byte is part of the message; 20 bytes fit an event.
    constexpr qsizetype chunk = 20;
    for (qsizetype at = 0; at <= message.size(); at += chunk) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 8;
        event.window = window_;
        event.type = at == 0 ? begin_ : continue_;
        const QByteArray part = message.mid(at, chunk);
        std::memcpy(event.data.data8, part.constData(), std::size_t(part.size()));
        xcb_send_event(display_.connection(), 0, display_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char*>(&event));
    }
    xcb_flush(display_.connection());
}

} // namespace skipnest::linuxdesktop
