// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/X11KeyEvents.h"

#include <xcb/xinput.h>

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
    : display_(display), keymap_(keymap), scheduler_(scheduler), tapDisplay_(std::move(tapDisplay)),
      strokes_(display, keymap), interception_(display, keymap, scheduler, strokes_) {
    xcb_prefetch_extension_data(display_.connection(), &xcb_input_id);
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
    if (!strokes_.available())
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
        auto opened = X11RawInput::open(tapDisplay_, scheduler_, X11RawInput::Devices::keyboard,
                                        [this](const X11RawInput::Event& event) { handle(event); });
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

void X11KeyEvents::handle(const X11RawInput::Event& event) {
    using Kind = X11RawInput::Event::Kind;
    if (event.kind == Kind::repeat)
        return;
    const auto keycode = static_cast<xcb_keycode_t>(event.detail);
    const platform::Instant time = display_.instant(event.time);
    const bool pressed = event.kind == Kind::press;
    display_.noteServerTime(event.time);

    // A key that changes its meaning while it is down is released as what it was pressed as.
    const auto held = down_.find(keycode);
    std::optional<ModifierKey> key;
    if (held != down_.end())
        key = held->second;
    else if (const ModifierKey* found = keymap_.current().modifierKey(keycode))
        key = *found;
    if (!key) {
        if (pressed)
            otherKeyListeners_.notify(time);
        return;
    }
    // Releases without a press are common (remote desktops, key tools) and take nothing away.
    if (pressed)
        down_.insert_or_assign(keycode, *key);
    else
        down_.erase(keycode);
    capsLocked_ = key->keyCode == capsLockKey ? keymap_.queryCapsLocked() : keymap_.capsLocked();

    EventFlags flags{capsLocked_ ? EventFlags::capsLock : 0};
    for (const auto& [_, down] : down_)
        flags.bits |= down.flag;
    modifierListeners_.notify({time, key->keyCode, flags});
}

EventFlags X11KeyEvents::modifiersDown() const {
    EventFlags flags{keymap_.capsLocked() ? EventFlags::capsLock : 0};
    for (const xcb_keycode_t keycode : queryKeysDown(display_.connection())) {
        if (const ModifierKey* key = keymap_.current().modifierKey(keycode))
            flags.bits |= key->flag;
    }
    return flags;
}

Outcome X11KeyEvents::post(const platform::KeyStroke& stroke) {
    const auto keycode = keymap_.current().keycode(stroke.keyCode);
    if (!keycode)
        return Failure{Failure::Kind::notFound,
                       QStringLiteral("This keyboard has no key %1.").arg(stroke.keyCode)};
    return strokes_.press(*keycode, stroke.flags, X11KeyStrokes::LevelKeys::release);
}

Result<KeyTap> X11KeyEvents::intercept(platform::KeyInterceptor& interceptor) {
    return interception_.begin(interceptor);
}

} // namespace skipnest::linuxdesktop
