// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/EventFlags.h"
#include "platform/Scheduler.h"

namespace skipnest::switcher {

// What time and the held modifiers do to an open bar. While they are held it moves on by itself;
// letting go then picks. Letting go before it has moved was a tap: the bar stays, pinned, until
// something is picked or nothing happens for a while. Reads no clock: every event carries its time.
class HoldGesture {
public:
    enum class Verdict {
        nothing,
        advance,        // on to the next window
        pinned,         // it was a tap
        commitReleased, // let go after it has moved
        commitTooLong,  // held for so long that the release must have been missed
        idle,           // pinned, and nobody has done anything for long
    };

    // `held` are the modifiers of the shortcut; without any the bar is pinned from the start.
    void begin(platform::EventFlags held, platform::Instant now);
    // To be called every few hundredths of a second with the modifiers that are down now.
    // `canAdvance`: windows are shown and there are several.
    [[nodiscard]] Verdict tick(platform::EventFlags down, bool canAdvance, platform::Instant now);
    // The person did something that does not pin, such as pressing the shortcut again.
    void touch(platform::Instant now) { lastInteraction_ = now; }
    // The person used a key of the bar. True where that has pinned it.
    [[nodiscard]] bool pin(platform::Instant now);
    void end() { isPinned_ = false; }

    [[nodiscard]] bool isPinned() const { return isPinned_; }
    [[nodiscard]] platform::EventFlags held() const { return holdFlags_; }

private:
    platform::EventFlags holdFlags_;
    platform::Instant lastInteraction_;
    platform::Instant sessionStart_;
    bool holdCycled_ = false;
    bool isPinned_ = false;
};

} // namespace skipnest::switcher
