// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11Hotkeys.h"

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using platform::Availability;
using platform::HotkeyHandling;
using platform::HotkeyRegistration;
using platform::HotkeyRequest;
using platform::KeyDeliveryHold;

// Programs end together: one look for all. But their end may be told no sooner than a hotkey's
// modifier goes down, and then its key follows within some tens of milliseconds.
constexpr platform::Duration clientDeathsDelay = 5ms;
// A program that ends takes all its windows with it, and menus come and go.
constexpr platform::Duration windowEventsDelay = 100ms;
// A desktop without keys is the worst that a hold can do; this ends it whatever its owner forgot.
constexpr platform::Duration longestHold = 300ms;

// xset goes up to 255 repeats a second.
constexpr xcb_timestamp_t shortestRepeatMilliseconds = 3;

constexpr std::uint16_t modifierBits = 0xff;

// Calls `each` with the chord's modifiers under every state of the lock keys.
template <typename Each>
void forEachLockState(std::uint16_t modifiers, std::uint16_t locks, Each each) {
    std::uint16_t subset = locks;
    while (true) {
        each(static_cast<std::uint16_t>(modifiers | subset));
        if (subset == 0)
            return;
        subset = static_cast<std::uint16_t>((subset - 1) & locks);
    }
}

} // namespace

X11Hotkeys::X11Hotkeys(X11Display& display, X11Keymap& keymap, platform::Scheduler& scheduler)
    : display_(display), keymap_(keymap), scheduler_(scheduler),
      filter_(display.filterEvents([this](const auto& event) { return takes(event); })),
      keymapChanges_(keymap.observeChanges([this] { keyboardChanged(); })) {}

X11Hotkeys::~X11Hotkeys() {
    endHold();
    for (const auto& [_, registration] : registrations_) {
        if (registration.grabbed)
            ungrab(*registration.grabbed);
    }
    xcb_flush(display_.connection());
}

Availability X11Hotkeys::availability() const {
    if (!keymap_.available())
        return {Availability::State::unavailable,
                QStringLiteral("The X server has no XKEYBOARD extension."),
                QStringLiteral("Start the X server with XKEYBOARD enabled.")};
    if (qgetenv("XDG_SESSION_TYPE") == "wayland")
        return {Availability::State::limited,
                QStringLiteral("This is a Wayland session: hotkeys fire only while an X11 "
                               "program is in front."),
                QStringLiteral("Bind \"skipnest jump NAME\" in the desktop's own keyboard "
                               "settings, or log in to an X11 session.")};
    return {};
}

std::int32_t X11Hotkeys::installHandler(platform::HotkeyEvents* events) {
    events_ = events;
    return 0;
}

std::optional<X11Hotkeys::Chord> X11Hotkeys::chord(const HotkeyRequest& request) const {
    const KeyboardMap& map = keymap_.current();
    const auto keycode = map.keycode(request.keyCode);
    const auto modifiers = map.modifierMask(request.carbonModifiers);
    if (!keycode || !modifiers)
        return std::nullopt;
    return Chord{*keycode, *modifiers, map.lockMask};
}

std::vector<HotkeyRegistration>
X11Hotkeys::registerHotkeys(const std::vector<HotkeyRequest>& requests) {
    std::vector<std::optional<Chord>> wanted;
    std::vector<Chord> chords;
    for (const HotkeyRequest& request : requests) {
        wanted.push_back(chord(request));
        if (wanted.back())
            chords.push_back(*wanted.back());
    }
    const std::vector<std::int32_t> statuses = grab(chords);

    std::vector<HotkeyRegistration> registrations;
    auto status = statuses.begin();
    for (std::size_t i = 0; i < requests.size(); ++i) {
        HotkeyRegistration& registration = registrations.emplace_back();
        registration.status = wanted[i] ? *status++ : XCB_VALUE;
        if (registration.status != 0) {
            refused_ = true;
            continue;
        }
        const Serial serial = ++lastSerial_;
        registrations_.emplace(serial, Registration{requests[i], wanted[i]});
        registration.grab = platform::HotkeyGrab([this, alive = std::weak_ptr(alive_), serial] {
            if (!alive.expired())
                release(serial);
        });
    }
    awaitFreeKeys();
    xcb_flush(display_.connection());
    return registrations;
}

std::vector<std::int32_t> X11Hotkeys::grab(std::span<const Chord> chords) {
    xcb_connection_t* connection = display_.connection();
    std::vector<xcb_void_cookie_t> cookies;
    for (const Chord& chord : chords) {
        forEachLockState(chord.modifiers, chord.locks, [&](std::uint16_t modifiers) {
            cookies.push_back(xcb_grab_key_checked(connection, 0, display_.root(), modifiers,
                                                   chord.keycode, XCB_GRAB_MODE_ASYNC,
                                                   XCB_GRAB_MODE_ASYNC));
        });
    }
    std::vector<std::int32_t> statuses;
    auto cookie = cookies.begin();
    for (const Chord& chord : chords) {
        std::int32_t status = 0;
        forEachLockState(chord.modifiers, chord.locks, [&](std::uint16_t) {
            const XcbPtr<xcb_generic_error_t> error(xcb_request_check(connection, *cookie++));
            if (error && status == 0)
                status = error->error_code;
        });
        statuses.push_back(status);
    }
    // Another client may hold a single lock state; a hotkey that works without Num Lock only would
    // be worse than none.
    for (std::size_t i = 0; i < chords.size(); ++i) {
        if (statuses[i] != 0)
            ungrab(chords[i]);
    }
    return statuses;
}

void X11Hotkeys::ungrab(const Chord& chord) {
    forEachLockState(chord.modifiers, chord.locks, [&](std::uint16_t modifiers) {
        xcb_ungrab_key(display_.connection(), chord.keycode, display_.root(), modifiers);
    });
}

bool X11Hotkeys::inUse(const Chord& chord) const {
    return std::ranges::any_of(
        registrations_, [&chord](const auto& entry) { return entry.second.grabbed == chord; });
}

void X11Hotkeys::release(Serial serial) {
    const auto node = registrations_.extract(serial);
    if (node.empty() || !node.mapped().grabbed)
        return;
    // X knows one grab a chord, however often it was asked for.
    if (!inUse(*node.mapped().grabbed))
        ungrab(*node.mapped().grabbed);
    xcb_flush(display_.connection());
}

bool X11Hotkeys::takes(const xcb_generic_event_t& event) {
    // Events that another client sent carry the top bit and match nothing here: only the server
    // says that a key went down.
    switch (event.response_type) {
    case XCB_KEY_PRESS:
        return pressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    case XCB_KEY_RELEASE: {
        const auto& release = reinterpret_cast<const xcb_key_release_event_t&>(event);
        newestRelease_ = {release.detail, release.time};
        return false;
    }
    case XCB_DESTROY_NOTIFY:
        if (windowEvents_)
            lookForFreeKeys(windowEventsDelay);
        return false;
    default:
        return false;
    }
}

bool X11Hotkeys::pressed(const xcb_key_press_event_t& press) {
    // Auto-repeat is a release and a press of one key in one millisecond. Qt tells repeats by the
    // same pairs, which is why this connection does not ask the server for presses alone. Programs
    // that press keys can be as quick, but no key begins to repeat so soon after it went down.
    const KeyMoment now{press.detail, press.time};
    const bool repeated = now == newestRelease_ && newestPress_.keycode == now.keycode &&
                          now.time - newestPress_.time >= shortestRepeatMilliseconds;
    newestPress_ = now;
    if (repeated)
        return handledPress_;
    handledPress_ = false;

    const std::uint16_t modifiers = press.state & modifierBits;
    std::vector<platform::HotkeyIdentifier> matching;
    for (const auto& [_, registration] : registrations_) {
        if (registration.grabbed && registration.grabbed->keycode == press.detail &&
            registration.grabbed->modifiers == (modifiers & ~registration.grabbed->locks))
            matching.push_back(registration.request.id);
    }
    const platform::Instant time = display_.instant(press.time);
    const auto alive = std::weak_ptr(alive_);
    for (const platform::HotkeyIdentifier id : matching) {
        if (events_ == nullptr || events_->hotkeyPressed(id, time) != HotkeyHandling::handled) {
            if (alive.expired())
                return false;
            continue;
        }
        if (!alive.expired())
            handledPress_ = true;
        return true;
    }
    return false;
}

void X11Hotkeys::keyboardChanged() {
    if (refused_) {
        tellKeysMayBeFree();
        return;
    }
    moveGrabs();
    awaitFreeKeys();
}

void X11Hotkeys::moveGrabs() {
    std::vector<Serial> moved;
    std::vector<Chord> chords;
    bool changed = false;
    // All old ones are given up first: keys that changed places take each other's.
    for (auto& [serial, registration] : registrations_) {
        const auto wanted = chord(registration.request);
        if (wanted == registration.grabbed)
            continue;
        changed = true;
        if (registration.grabbed)
            ungrab(*registration.grabbed);
        registration.grabbed.reset();
        if (wanted) {
            moved.push_back(serial);
            chords.push_back(*wanted);
        }
    }
    if (!changed)
        return;
    const std::vector<std::int32_t> statuses = grab(chords);
    for (std::size_t i = 0; i < moved.size(); ++i) {
        if (statuses[i] == 0)
            registrations_.at(moved[i]).grabbed = chords[i];
        else
            refused_ = true;
    }
    xcb_flush(display_.connection());
}

void X11Hotkeys::awaitFreeKeys() {
    if (!refused_ || clientDeaths_ || windowEvents_)
        return;
    clientDeaths_ =
        X11ClientDeaths::open(scheduler_, [this] { lookForFreeKeys(clientDeathsDelay); });
    // Some servers do not record. The end of a program that has a window shows without that too.
    if (!clientDeaths_)
        windowEvents_ = display_.holdRootEventMask(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
}

void X11Hotkeys::lookForFreeKeys(platform::Duration delay) {
    if (!freeKeysTimer_)
        freeKeysTimer_ =
            scheduler_.after(delay, "refused hotkeys", [this] { tellKeysMayBeFree(); });
}

void X11Hotkeys::tellKeysMayBeFree() {
    freeKeysTimer_.reset();
    refused_ = false;
    moveGrabs();
    const auto alive = std::weak_ptr(alive_);
    if (events_ != nullptr)
        events_->refusedHotkeysMayBeFree();
    if (alive.expired())
        return;
    // Listening lasts only as long as somebody still tries and is refused. It goes on through the
    // attempts: a listener that was closed could be the death that a new one hears of.
    if (refused_) {
        awaitFreeKeys();
        return;
    }
    clientDeaths_.reset();
    windowEvents_.reset();
    freeKeysTimer_.reset();
}

void X11Hotkeys::waitUntilReleased() {
    // The server serves connections in an order of its own: without an answer on this one, a grab
    // asked for by another process a moment later may still be looked at first.
    xcb_connection_t* connection = display_.connection();
    const XcbPtr<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

KeyDeliveryHold X11Hotkeys::holdKeyDelivery() {
    xcb_connection_t* connection = display_.connection();
    // A synchronous grab freezes the keyboard: the server queues what is typed, and when the grab
    // ends it treats the queue as if it were typed then, new passive grabs and focus included.
    const auto cookie = xcb_grab_keyboard(connection, 0, display_.root(), XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_SYNC);
    const XcbPtr<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(connection, cookie, nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        return {};
    holdLimit_ = scheduler_.after(longestHold, "key delivery hold", [this] { endHold(); });
    return KeyDeliveryHold([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired())
            endHold();
    });
}

void X11Hotkeys::endHold() {
    if (!holdLimit_)
        return;
    holdLimit_.reset();
    xcb_ungrab_keyboard(display_.connection(), XCB_CURRENT_TIME);
    // Until the server hears of it, nobody on the desktop can type.
    xcb_flush(display_.connection());
}

} // namespace skipnest::linuxdesktop
