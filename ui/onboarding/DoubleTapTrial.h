// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyEvents.h"

#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace skipnest::ui {

// The modifier whose double tap starts a voice session, in the order in which it is offered.
enum class VoiceTrigger { command, option, shift, off };
inline constexpr std::array voiceTriggers = {VoiceTrigger::command, VoiceTrigger::option,
                                             VoiceTrigger::shift, VoiceTrigger::off};

// "command", "option", "shift", "off": as the configuration stores it.
[[nodiscard]] QString triggerName(VoiceTrigger trigger);
// An unknown name, or none, is the Command key.
[[nodiscard]] VoiceTrigger triggerNamed(const std::optional<QString>& name);

// Tells a person who practises the double tap how each attempt went.
//
// A tap counts when the key alone is down for at most 0.3 s. Two taps of the same physical key are
// a double tap when no other key went down in between and their releases are at most 0.35 s apart.
// Both limits are inclusive. A pure state machine: times come with the events.
class DoubleTapTrial {
public:
    enum class Answer {
        nothing, // a key went down, or the event has nothing to do with the gesture
        firstTap,
        doubleTap,
        heldTooLong,
        tooFarApart, // a second tap that came within a second, and too late; it is a first tap now
        otherSide,   // left and right of the pair were mixed; the second is a first tap now
        disturbed,   // another key or modifier was involved
    };

    explicit DoubleTapTrial(VoiceTrigger trigger) : trigger_(trigger) {}

    [[nodiscard]] Answer modifiersChanged(const platform::ModifierEvent& event);
    [[nodiscard]] Answer otherKeyPressed();

private:
    struct Tap {
        platform::Instant end;
        std::uint16_t keyCode = 0;
    };

    [[nodiscard]] Answer released(const platform::ModifierEvent& event);

    VoiceTrigger trigger_;
    // While a clean press lasts: a release without one, as after the start, is no tap.
    std::optional<platform::Instant> downAt_;
    std::optional<Tap> lastTap_;
};

} // namespace skipnest::ui
