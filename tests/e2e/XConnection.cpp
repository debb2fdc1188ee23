// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/XConnection.h"

#include "tests/e2e/Chord.h"
#include "tests/e2e/Waiting.h"

#include <poll.h>

#include <algorithm>

namespace skipnest::e2e {
namespace {

constexpr std::uint32_t longestProperty = 1U << 16;

// Caps Lock and Num Lock, where the keymaps of this server have them.
constexpr std::uint16_t lockStates[]{0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
                                     XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

bool grab(XConnection& connection, const Chord& chord, std::uint16_t locks) {
    const auto modifiers = static_cast<std::uint16_t>(chord.modifierMask() | locks);
    const XReply<xcb_generic_error_t> error(xcb_request_check(
        connection.raw(),
        xcb_grab_key_checked(connection.raw(), 1, connection.root(), modifiers, chord.key,
                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

} // namespace

XConnection::XConnection(const QString& display)
    : connection_(xcb_connect(display.toLatin1().constData(), nullptr)) {
    if (!valid())
        return;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection_);
}

XConnection::~XConnection() {
    xcb_disconnect(connection_);
}

xcb_atom_t XConnection::atom(const char* name) {
    const QByteArray key(name);
    if (const auto known = atoms_.constFind(key); known != atoms_.constEnd())
        return *known;
    const auto cookie =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(key.size()), key.constData());
    const XReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_, cookie, nullptr));
    const xcb_atom_t result = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    atoms_.insert(key, result);
    return result;
}

QString XConnection::atomName(xcb_atom_t atom) {
    const XReply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(connection_, xcb_get_atom_name(connection_, atom), nullptr));
    if (!reply)
        return {};
    return QString::fromLatin1(xcb_get_atom_name_name(reply.get()),
                               xcb_get_atom_name_name_length(reply.get()));
}

QByteArray XConnection::text(xcb_window_t window, const char* property) {
    const auto cookie = xcb_get_property(connection_, 0, window, atom(property),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
    const XReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection_, cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

std::vector<std::uint32_t> XConnection::numbers(xcb_window_t window, const char* property) {
    const QByteArray bytes = text(window, property);
    std::vector<std::uint32_t> result(static_cast<std::size_t>(bytes.size()) /
                                      sizeof(std::uint32_t));
    std::copy_n(bytes.constData(), result.size() * sizeof(std::uint32_t),
                reinterpret_cast<char*>(result.data()));
    return result;
}

void XConnection::ask(xcb_window_t window, const char* message, std::vector<std::uint32_t> data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(connection_, 0, root_,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection_);
}

void XConnection::sync() {
    const XReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

bool XConnection::waitForRootProperty(const char* property, const std::function<bool()>& condition,
                                      std::chrono::milliseconds limit) {
    const xcb_atom_t watched = atom(property);
    const auto deadline = Clock::now() + limit;
    while (valid()) {
        while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
            if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
                continue;
            const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
            if (change->window == root_ && change->atom == watched && condition())
                return true;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0)
            return false;
        pollfd readable{xcb_get_file_descriptor(connection_), POLLIN, 0};
        poll(&readable, 1, static_cast<int>(left.count()));
    }
    return false;
}

void XConnection::drain() {
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
    }
}

TakenKey::TakenKey(const QString& display, const Chord& chord) : connection_(display) {
    for (const std::uint16_t locks : lockStates)
        held_ = grab(connection_, chord, locks) && held_;
}

bool isTaken(XConnection& connection, const Chord& chord) {
    xcb_grab_server(connection.raw());
    const bool free = grab(connection, chord, 0);
    if (free)
        xcb_ungrab_key(connection.raw(), chord.key, connection.root(), chord.modifierMask());
    xcb_ungrab_server(connection.raw());
    connection.sync();
    return !free;
}

bool isKeyboardHeld(XConnection& connection) {
    xcb_grab_server(connection.raw());
    const auto cookie = xcb_grab_keyboard(connection.raw(), 0, connection.root(), XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XReply<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(connection.raw(), cookie, nullptr));
    const bool free = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    if (free)
        xcb_ungrab_keyboard(connection.raw(), XCB_CURRENT_TIME);
    xcb_ungrab_server(connection.raw());
    connection.sync();
    return !free;
}

} // namespace skipnest::e2e
