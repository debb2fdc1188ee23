// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/EventFlags.h"
#include "platform/HotkeyBackend.h"

#include <gmock/gmock.h>

#include <vector>

namespace skipnest::test {

class RecordingHotkeyEvents final : public platform::HotkeyEvents {
public:
    platform::HotkeyHandling hotkeyPressed(platform::HotkeyIdentifier id,
                                           platform::Instant) override {
        pressed.push_back(id.value);
        return platform::HotkeyHandling::handled;
    }
    void refusedHotkeysMayBeFree() override { ++freed; }

    std::vector<std::uint32_t> pressed;
    int freed = 0;
};

// What every HotkeyBackend promises. `Desk` gives a backend and a keyboard:
//     platform::HotkeyBackend& hotkeys();
//     void press(std::uint16_t keyCode, std::uint32_t carbonModifiers); // and lets it arrive
//     // Another program takes the combo.
//     void takeAway(std::uint16_t keyCode, std::uint32_t carbonModifiers);
template <typename Desk> class HotkeyContract : public testing::Test {
protected:
    static constexpr std::uint32_t controlOption =
        platform::CarbonModifiers::control | platform::CarbonModifiers::option;
    static constexpr platform::HotkeyRequest j{{1}, 38, controlOption};
    static constexpr platform::HotkeyRequest k{{2}, 40, controlOption};

    void SetUp() override { ASSERT_EQ(desk_.hotkeys().installHandler(&events_), 0); }
    void TearDown() override { (void)desk_.hotkeys().installHandler(nullptr); }
    void press(const platform::HotkeyRequest& combo) {
        desk_.press(combo.keyCode, combo.carbonModifiers);
    }

    RecordingHotkeyEvents events_;
    Desk desk_;
};

TYPED_TEST_SUITE_P(HotkeyContract);

TYPED_TEST_P(HotkeyContract, answersEachRequestInOrderAndDeliversById) {
    this->desk_.takeAway(this->k.keyCode, this->k.carbonModifiers);
    const auto answers = this->desk_.hotkeys().registerHotkeys({this->k, this->j});
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_NE(answers[0].status, 0);
    EXPECT_FALSE(answers[0].grab);
    EXPECT_EQ(answers[1].status, 0);
    EXPECT_TRUE(answers[1].grab);
    this->press(this->k);
    this->press(this->j);
    EXPECT_THAT(this->events_.pressed, testing::ElementsAre(1));
}

TYPED_TEST_P(HotkeyContract, modifiersMustMatchExactly) {
    const auto answers = this->desk_.hotkeys().registerHotkeys({this->j});
    this->desk_.press(this->j.keyCode, platform::CarbonModifiers::control);
    this->desk_.press(this->j.keyCode, this->controlOption | platform::CarbonModifiers::shift);
    EXPECT_THAT(this->events_.pressed, testing::IsEmpty());
}

TYPED_TEST_P(HotkeyContract, aDroppedGrabIsFreeAtOnce) {
    auto answers = this->desk_.hotkeys().registerHotkeys({this->j});
    answers.clear();
    this->press(this->j);
    EXPECT_THAT(this->events_.pressed, testing::IsEmpty());
    const auto again = this->desk_.hotkeys().registerHotkeys({{{7}, 38, this->controlOption}});
    EXPECT_EQ(again.front().status, 0);
    this->press(this->j);
    EXPECT_THAT(this->events_.pressed, testing::ElementsAre(7));
}

REGISTER_TYPED_TEST_SUITE_P(HotkeyContract, answersEachRequestInOrderAndDeliversById,
                            modifiersMustMatchExactly, aDroppedGrabIsFreeAtOnce);

} // namespace skipnest::test
