// SPDX-License-Identifier: Apache-2.0
#include "switcher/HoldGesture.h"

#include <utility>

namespace skipnest::switcher {

using platform::EventFlags;
using platform::Instant;

namespace {

using namespace std::chrono_literals;

constexpr platform::Duration autoAdvanceInterval = 700ms;
constexpr platform::Duration longestHold = 20s;
constexpr platform::Duration longestIdle = 20s;

} // namespace

void HoldGesture::begin(EventFlags held, Instant now) {
    *this = {};
    holdFlags_ = held;
    lastInteraction_ = now;
    sessionStart_ = now;
    isPinned_ = held.bits == 0;
}

bool HoldGesture::pin(Instant now) {
    touch(now);
    return !std::exchange(isPinned_, true);
}

HoldGesture::Verdict HoldGesture::tick(EventFlags down, bool canAdvance, Instant now) {
    if (isPinned_)
        return now - lastInteraction_ > longestIdle ? Verdict::idle : Verdict::nothing;
    if (!down.contains(holdFlags_.bits)) {
        if (holdCycled_)
            return Verdict::commitReleased;
        (void)pin(now);
        return Verdict::pinned;
    }
    if (canAdvance && now - lastInteraction_ > autoAdvanceInterval) {
        touch(now);
        holdCycled_ = true;
        return Verdict::advance;
    }
    return now - sessionStart_ > longestHold ? Verdict::commitTooLong : Verdict::nothing;
}

} // namespace skipnest::switcher
