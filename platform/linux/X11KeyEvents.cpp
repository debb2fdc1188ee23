// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11KeyEvents.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

#include <algorithm>

namespace skipnest::linuxdesktop {
namespace {

using platform::Availability;
using platform::EventFlags;
using platform::Failure;
using platform::KeyTap;
using platform::Outcome;
using platform::Result;

constexpr std::uint16_t capsLockKey = 57;

bool present(xcb_connection_t* connection, xcb_extension_t* extension) {
    const xcb_query_extension_reply_t* data = xcb_get_extension_data(connection, extension);
    return data != nullptr && data->present != 0;
}

} // namespace

X11KeyEvents::X11KeyEvents(X11Display& display, X11Keymap& keymap, platform::Scheduler& scheduler,
                           QByteArray tapDisplay)
    : display_(display), keymap_(keymap), scheduler_(scheduler),
      tapDisplay_(std::move(tapDisplay)) {
    xcb_prefetch_extension_data(display_.connection(), &xcb_input_id);
    xcb_prefetch_extension_data(display_.connection(), &xcb_test_id);
}

X11KeyEvents::~X11KeyEvents() = default;

Availability X11KeyEvents::availability() const {
    using State = Availability::State;
    if (!present(display_.connection(), &xcb_input_id))
        return {State::unavailable,
                QStringLiteral("The X server has no XInput extension, so double taps of a modifier "
                               "are not seen."),
                QStringLiteral("Use an X server with XInput 2.1 or later.")};
    if (raw_ && raw_->broken())
        return {State::unavailable,
                QStringLiteral("The X server has closed the connection for key events."),
                QStringLiteral("Restart the program.")};
    if (!present(display_.connection(), &xcb_test_id))
        return {State::limited,
                QStringLiteral("The X server has no XTEST extension, so no keys can be typed into "
                               "other programs."),
                QStringLiteral("Start the X server with XTEST enabled.")};
    return {};
}

Result<KeyTap> X11KeyEvents::listen(platform::KeyEventListener& listener) {
    if (raw_ && raw_->broken())
        raw_.reset();
    if (!raw_) {
        auto opened = X11RawKeys::open(tapDisplay_, scheduler_,
                                       [this](const X11RawKeys::Event& event) { handle(event); });
        if (!opened.ok())
            return opened.failure();
        raw_ = std::move(opened).value();
        down_.clear();
        for (const xcb_keycode_t keycode : raw_->keysDownAtStart()) {
            if (const ModifierKey* key = keymap_.current().modifierKey(keycode))
                down_.emplace(keycode, *key);
        }
        capsLocked_ = keymap_.capsLocked();
    }
    struct Listening {
        platform::Observation modifiers;
        platform::Observation otherKeys;
    };
    auto listening = std::make_shared<Listening>();
    listening->modifiers = modifierListeners_.add(
        [&listener](const platform::ModifierEvent& event) { listener.modifiersChanged(event); });
    listening->otherKeys = otherKeyListeners_.add(
        [&listener](platform::Instant time) { listener.otherKeyPressed(time); });
    return KeyTap([this, alive = std::weak_ptr(alive_), listening] {
        *listening = {};
        if (!alive.expired() && modifierListeners_.empty())
            raw_.reset();
    });
}

void X11KeyEvents::handle(const X11RawKeys::Event& event) {
    using Kind = X11RawKeys::Event::Kind;
    if (event.kind == Kind::repeat)
        return;
    const platform::Instant time = display_.instant(event.time);
    const bool pressed = event.kind == Kind::press;
    display_.noteServerTime(event.time);

    // A key that changes its meaning while it is down is released as what it was pressed as.
    const auto held = down_.find(event.keycode);
    std::optional<ModifierKey> key;
    if (held != down_.end())
        key = held->second;
    else if (const ModifierKey* found = keymap_.current().modifierKey(event.keycode))
        key = *found;
    if (!key) {
        if (pressed)
            otherKeyListeners_.notify(time);
        return;
    }
    // Releases without a press are common (remote desktops, key tools) and take nothing away.
    if (pressed)
        down_.insert_or_assign(event.keycode, *key);
    else
        down_.erase(event.keycode);
    capsLocked_ = key->keyCode == capsLockKey ? keymap_.queryCapsLocked() : keymap_.capsLocked();

    EventFlags flags{capsLocked_ ? EventFlags::capsLock : 0};
    for (const auto& [_, down] : down_)
        flags.bits |= down.flag;
    modifierListeners_.notify({time, key->keyCode, flags});
}

std::vector<xcb_keycode_t> X11KeyEvents::queryKeysDown() const {
    xcb_connection_t* connection = display_.connection();
    const XcbPtr<xcb_query_keymap_reply_t> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr));
    return reply ? keysDown(*reply) : std::vector<xcb_keycode_t>{};
}

EventFlags X11KeyEvents::modifiersDown() const {
    EventFlags flags{keymap_.capsLocked() ? EventFlags::capsLock : 0};
    for (const xcb_keycode_t keycode : queryKeysDown()) {
        if (const ModifierKey* key = keymap_.current().modifierKey(keycode))
            flags.bits |= key->flag;
    }
    return flags;
}

Outcome X11KeyEvents::post(const platform::KeyStroke& stroke) {
    xcb_connection_t* connection = display_.connection();
    if (!present(connection, &xcb_test_id))
        return Failure{Failure::Kind::unavailable,
                       QStringLiteral("The X server has no XTEST extension.")};
    const KeyboardMap& map = keymap_.current();
    const auto keycode = map.keycode(stroke.keyCode);
    if (!keycode)
        return Failure{Failure::Kind::notFound,
                       QStringLiteral("This keyboard has no key %1.").arg(stroke.keyCode)};

    constexpr std::uint64_t modifierFlags =
        EventFlags::shift | EventFlags::control | EventFlags::alternate | EventFlags::command;
    std::uint64_t missing = stroke.flags.bits & modifierFlags;
    bool keyIsDown = false;
    std::vector<xcb_keycode_t> inTheWay;
    for (const xcb_keycode_t down : queryKeysDown()) {
        const ModifierKey* key = map.modifierKey(down);
        // A person may be holding the very key; a second press of it would be none.
        keyIsDown = keyIsDown || down == *keycode;
        if (key != nullptr && !key->choosesLevel && (stroke.flags.bits & key->flag) != 0)
            missing &= ~key->flag;
        else if (key != nullptr && key->flag != 0)
            inTheWay.push_back(down);
    }
    std::vector<xcb_keycode_t> added;
    for (const ModifierKey& key : map.modifierKeys) {
        if (key.choosesLevel || (missing & key.flag) == 0)
            continue;
        added.push_back(key.keycode);
        missing &= ~key.flag;
    }
    if (missing != 0)
        return Failure{Failure::Kind::notFound,
                       QStringLiteral("This keyboard lacks a modifier of the key stroke.")};

    const auto fake = [&](std::uint8_t type, xcb_keycode_t code) {
        xcb_test_fake_input(connection, type, code, XCB_CURRENT_TIME, display_.root(), 0, 0, 0);
    };
    xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    for (const xcb_keycode_t code : inTheWay)
        fake(XCB_KEY_RELEASE, code);
    for (const xcb_keycode_t code : added)
        fake(XCB_KEY_PRESS, code);
    if (keyIsDown)
        fake(XCB_KEY_RELEASE, *keycode);
    fake(XCB_KEY_PRESS, *keycode);
    fake(XCB_KEY_RELEASE, *keycode);
    for (auto code = added.rbegin(); code != added.rend(); ++code)
        fake(XCB_KEY_RELEASE, *code);
    for (const xcb_keycode_t code : inTheWay)
        fake(XCB_KEY_PRESS, code);
    xcb_flush(connection);
    return platform::Done{};
}

} // namespace skipnest::linuxdesktop
