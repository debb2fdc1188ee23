// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11RawInput.h"

#include <xcb/xinput.h>

namespace skipnest::linuxdesktop {

using platform::Failure;
using platform::Outcome;
using platform::Result;

namespace {

constexpr std::uint32_t mask(X11RawInput::Devices devices) {
    return devices == X11RawInput::Devices::keyboard
               ? XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE
               : XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
}

std::vector<xcb_keycode_t> keysDown(const xcb_query_keymap_reply_t& reply) {
    std::vector<xcb_keycode_t> down;
    for (unsigned code = 0; code <= 0xff; ++code) {
        if ((reply.keys[code / 8] & (1U << (code % 8))) != 0)
            down.push_back(static_cast<xcb_keycode_t>(code));
    }
    return down;
}

} // namespace

std::vector<xcb_keycode_t> queryKeysDown(xcb_connection_t* connection) {
    const XcbPtr<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    return reply ? keysDown(*reply) : std::vector<xcb_keycode_t>{};
}

Result<std::unique_ptr<X11RawInput>> X11RawInput::open(const QByteArray& displayName,
                                                       platform::Scheduler& scheduler,
                                                       Devices devices, Sink sink) {
    Connection connection(
        xcb_connect(displayName.isEmpty() ? nullptr : displayName.constData(), nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return Failure{Failure::Kind::unavailable,
                       QStringLiteral("The X server takes no further connection.")};
    std::unique_ptr<X11RawInput> input(
        new X11RawInput(std::move(connection), devices, std::move(sink)));
    const Outcome selected = input->select();
    if (!selected.ok())
        return selected.failure();
    // Events that came together with an answer wait in memory, where no socket announces them.
    scheduler.post([input = input.get(), alive = std::weak_ptr(input->alive_)] {
        if (!alive.expired())
            input->drain();
    });
    return input;
}

X11RawInput::X11RawInput(Connection connection, Devices devices, Sink sink)
    : connection_(std::move(connection)), devices_(devices), sink_(std::move(sink)),
      notifier_(xcb_get_file_descriptor(connection_.get()), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { drain(); });
}

X11RawInput::~X11RawInput() {
    // The notifier must not see a descriptor that the connection has closed.
    notifier_.setEnabled(false);
}

xcb_void_cookie_t X11RawInput::request(std::uint32_t events) const {
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
    return xcb_input_xi_select_events_checked(connection_.get(), root, 1, &selection.head);
}

void X11RawInput::setListening(bool listens) {
    const xcb_void_cookie_t selected = request(listens ? mask(devices_) : 0);
    xcb_discard_reply(connection_.get(), selected.sequence);
    xcb_flush(connection_.get());
}

Outcome X11RawInput::select() {
    xcb_connection_t* connection = connection_.get();
    const xcb_query_extension_reply_t* extension =
        xcb_get_extension_data(connection, &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return Failure{Failure::Kind::unavailable,
                       QStringLiteral("The X server has no XInput extension.")};
    inputOpcode_ = extension->major_opcode;

    // From 2.1 on raw events come whoever has grabbed the keyboard.
    const XcbPtr<xcb_input_xi_query_version_reply_t> version(xcb_input_xi_query_version_reply(
        connection, xcb_input_xi_query_version(connection, 2, 1), nullptr));
    if (!version || version->major_version < 2 ||
        (version->major_version == 2 && version->minor_version < 1))
        return Failure{Failure::Kind::unavailable,
                       QStringLiteral("The X server's XInput extension is older than 2.1.")};

    const xcb_void_cookie_t selected = request(mask(devices_));
    // Asked after selecting: a key that changes in between is in both, and told twice is harmless.
    const auto keymap = xcb_query_keymap(connection);
    const XcbPtr<xcb_generic_error_t> error(xcb_request_check(connection, selected));
    const XcbPtr<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, keymap, nullptr));
    if (error || !reply)
        return Failure{Failure::Kind::refused, QStringLiteral("The X server refuses raw events.")};
    down_ = keysDown(*reply);
    return platform::Done{};
}

void X11RawInput::drain() {
    const auto alive = std::weak_ptr(alive_);
    while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
        if ((event->response_type & 0x7f) != XCB_GE_GENERIC)
            continue;
        const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(*event);
        // Raw button events are laid out as raw key events are.
        const bool press = raw.event_type == XCB_INPUT_RAW_KEY_PRESS ||
                           raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS;
        if (raw.extension != inputOpcode_ ||
            (!press && raw.event_type != XCB_INPUT_RAW_KEY_RELEASE))
            continue;
        const bool repeat = (raw.flags & XCB_INPUT_KEY_EVENT_FLAGS_KEY_REPEAT) != 0;
        const auto kind = !press   ? Event::Kind::release
                          : repeat ? Event::Kind::repeat
                                   : Event::Kind::press;
        const Sink sink = sink_;
        sink({kind, raw.detail, raw.time});
        if (alive.expired())
            return;
    }
    // A dead socket is readable for ever.
    if (broken())
        notifier_.setEnabled(false);
}

} // namespace skipnest::linuxdesktop
