// SPDX-License-Identifier: Apache-2.0
#include "bench/XResources.h"

#include <xcb/xcbext.h>

#include <sys/uio.h>

#include <cstring>

namespace skipnest::bench {
namespace {

// The request of the X-Resource extension and its answer, as the protocol lays them out.
struct Request {
    std::uint8_t majorOpcode = 0;
    std::uint8_t minorOpcode = 0;
    std::uint16_t length = 0;
    std::uint32_t resource = 0;
};
struct Reply {
    std::uint8_t responseType = 0;
    std::uint8_t pad = 0;
    std::uint16_t sequence = 0;
    std::uint32_t length = 0;
    std::uint32_t types = 0; // of these each an atom and a count follow
    std::uint32_t rest[5] = {};
};
static_assert(sizeof(Request) == 8 && sizeof(Reply) == 32);

xcb_extension_t extension{"X-Resource", 0};
constexpr std::uint8_t queryClientResources = 2;

} // namespace

int pixmapsOf(e2e::XConnection& connection, xcb_window_t window) {
    xcb_connection_t* raw = connection.raw();
    if (const auto* known = xcb_get_extension_data(raw, &extension);
        known == nullptr || known->present == 0)
        return -1;
    Request request{0, 0, 0, window};
    // The two parts before it are scratch room of the library.
    iovec parts[4] = {{}, {}, {&request, sizeof request}, {nullptr, 0}};
    const xcb_protocol_request_t protocol{1, &extension, queryClientResources, 0};
    const unsigned sequence = xcb_send_request(raw, XCB_REQUEST_CHECKED, parts + 2, &protocol);
    const e2e::XReply<void> answer(xcb_wait_for_reply(raw, sequence, nullptr));
    if (!answer)
        return -1;
    Reply reply;
    std::memcpy(&reply, answer.get(), sizeof reply);
    const auto* data = static_cast<const std::uint8_t*>(answer.get()) + sizeof reply;
    const xcb_atom_t pixmap = connection.atom("PIXMAP");
    int count = 0;
    for (std::uint32_t i = 0; i < reply.types; ++i) {
        std::uint32_t pair[2] = {};
        std::memcpy(pair, data + i * sizeof pair, sizeof pair);
        if (pair[0] == pixmap)
            count += static_cast<int>(pair[1]);
    }
    return count;
}

} // namespace skipnest::bench
