// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11ClientDeaths.h"

#include <xcb/record.h>
#include <xcb/xcbext.h>

namespace skipnest::linuxdesktop {
namespace {

using RecordReply = XcbPtr<xcb_record_enable_context_reply_t>;

// The kinds of data in a record, by the protocol's numbers; xcb has no names for them.
enum Category : std::uint8_t { clientDied = 3, startOfData = 4 };

} // namespace

std::unique_ptr<X11ClientDeaths> X11ClientDeaths::open(platform::Scheduler& scheduler, Sink sink) {
    Connection owned(xcb_connect(nullptr, nullptr));
    xcb_connection_t* connection = owned.get();
    if (xcb_connection_has_error(connection) != 0)
        return nullptr;
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(connection, &xcb_record_id);
    if (extension == nullptr || extension->present == 0)
        return nullptr;

    const xcb_record_context_t context = xcb_generate_id(connection);
    const xcb_record_client_spec_t clients = XCB_RECORD_CS_ALL_CLIENTS;
    xcb_record_range_t range{};
    range.client_died = 1;
    xcb_discard_reply(connection, xcb_record_query_version(connection, XCB_RECORD_MAJOR_VERSION,
                                                           XCB_RECORD_MINOR_VERSION)
                                      .sequence);
    xcb_record_create_context(connection, context, 0, 1, 1, &clients, &range);
    const auto recording = xcb_record_enable_context(connection, context);
    const RecordReply first(xcb_record_enable_context_reply(connection, recording, nullptr));
    if (!first || first->category != startOfData)
        return nullptr;

    std::unique_ptr<X11ClientDeaths> deaths(
        new X11ClientDeaths(std::move(owned), recording.sequence, std::move(sink)));
    // What came together with the first reply waits in memory, where no socket announces it.
    scheduler.post([deaths = deaths.get(), alive = std::weak_ptr(deaths->alive_)] {
        if (!alive.expired())
            deaths->drain();
    });
    return deaths;
}

X11ClientDeaths::X11ClientDeaths(Connection connection, unsigned recording, Sink sink)
    : connection_(std::move(connection)), recording_(recording), sink_(std::move(sink)),
      notifier_(xcb_get_file_descriptor(connection_.get()), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { drain(); });
}

X11ClientDeaths::~X11ClientDeaths() {
    // The notifier must not see a descriptor that the connection has closed.
    notifier_.setEnabled(false);
}

void X11ClientDeaths::drain() {
    // Asking for events is what reads the socket; asking for replies looks at what was read.
    while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    }
    bool died = false;
    void* data = nullptr;
    while (xcb_poll_for_reply(connection_.get(), recording_, &data, nullptr) != 0) {
        const RecordReply reply(static_cast<xcb_record_enable_context_reply_t*>(data));
        if (!reply) {
            // The recording or the connection has ended, and a dead socket is readable for ever.
            notifier_.setEnabled(false);
            break;
        }
        died = died || reply->category == clientDied;
    }
    if (!died)
        return;
    const Sink sink = sink_;
    sink();
}

} // namespace skipnest::linuxdesktop
