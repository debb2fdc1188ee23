// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/X11KeyClaims.h"

#include <xcb/xinput.h>

namespace skipnest::linuxdesktop {

std::unique_ptr<X11KeyClaims> X11KeyClaims::open() {
    Connection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    return std::unique_ptr<X11KeyClaims>(new X11KeyClaims(std::move(connection)));
}

X11KeyClaims::X11KeyClaims(Connection connection)
    : connection_(std::move(connection)),
      root_(xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root) {
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(connection_.get(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return;
    const XcbPtr<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection_.get(), xcb_input_xi_query_version(connection_.get(), 2, 1), nullptr));
    hasXInput_ = version && version->major_version >= 2;
}

bool X11KeyClaims::isClaimed(xcb_keycode_t keycode, std::uint16_t modifiers) const {
    xcb_connection_t* connection = connection_.get();
    constexpr std::uint16_t modifierBits = 0xff;
    const std::uint16_t bits = modifiers & modifierBits;
    const std::uint32_t wideBits = bits;
    const std::uint32_t events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
    const auto core = xcb_grab_key_checked(connection, 0, root_, bits, keycode, XCB_GRAB_MODE_ASYNC,
                                           XCB_GRAB_MODE_ASYNC);
    xcb_input_xi_passive_grab_device_cookie_t modern{};
    if (hasXInput_) {
        modern = xcb_input_xi_passive_grab_device(
            connection, XCB_CURRENT_TIME, root_, XCB_CURSOR_NONE, keycode,
            XCB_INPUT_DEVICE_ALL_MASTER, 1, 1, XCB_INPUT_GRAB_TYPE_KEYCODE,
            XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
            XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, &wideBits);
        xcb_input_xi_passive_ungrab_device(connection, root_, keycode, XCB_INPUT_DEVICE_ALL_MASTER,
                                           1, XCB_INPUT_GRAB_TYPE_KEYCODE, &wideBits);
    }
    xcb_ungrab_key(connection, keycode, root_, bits);

    bool claimed = XcbPtr<xcb_generic_error_t>(xcb_request_check(connection, core)) != nullptr;
    if (hasXInput_) {
        // The reply names the modifiers that were refused.
        const XcbPtr<xcb_input_xi_passive_grab_device_reply_t> reply(
            xcb_input_xi_passive_grab_device_reply(connection, modern, nullptr));
        claimed = claimed || (reply && reply->num_modifiers != 0);
    }
    xcb_flush(connection);
    return claimed;
}

} // namespace skipnest::linuxdesktop
