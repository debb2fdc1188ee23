// SPDX-License-Identifier: Apache-2.0
// The least a program can do between a key and a window in front: hold the chords, ask the window
// manager. No desktops, no log, no thought. What bench_jump measures everything else against.
// Usage: skipnest_floor KEYCODE MODIFIERS WINDOW [KEYCODE MODIFIERS WINDOW …]
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

struct Binding {
    xcb_keycode_t key;
    std::uint16_t modifiers;
    xcb_window_t window;
};

} // namespace

int main(int argc, char** argv) {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0 || argc < 4)
        return 1;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    std::vector<Binding> bindings;
    for (int index = 1; index + 2 < argc; index += 3) {
        const auto number = [&](int offset) {
            return std::strtoul(argv[index + offset], nullptr, 0);
        };
        bindings.push_back({static_cast<xcb_keycode_t>(number(0)),
                            static_cast<std::uint16_t>(number(1)),
                            static_cast<xcb_window_t>(number(2))});
        xcb_grab_key(connection, 1, root, bindings.back().modifiers, bindings.back().key,
                     XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    }
    constexpr char name[] = "_NET_ACTIVE_WINDOW";
    xcb_intern_atom_reply_t* atom = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, sizeof name - 1, name), nullptr);
    if (atom == nullptr)
        return 1;
    while (xcb_generic_event_t* event = xcb_wait_for_event(connection)) {
        if ((event->response_type & 0x7f) == XCB_KEY_PRESS) {
            const auto* press = reinterpret_cast<xcb_key_press_event_t*>(event);
            for (const Binding& binding : bindings) {
                if (binding.key != press->detail || binding.modifiers != press->state)
                    continue;
                xcb_client_message_event_t request{};
                request.response_type = XCB_CLIENT_MESSAGE;
                request.format = 32;
                request.window = binding.window;
                request.type = atom->atom;
                request.data.data32[0] = 2;
                request.data.data32[1] = press->time;
                xcb_send_event(connection, 0, root,
                               XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT |
                                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                               reinterpret_cast<const char*>(&request));
                xcb_flush(connection);
            }
        }
        std::free(event);
    }
    return 0;
}
