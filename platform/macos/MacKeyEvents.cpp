// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacKeyEvents.h"

#include "platform/macos/EventTime.h"

namespace skipnest::macos {
namespace {

using namespace std::chrono_literals;
using platform::Availability;
using platform::EventFlags;
using platform::Failure;

// The system's flags also carry which of two keys it was, the keypad bit and a coalescing bit.
EventFlags modifiers(std::uint64_t systemFlags) {
    constexpr std::uint64_t known = EventFlags::capsLock | EventFlags::shift | EventFlags::control |
                                    EventFlags::alternate | EventFlags::command |
                                    EventFlags::function;
    return {systemFlags & known};
}

QString listenRefused() {
    return QStringLiteral("macOS does not let Skipnest see modifier keys.");
}
QString postRefused() {
    return QStringLiteral("macOS does not let Skipnest press keys in other applications.");
}

} // namespace

MacKeyEvents::MacKeyEvents(KeyboardEventBridge& bridge, platform::Scheduler& scheduler)
    : bridge_(bridge), scheduler_(scheduler) {}

Availability MacKeyEvents::availability() const {
    const bool listens = bridge_.mayListen();
    const bool posts = bridge_.mayPost();
    if (listens && posts)
        return {};
    const QString listenRemedy = QStringLiteral(
        "Turn Skipnest on in System Settings, Privacy & Security, Input Monitoring.");
    const QString postRemedy =
        QStringLiteral("Turn Skipnest on in System Settings, Privacy & Security, Accessibility.");
    if (listens)
        return {Availability::State::limited, postRefused(), postRemedy};
    if (posts)
        return {Availability::State::limited, listenRefused(), listenRemedy};
    return {Availability::State::unavailable, listenRefused() + QChar(u' ') + postRefused(),
            listenRemedy + QChar(u' ') + postRemedy};
}

platform::Result<platform::KeyTap> MacKeyEvents::listen(platform::KeyEventListener& listener) {
    if (tap_ == nullptr)
        install();
    if (tap_ == nullptr) {
        stopIfUnheard();
        return Failure{Failure::Kind::refused, listenRefused()};
    }
    auto observation = std::make_shared<platform::Observation>(
        listeners_.add([this, &listener](const TappedKey& key) {
            const platform::Instant time = eventTime(scheduler_, key.ageSeconds);
            switch (key.kind) {
            case TappedKey::Kind::modifierChanged:
                listener.modifiersChanged({time, key.keyCode, modifiers(key.flags)});
                break;
            case TappedKey::Kind::otherKeyDown:
                listener.otherKeyPressed(time);
                break;
            }
        }));
    return platform::KeyTap([this, observation, alive = std::weak_ptr<bool>(alive_)] {
        observation->reset();
        if (!alive.expired())
            stopIfUnheard();
    });
}

EventFlags MacKeyEvents::modifiersDown() const {
    return modifiers(bridge_.flagsDown());
}

platform::Outcome MacKeyEvents::post(const platform::KeyStroke& stroke) {
    // Without the permission the system takes the events and silently drops them.
    if (!bridge_.mayPost())
        return Failure{Failure::Kind::refused, postRefused()};
    if (!bridge_.post(stroke.keyCode, stroke.flags.bits))
        return Failure{
            Failure::Kind::system,
            QStringLiteral("no keyboard event could be made for key %1").arg(stroke.keyCode)};
    return platform::Done{};
}

void MacKeyEvents::install() {
    tap_ = bridge_.tap([this](const TappedKey& key) { tell(key); });
    if (!health_)
        health_ = scheduler_.every(20s, "key tap check", [this] { repair(); });
}

void MacKeyEvents::repair() {
    if (tap_ == nullptr) {
        install();
        return;
    }
    switch (tap_->health()) {
    case TapHealth::running:
        break;
    case TapHealth::disabled:
        tap_->enable();
        break;
    case TapHealth::invalid:
        tap_.reset();
        install();
        break;
    }
}

void MacKeyEvents::stopIfUnheard() {
    if (!listeners_.empty())
        return;
    health_.reset();
    tap_.reset();
}

void MacKeyEvents::tell(const TappedKey& key) const {
    listeners_.notify(key);
}

} // namespace skipnest::macos
