// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"
#include "platform/Scheduler.h"

#include <QAbstractNativeEventFilter>
#include <QByteArray>
#include <QHash>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <set>

namespace skipnest::linuxdesktop {

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
// Owns what xcb hands out with malloc: replies, errors, events.
template <typename T> using XcbPtr = std::unique_ptr<T, FreeDeleter>;

// Qt's own connection to the X server, shared by everything in this folder that talks X11, so that
// all events arrive in one order on the main thread. Exists only while the program runs on Qt's xcb
// platform.
class X11Display final : public QAbstractNativeEventFilter {
public:
    // Null where the program does not run on an X server.
    [[nodiscard]] static std::unique_ptr<X11Display> open(platform::Scheduler& scheduler);
    ~X11Display() override;

    [[nodiscard]] xcb_connection_t* connection() const { return connection_; }
    [[nodiscard]] xcb_window_t root() const { return root_; }
    [[nodiscard]] xcb_atom_t atom(const char* name) const; // interned once, then from memory

    // Every X event of the connection, before Qt sees it; none is taken away from Qt.
    [[nodiscard]] platform::Observation
    observeEvents(std::function<void(const xcb_generic_event_t&)> observer);

    // Asked about every event after the observers were told of it; answering true keeps the event
    // from Qt. At most one. For a hotkey pressed while a window of ours has the keyboard: it must
    // not type too.
    using EventFilter = std::function<bool(const xcb_generic_event_t&)>;
    [[nodiscard]] platform::Observation filterEvents(EventFilter filter);

    // Asks that filter about an event that was kept from everybody until now.
    [[nodiscard]] bool offer(const xcb_generic_event_t& event) const;

    // Adds to what this connection hears of a window without taking away what Qt selected there.
    void addEventMask(xcb_window_t window, std::uint32_t mask);
    // The same for the root window until dropped: bits that nobody else wants go away again.
    [[nodiscard]] platform::Observation holdRootEventMask(std::uint32_t mask);

    // Server time on the program's own time line. The offset is the smallest one seen: events are
    // late by the queue, never early. Survives the wrap of the server's 32 bits of milliseconds.
    [[nodiscard]] platform::Instant instant(xcb_timestamp_t serverTime);
    // Server time now, never ahead of the server's own clock, asked of nobody: what requests to the
    // window manager carry. Not the time of the last key press that was seen here: requests also
    // come from the command line and the mouse, long after one, and desktops take an old time for
    // a program that steals the focus. XCB_CURRENT_TIME until the server has told any time.
    [[nodiscard]] xcb_timestamp_t requestTime() const;
    // Takes in what time it is from an event of whatever connection.
    void noteServerTime(xcb_timestamp_t time);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    X11Display(xcb_connection_t* connection, xcb_window_t root, platform::Scheduler& scheduler);

    [[nodiscard]] std::optional<std::uint32_t> eventMask(xcb_window_t window) const;

    xcb_connection_t* connection_;
    xcb_window_t root_;
    const xcb_window_t clock_; // never shown
    platform::Scheduler& scheduler_;
    mutable QHash<QByteArray, xcb_atom_t> atoms_;
    platform::Observers<const xcb_generic_event_t&> observers_;
    std::shared_ptr<EventFilter> filter_;
    // Bits of the root's event mask: those that Qt or addEventMask() want, and the held ones.
    std::uint32_t lastingRootMask_ = 0;
    std::multiset<std::uint32_t> heldRootMasks_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    std::optional<platform::Duration> serverTimeOffset_;
    xcb_timestamp_t lastServerTime_ = 0;
    std::int64_t serverTimeWraps_ = 0;
    xcb_timestamp_t newestTime_ = XCB_CURRENT_TIME;
    platform::Instant newestTimeSeen_{};
};

} // namespace skipnest::linuxdesktop
