// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/keys/X11KeyInterception.h"

#include <utility>

namespace skipnest::linuxdesktop {
namespace {

using namespace std::chrono_literals;
using platform::Failure;
using platform::KeyInterceptor;
using platform::KeyTap;

// A desktop's hotkey has the keyboard until its key is released; its window list until its
// modifiers are. One period is also what the desktop has to take the keyboard in answer to its
// hotkey: ample for a window manager (some 1 ms), shorter than from one key of a fast typist to the
// next.
constexpr platform::Duration retryPeriod = 20ms;

} // namespace

X11KeyInterception::X11KeyInterception(X11Display& display, X11Keymap& keymap,
                                       platform::Scheduler& scheduler, X11KeyStrokes& strokes)
    : display_(display), keymap_(keymap), scheduler_(scheduler), strokes_(strokes),
      grab_(display, scheduler, X11KeyboardGrab::Mode::oneByOne, *this) {}

platform::Result<KeyTap> X11KeyInterception::begin(KeyInterceptor& interceptor) {
    if (!keymap_.available())
        return Failure{Failure::Kind::unavailable,
                       QStringLiteral("The X server has no XKEYBOARD extension.")};
    if (interceptor_ != nullptr)
        return Failure{Failure::Kind::refused, QStringLiteral("keys are being taken over already")};
    const platform::Outcome taken = grab_.take();
    if (!taken.ok())
        return taken.failure();
    interceptor_ = &interceptor;
    replayed_.clear();
    release_.reset();
    readKeys();
    return KeyTap([this, alive = std::weak_ptr(alive_), serial = ++serial_] {
        if (!alive.expired() && serial == serial_)
            end();
    });
}

void X11KeyInterception::end() {
    interceptor_ = nullptr;
    retry_.reset();
    claims_.reset();
    grab_.release();
}

// The keyboard is another part's of this program. It is not taken back: who took it knows why.
void X11KeyInterception::keyboardLost() {
    retry_.reset();
}

bool X11KeyInterception::keyPressed(const xcb_key_press_event_t& event) {
    display_.noteServerTime(event.time);
    release_.reset();
    const bool isRepeat = held_.press(event.detail, event.time) != X11HeldKeys::Press::first;
    if (keymap_.current().modifierKey(event.detail) != nullptr) {
        grab_.keepKey();
        return true;
    }
    // A key that has no code still types, or is a hotkey of the desktop.
    constexpr std::uint16_t noKeyCode = 0xffff;
    const platform::KeyPress press{keymap_.current().keyCodeOf(event.detail).value_or(noKeyCode),
                                   keymap_.current().flags(event.state),
                                   keymap_.text(event.detail, event.state), isRepeat,
                                   display_.instant(event.time)};
    const auto alive = std::weak_ptr(alive_);
    const std::uint64_t serial = serial_;
    const bool consumed = interceptor_->keyPressed(press) == KeyInterceptor::Verdict::consumed;
    if (alive.expired())
        return true;
    if (!consumed) {
        const bool isOurs = display_.offer(reinterpret_cast<const xcb_generic_event_t&>(event));
        if (alive.expired())
            return true;
        if (!isOurs) {
            if (running(serial))
                pass(event, isRepeat);
            else
                pressAgain(event);
            return true;
        }
    }
    if (running(serial))
        grab_.keepKey();
    return true;
}

bool X11KeyInterception::isClaimed(const xcb_key_press_event_t& event) {
    if (!claims_)
        claims_ = X11KeyClaims::open();
    return claims_ && claims_->isClaimed(event.detail, event.state);
}

void X11KeyInterception::pass(const xcb_key_press_event_t& event, bool isRepeat) {
    const bool goesBelow = isRepeat && replayed_.contains(event.detail);
    if (!goesBelow && strokes_.available() && isClaimed(event)) {
        grab_.release();
        pressAgain(event);
        refused_ = false;
        takeAgainLater();
        return;
    }
    replayed_.insert(event.detail);
    grab_.replayKey();
    takeAgain();
}

void X11KeyInterception::pressAgain(const xcb_key_press_event_t& event) {
    // Where the server has no XTEST, the key is lost.
    (void)strokes_.press(event.detail, keymap_.current().flags(event.state),
                         X11KeyStrokes::LevelKeys::leave);
}

void X11KeyInterception::keyReleased(const xcb_key_release_event_t& event) {
    held_.release(event.detail, event.time);
    release_ = event.detail;
    // One held event may be two here: a repeat's release and press. What becomes of it is said
    // once, with the press.
    scheduler_.post([this, alive = std::weak_ptr(alive_), serial = serial_] {
        if (!alive.expired() && running(serial))
            released();
    });
}

void X11KeyInterception::released() {
    const auto keycode = std::exchange(release_, std::nullopt);
    if (!keycode)
        return;
    if (replayed_.erase(*keycode) == 0) {
        grab_.keepKey();
        return;
    }
    grab_.replayKey();
    takeAgain();
}

void X11KeyInterception::takeAgain() {
    refused_ = !grab_.take().ok();
    if (refused_)
        takeAgainLater();
    else
        readKeys();
}

void X11KeyInterception::takeAgainLater() {
    retry_ = scheduler_.every(retryPeriod, "keyboard", [this] {
        if (!grab_.take().ok()) {
            refused_ = true;
            return;
        }
        readKeys();
        retry_.reset();
        if (std::exchange(refused_, false))
            interceptor_->tapWasDisabled(KeyInterceptor::Disabled::userInput);
    });
}

// Keys may have gone up and down unseen.
void X11KeyInterception::readKeys() {
    held_.readFrom(display_.connection());
    std::erase_if(replayed_, [this](auto keycode) { return !held_.down().contains(keycode); });
}

} // namespace skipnest::linuxdesktop
