// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/XKeyboard.h"

#include "platform/linux/XkbProtocol.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace skipnest::tests {

XKeyboard::XKeyboard(const QByteArray& display)
    : connection_(xcb_connect(display.constData(), nullptr)),
      root_(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root) {
    std::free(xcb_xkb_use_extension_reply(connection_, xcb_xkb_use_extension(connection_, 1, 0),
                                          nullptr));
}

XKeyboard::~XKeyboard() {
    disconnect();
}

void XKeyboard::disconnect() {
    if (auto* connection = std::exchange(connection_, nullptr))
        xcb_disconnect(connection);
}

void XKeyboard::sync() const {
    std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

void XKeyboard::fake(std::uint8_t type, xcb_keycode_t keycode) {
    xcb_test_fake_input(connection_, type, keycode, XCB_CURRENT_TIME, root_, 0, 0, 0);
    sync();
}

void XKeyboard::press(xcb_keycode_t keycode) {
    fake(XCB_KEY_PRESS, keycode);
}
void XKeyboard::release(xcb_keycode_t keycode) {
    fake(XCB_KEY_RELEASE, keycode);
}

void XKeyboard::tap(xcb_keycode_t keycode) {
    press(keycode);
    release(keycode);
}

void XKeyboard::chord(const std::vector<xcb_keycode_t>& modifiers, xcb_keycode_t keycode) {
    for (const xcb_keycode_t modifier : modifiers)
        press(modifier);
    tap(keycode);
    for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier)
        release(*modifier);
}

void XKeyboard::click(std::int16_t x, std::int16_t y, std::uint8_t button) {
    xcb_test_fake_input(connection_, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, root_, x, y, 0);
    fake(XCB_BUTTON_PRESS, button);
    fake(XCB_BUTTON_RELEASE, button);
}

bool XKeyboard::grabPointer() {
    auto* reply = xcb_grab_pointer_reply(
        connection_,
        xcb_grab_pointer(connection_, 0, root_, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME),
        nullptr);
    const bool granted = reply != nullptr && reply->status == XCB_GRAB_STATUS_SUCCESS;
    std::free(reply);
    return granted;
}

bool XKeyboard::isDown(xcb_keycode_t keycode) const {
    auto* reply = xcb_query_keymap_reply(connection_, xcb_query_keymap(connection_), nullptr);
    const bool down = reply != nullptr && (reply->keys[keycode / 8] & (1U << (keycode % 8))) != 0;
    std::free(reply);
    return down;
}

void XKeyboard::lockGroup(std::uint8_t group) {
    xcb_xkb_latch_lock_state(connection_, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    sync();
}

int XKeyboard::grabKey(xcb_keycode_t keycode, std::uint16_t modifiers) {
    auto* error = xcb_request_check(connection_,
                                    xcb_grab_key_checked(connection_, 0, root_, modifiers, keycode,
                                                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    const int code = error != nullptr ? error->error_code : 0;
    std::free(error);
    return code;
}

bool XKeyboard::grabUnderAllLocks(xcb_keycode_t keycode, std::uint16_t modifiers) {
    constexpr unsigned caps = XCB_MOD_MASK_LOCK, num = XCB_MOD_MASK_2;
    return std::ranges::all_of(std::array{0U, caps, num, caps | num}, [&](unsigned locks) {
        return grabKey(keycode, static_cast<std::uint16_t>(modifiers | locks)) == 0;
    });
}

void XKeyboard::ungrabKeys() {
    xcb_ungrab_key(connection_, XCB_GRAB_ANY, root_, XCB_MOD_MASK_ANY);
    sync();
}

bool XKeyboard::grabKeyboard() {
    auto* reply =
        xcb_grab_keyboard_reply(connection_,
                                xcb_grab_keyboard(connection_, 0, root_, XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr);
    const bool granted = reply != nullptr && reply->status == XCB_GRAB_STATUS_SUCCESS;
    std::free(reply);
    return granted;
}

void XKeyboard::ungrabKeyboard() {
    xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
    sync();
}

void XKeyboard::openFocusedWindow() {
    const xcb_window_t window = xcb_generate_id(connection_);
    const std::uint32_t events =
        XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE | XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, root_, 0, 0, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    xcb_map_window(connection_, window);
    xcb_set_input_focus(connection_, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    sync();
}

const std::vector<std::string>& XKeyboard::typed() {
    readEvents();
    return typed_;
}

const std::vector<std::string>& XKeyboard::releases() {
    readEvents();
    return releases_;
}

const std::vector<std::string>& XKeyboard::focusChanges() {
    readEvents();
    return focusChanges_;
}

void XKeyboard::readEvents() {
    sync();
    while (auto* event = xcb_poll_for_event(connection_)) {
        if (event->response_type == XCB_KEY_PRESS) {
            const auto& press = *reinterpret_cast<const xcb_key_press_event_t*>(event);
            std::string text;
            for (const auto& [bit, name] :
                 {std::pair{XCB_MOD_MASK_SHIFT, "shift+"},
                  std::pair{XCB_MOD_MASK_CONTROL, "control+"}, std::pair{XCB_MOD_MASK_1, "alt+"},
                  std::pair{XCB_MOD_MASK_4, "super+"}}) {
                if ((press.state & bit) != 0)
                    text += name;
            }
            typed_.push_back(text + std::to_string(press.detail));
        } else if (event->response_type == XCB_KEY_RELEASE) {
            releases_.push_back(
                std::to_string(reinterpret_cast<const xcb_key_release_event_t*>(event)->detail));
        } else if (event->response_type == XCB_FOCUS_IN || event->response_type == XCB_FOCUS_OUT) {
            const auto& focus = *reinterpret_cast<const xcb_focus_in_event_t*>(event);
            if (focus.mode == XCB_NOTIFY_MODE_GRAB || focus.mode == XCB_NOTIFY_MODE_UNGRAB)
                focusChanges_.emplace_back(event->response_type == XCB_FOCUS_IN ? "in" : "out");
        }
        std::free(event);
    }
}

} // namespace skipnest::tests
