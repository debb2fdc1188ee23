// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/DoubleTapTrial.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace skipnest::ui {

using platform::Duration;
using platform::EventFlags;
using platform::ModifierEvent;

namespace {

using namespace std::chrono_literals;

constexpr Duration maxHold = 300ms;
constexpr Duration window = 350ms;
// A tap later than this is a new attempt and not a slow one.
constexpr Duration sameAttempt = 1s;

struct TriggerRow {
    VoiceTrigger trigger;
    const char* name;
    std::array<std::uint16_t, 2> keyCodes;
    std::uint64_t flag;
};
constexpr auto rows = std::to_array<TriggerRow>({
    {VoiceTrigger::command, "command", {55, 54}, EventFlags::command},
    {VoiceTrigger::option, "option", {58, 61}, EventFlags::alternate},
    {VoiceTrigger::shift, "shift", {56, 60}, EventFlags::shift},
    {VoiceTrigger::off, "off", {}, 0},
});
constexpr std::uint64_t anyModifier =
    EventFlags::shift | EventFlags::control | EventFlags::alternate | EventFlags::command;

const TriggerRow& row(VoiceTrigger trigger) {
    return *std::ranges::find(rows, trigger, &TriggerRow::trigger);
}

} // namespace

QString triggerName(VoiceTrigger trigger) {
    return QString::fromLatin1(row(trigger).name);
}

VoiceTrigger triggerNamed(const std::optional<QString>& name) {
    const auto found = std::ranges::find_if(
        rows, [&](const TriggerRow& each) { return name == QLatin1String(each.name); });
    return found == rows.end() ? VoiceTrigger::command : found->trigger;
}

DoubleTapTrial::Answer DoubleTapTrial::modifiersChanged(const ModifierEvent& event) {
    const TriggerRow& own = row(trigger_);
    if (trigger_ == VoiceTrigger::off)
        return Answer::nothing;
    if (std::ranges::find(own.keyCodes, event.keyCode) == own.keyCodes.end())
        return std::exchange(downAt_, std::nullopt) ? Answer::disturbed : Answer::nothing;
    if (!event.flags.contains(own.flag))
        return released(event);
    const bool isAlone = (event.flags.bits & anyModifier & ~own.flag) == 0;
    downAt_ = isAlone ? std::optional(event.time) : std::nullopt;
    return isAlone ? Answer::nothing : Answer::disturbed;
}

DoubleTapTrial::Answer DoubleTapTrial::otherKeyPressed() {
    const bool wasUnderWay = downAt_ || lastTap_;
    downAt_.reset();
    lastTap_.reset();
    return wasUnderWay ? Answer::disturbed : Answer::nothing;
}

DoubleTapTrial::Answer DoubleTapTrial::released(const ModifierEvent& event) {
    const auto before = std::exchange(lastTap_, std::nullopt);
    const auto downAt = std::exchange(downAt_, std::nullopt);
    if (!downAt)
        return Answer::nothing;
    if (event.time - *downAt > maxHold)
        return Answer::heldTooLong;
    if (before && before->keyCode == event.keyCode && event.time - before->end <= window)
        return Answer::doubleTap;
    lastTap_ = Tap{event.time, event.keyCode};
    if (!before || event.time - before->end > sameAttempt)
        return Answer::firstTap;
    return before->keyCode == event.keyCode ? Answer::tooFarApart : Answer::otherSide;
}

} // namespace skipnest::ui
