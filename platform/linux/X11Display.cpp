// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11Display.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace skipnest::linuxdesktop {

using platform::Duration;
using platform::Instant;

std::unique_ptr<X11Display> X11Display::open(platform::Scheduler& scheduler) {
    const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application == nullptr)
        return nullptr;
    const auto* x11 = application->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->connection() == nullptr)
        return nullptr;
    xcb_connection_t* connection = x11->connection();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    return std::unique_ptr<X11Display>(new X11Display(connection, root, scheduler));
}

X11Display::X11Display(xcb_connection_t* connection, xcb_window_t root,
                       platform::Scheduler& scheduler)
    : connection_(connection), root_(root), clock_(xcb_generate_id(connection)),
      scheduler_(scheduler) {
    QCoreApplication::instance()->installNativeEventFilter(this);
    // Each change of a property is told with its time, one that changes nothing as well. So the
    // first request has a time even if no key was pressed before.
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_, 0, clock_, root_, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
    xcb_change_property(connection_, XCB_PROP_MODE_APPEND, clock_, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    xcb_flush(connection_);
}

X11Display::~X11Display() {
    if (auto* application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
    xcb_destroy_window(connection_, clock_);
    xcb_flush(connection_);
}

xcb_atom_t X11Display::atom(const char* name) const {
    const QByteArray key(name);
    const auto known = atoms_.constFind(key);
    if (known != atoms_.constEnd())
        return *known;
    const auto cookie =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(key.size()), key.constData());
    const XcbPtr<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_, cookie, nullptr));
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    atoms_.insert(key, atom);
    return atom;
}

platform::Observation
X11Display::observeEvents(std::function<void(const xcb_generic_event_t&)> observer) {
    return observers_.add(std::move(observer));
}

platform::Observation X11Display::filterEvents(EventFilter filter) {
    Q_ASSERT(!filter_);
    filter_ = std::make_shared<EventFilter>(std::move(filter));
    return platform::Observation([this, alive = std::weak_ptr<bool>(alive_)] {
        if (!alive.expired())
            filter_.reset();
    });
}

std::optional<std::uint32_t> X11Display::eventMask(xcb_window_t window) const {
    const XcbPtr<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    if (!attributes)
        return std::nullopt;
    return attributes->your_event_mask;
}

void X11Display::addEventMask(xcb_window_t window, std::uint32_t mask) {
    const auto current = eventMask(window);
    if (!current)
        return;
    if (window == root_)
        lastingRootMask_ |= mask;
    const std::uint32_t combined = *current | mask;
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &combined);
}

platform::Observation X11Display::holdRootEventMask(std::uint32_t mask) {
    const auto current = eventMask(root_);
    if (!current)
        return {};
    std::uint32_t held = 0;
    for (const std::uint32_t other : heldRootMasks_)
        held |= other;
    lastingRootMask_ |= *current & ~held;
    heldRootMasks_.insert(mask);
    const std::uint32_t combined = *current | mask;
    xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &combined);
    xcb_flush(connection_);
    return platform::Observation([this, alive = std::weak_ptr<bool>(alive_), mask] {
        if (alive.expired())
            return;
        heldRootMasks_.erase(heldRootMasks_.find(mask));
        std::uint32_t wanted = lastingRootMask_;
        for (const std::uint32_t other : heldRootMasks_)
            wanted |= other;
        xcb_change_window_attributes(connection_, root_, XCB_CW_EVENT_MASK, &wanted);
        xcb_flush(connection_);
    });
}

Instant X11Display::instant(xcb_timestamp_t serverTime) {
    using std::chrono::milliseconds;
    constexpr std::int64_t wrap = std::int64_t{1} << 32;
    const auto difference = static_cast<std::int32_t>(serverTime - lastServerTime_);
    if (serverTimeOffset_ && difference > 0 && serverTime < lastServerTime_)
        ++serverTimeWraps_;
    // An event from just before the wrap may be looked at after one from just behind it.
    const bool fromBeforeWrap = serverTimeOffset_ && difference < 0 && serverTime > lastServerTime_;
    if (!serverTimeOffset_ || difference > 0)
        lastServerTime_ = serverTime;
    const std::int64_t wraps = serverTimeWraps_ - (fromBeforeWrap ? 1 : 0);
    const Duration since = milliseconds(std::int64_t{serverTime} + wraps * wrap);
    const Instant now = scheduler_.now();
    const Duration offset = now.time_since_epoch() - since;
    serverTimeOffset_ = serverTimeOffset_ ? std::min(*serverTimeOffset_, offset) : offset;
    return Instant(since + *serverTimeOffset_);
}

xcb_timestamp_t X11Display::requestTime() const {
    using std::chrono::milliseconds;
    if (newestTime_ == XCB_CURRENT_TIME)
        return XCB_CURRENT_TIME;
    // The server may count with a clock that is a millisecond behind ours.
    const auto since = std::chrono::floor<milliseconds>(scheduler_.now() - newestTimeSeen_);
    const std::int64_t elapsed = std::max<std::int64_t>(since.count() - 1, 0);
    return newestTime_ + static_cast<xcb_timestamp_t>(elapsed);
}

void X11Display::noteServerTime(xcb_timestamp_t time) {
    // Events of two connections are not seen in the order in which they happened.
    if (newestTime_ != XCB_CURRENT_TIME && static_cast<std::int32_t>(time - newestTime_) < 0)
        return;
    newestTime_ = time;
    newestTimeSeen_ = scheduler_.now();
}

bool X11Display::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    switch (event.response_type) { // without the top bit: the server's own word
    case XCB_KEY_PRESS:
    case XCB_BUTTON_PRESS:
        noteServerTime(reinterpret_cast<const xcb_key_press_event_t&>(event).time);
        break;
    case XCB_PROPERTY_NOTIFY:
        noteServerTime(reinterpret_cast<const xcb_property_notify_event_t&>(event).time);
        break;
    default:
        break;
    }
    observers_.notify(event);
    return offer(event);
}

bool X11Display::offer(const xcb_generic_event_t& event) const {
    const auto filter = filter_; // it may go away while it is being asked
    return filter && (*filter)(event);
}

} // namespace skipnest::linuxdesktop
