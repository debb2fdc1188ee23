// SPDX-License-Identifier: Apache-2.0
#include "switcher/HoldGesture.h"

#include <gtest/gtest.h>

namespace skipnest::switcher {
namespace {

using namespace std::chrono_literals;
using platform::EventFlags;
using platform::Instant;
using Verdict = HoldGesture::Verdict;

constexpr EventFlags chord{EventFlags::control | EventFlags::alternate};
constexpr EventFlags half{EventFlags::control};
constexpr EventFlags none{};

Instant at(platform::Duration time) {
    return Instant(time);
}

TEST(HoldGesture, limitsAreExclusive) {
    HoldGesture gesture;
    gesture.begin(chord, at(0ms));
    EXPECT_EQ(gesture.tick(chord, true, at(700ms)), Verdict::nothing);
    EXPECT_EQ(gesture.tick(chord, true, at(701ms)), Verdict::advance);
    EXPECT_EQ(gesture.tick(chord, true, at(1401ms)), Verdict::nothing);
    EXPECT_EQ(gesture.tick(chord, true, at(1402ms)), Verdict::advance);
    EXPECT_EQ(gesture.tick(chord, false, at(20s)), Verdict::nothing);
    EXPECT_EQ(gesture.tick(chord, false, at(20s + 1ms)), Verdict::commitTooLong);
}

TEST(HoldGesture, oneModifierUpIsARelease) {
    HoldGesture gesture;
    gesture.begin(chord, at(0ms));
    EXPECT_EQ(gesture.tick(half, true, at(100ms)), Verdict::pinned);
    EXPECT_EQ(gesture.tick(none, true, at(20s + 100ms)), Verdict::nothing);
    EXPECT_EQ(gesture.tick(none, true, at(20s + 101ms)), Verdict::idle);

    gesture.begin(chord, at(0ms));
    EXPECT_EQ(gesture.tick(chord, true, at(800ms)), Verdict::advance);
    EXPECT_EQ(gesture.tick(half, true, at(830ms)), Verdict::commitReleased);
}

TEST(HoldGesture, aPinnedBarNeitherAdvancesNorHearsOfModifiers) {
    HoldGesture gesture;
    gesture.begin(chord, at(0ms));
    EXPECT_EQ(gesture.tick(chord, true, at(800ms)), Verdict::advance);
    EXPECT_TRUE(gesture.pin(at(900ms)));
    EXPECT_FALSE(gesture.pin(at(1s)));
    EXPECT_EQ(gesture.tick(none, true, at(1100ms)), Verdict::nothing);
    EXPECT_EQ(gesture.tick(chord, true, at(5s)), Verdict::nothing);

    gesture.begin(none, at(0ms));
    EXPECT_TRUE(gesture.isPinned());
}

} // namespace
} // namespace skipnest::switcher
