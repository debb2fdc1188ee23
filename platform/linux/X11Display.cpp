// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11Display.h"

#include <QGuiApplication>

#include <algorithm>

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
    : connection_(connection), root_(root), scheduler_(scheduler) {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11Display::~X11Display() {
    if (auto* application = QCoreApplication::instance())
        application->removeNativeEventFilter(this);
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

void X11Display::addEventMask(xcb_window_t window, std::uint32_t mask) const {
    const XcbPtr<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    if (!attributes)
        return;
    const std::uint32_t combined = attributes->your_event_mask | mask;
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &combined);
}

Instant X11Display::instant(xcb_timestamp_t serverTime) {
    using std::chrono::milliseconds;
    constexpr std::int64_t wrap = std::int64_t{1} << 32;
    const auto difference = static_cast<std::int32_t>(serverTime - lastServerTime_);
    if (serverTimeOffset_ && difference > 0 && serverTime < lastServerTime_)
        ++serverTimeWraps_;
    // An event from just before the wrap may be looked at after one from just behind it.
    const bool fromBeforeWrap =
        serverTimeOffset_ && difference < 0 && serverTime > lastServerTime_;
    if (!serverTimeOffset_ || difference > 0)
        lastServerTime_ = serverTime;
    const std::int64_t wraps = serverTimeWraps_ - (fromBeforeWrap ? 1 : 0);
    const Duration since = milliseconds(std::int64_t{serverTime} + wraps * wrap);
    const Instant now = scheduler_.now();
    const Duration offset = now.time_since_epoch() - since;
    serverTimeOffset_ = serverTimeOffset_ ? std::min(*serverTimeOffset_, offset) : offset;
    return Instant(since + *serverTimeOffset_);
}

bool X11Display::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType == "xcb_generic_event_t")
        observers_.notify(*static_cast<const xcb_generic_event_t*>(message));
    return false;
}

} // namespace skipnest::linuxdesktop
