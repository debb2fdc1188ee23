// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/WindowKeyboardCapture.h"

#include "platform/linux/KeyTable.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace skipnest::linuxdesktop {
namespace {

using platform::Availability;
using platform::CapturedKey;
using platform::EventFlags;
using platform::Failure;
using platform::KeyboardGrab;

constexpr quint32 evdevOffset = 8; // between the kernel's codes and those of events, since X10

struct ModifierPair {
    Qt::Key key;
    Qt::KeyboardModifier modifier;
    std::uint64_t flag;
};
constexpr auto modifiers = std::to_array<ModifierPair>({
    {Qt::Key_Control, Qt::ControlModifier, EventFlags::control},
    {Qt::Key_Alt, Qt::AltModifier, EventFlags::alternate},
    {Qt::Key_Shift, Qt::ShiftModifier, EventFlags::shift},
    {Qt::Key_Meta, Qt::MetaModifier, EventFlags::command},
});

EventFlags flagsOf(Qt::KeyboardModifiers held) {
    EventFlags flags;
    for (const ModifierPair& each : modifiers)
        if (held.testFlag(each.modifier))
            flags.bits |= each.flag;
    return flags;
}

const ModifierPair* modifierOf(int key) {
    if (key == Qt::Key_Super_L || key == Qt::Key_Super_R)
        key = Qt::Key_Meta;
    const auto found = std::ranges::find(
        modifiers, key, [](const ModifierPair& each) { return static_cast<int>(each.key); });
    return found == modifiers.end() ? nullptr : &*found;
}

} // namespace

Availability WindowKeyboardCapture::availability() const {
    if (session_ == SessionKind::none)
        return {Availability::State::unavailable,
                QStringLiteral("No X server or Wayland compositor answers."),
                QStringLiteral("Start Skipnest from inside a graphical session.")};
    return {Availability::State::limited,
            QStringLiteral("On Wayland only keys that the compositor leaves to Skipnest's own "
                           "window can be recorded."),
            QStringLiteral("Combos that the desktop acts on can be bound in its own keyboard "
                           "settings.")};
}

platform::Result<KeyboardGrab>
WindowKeyboardCapture::capture(platform::KeyboardCaptureEvents& events) {
    if (session_ == SessionKind::none)
        return Failure{Failure::Kind::unavailable, availability().reason};
    if (events_ != nullptr)
        return Failure{Failure::Kind::refused, QStringLiteral("a recording is going on already")};
    events_ = &events;
    QCoreApplication::instance()->installEventFilter(this);
    return KeyboardGrab([this, alive = std::weak_ptr<bool>(alive_), mine = &events] {
        if (alive.expired() || events_ != mine)
            return;
        events_ = nullptr;
        QCoreApplication::instance()->removeEventFilter(this);
    });
}

bool WindowKeyboardCapture::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress;
    if (events_ == nullptr || !watched->isWindowType() ||
        (!isPress && event->type() != QEvent::KeyRelease &&
         event->type() != QEvent::ShortcutOverride))
        return false;
    if (event->type() == QEvent::ShortcutOverride)
        return true;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const auto keys = physicalKeys();
    const auto physical = std::ranges::find_if(keys, [&key](const PhysicalKey& each) {
        return each.evdevCode + evdevOffset == key.nativeScanCode();
    });
    CapturedKey captured{isPress ? CapturedKey::Kind::down : CapturedKey::Kind::up,
                         physical == keys.end() ? std::uint16_t{0} : physical->keyCode,
                         flagsOf(key.modifiers()), key.isAutoRepeat(), scheduler_.now()};
    if (const ModifierPair* modifier = modifierOf(key.key())) {
        captured.kind = CapturedKey::Kind::modifiersChanged;
        // Qt tells the modifiers before the event.
        captured.flags.bits =
            isPress ? captured.flags.bits | modifier->flag : captured.flags.bits & ~modifier->flag;
    } else if (physical == keys.end()) {
        return true; // a key without a code cannot be part of a combo
    }
    events_->keyCaptured(captured);
    return true;
}

} // namespace skipnest::linuxdesktop
