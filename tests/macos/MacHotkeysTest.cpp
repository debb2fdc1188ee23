// SPDX-License-Identifier: Apache-2.0
#include "platform/macos/MacHotkeys.h"

#include "tests/macos/ManualScheduler.h"

#include <gmock/gmock.h>

#include <limits>
#include <set>

namespace skipnest::macos {
namespace {

using namespace std::chrono_literals;
using platform::HotkeyHandling;
using testing::ElementsAre;
using testing::IsEmpty;

class FakeCarbon final : public HotkeyBridge {
public:
    std::int32_t installHandler(Pressed pressed) override {
        ++installs;
        if (installStatus == 0)
            handler = std::move(pressed);
        return installStatus;
    }
    void removeHandler() override { handler = nullptr; }
    HotkeyAnswer registerHotkey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t) override {
        if (keyCode == takenKey)
            return {-9878, nullptr};
        if (keyCode == lostKey)
            return {0, nullptr};
        return {0, std::make_unique<Entry>(held, id)};
    }

    static constexpr std::uint32_t takenKey = 7;
    static constexpr std::uint32_t lostKey = 8;
    std::int32_t installStatus = 0;
    int installs = 0;
    Pressed handler;
    std::set<std::uint32_t> held;

private:
    class Entry final : public RegisteredHotkey {
    public:
        Entry(std::set<std::uint32_t>& entries, std::uint32_t id) : entries_(entries), id_(id) {
            entries_.insert(id);
        }
        ~Entry() override { entries_.erase(id_); }

    private:
        std::set<std::uint32_t>& entries_;
        std::uint32_t id_;
    };
};

class Presses final : public platform::HotkeyEvents {
public:
    HotkeyHandling hotkeyPressed(platform::HotkeyIdentifier id, platform::Instant at) override {
        ids.push_back(id.value);
        times.push_back(ManualScheduler::start - at);
        return id.value == known ? HotkeyHandling::handled : HotkeyHandling::notHandled;
    }
    void refusedHotkeysMayBeFree() override { ++mayBeFree; }

    static constexpr std::uint32_t known = 1;
    std::vector<std::uint32_t> ids;
    std::vector<platform::Duration> times;
    int mayBeFree = 0;
};

struct MacHotkeysTest : testing::Test {
    FakeCarbon carbon;
    ManualScheduler scheduler;
    MacHotkeys hotkeys{carbon, scheduler};
    Presses presses;
};

TEST_F(MacHotkeysTest, ABatchAnswersEachRequestAndHoldsOnlyWhatWasGranted) {
    auto answers = hotkeys.registerHotkeys({{{1}, 49, 0x100},
                                            {{2}, FakeCarbon::takenKey, 0},
                                            {{3}, FakeCarbon::lostKey, 0},
                                            {{4}, 50, 0}});
    ASSERT_EQ(answers.size(), 4U);
    EXPECT_EQ(answers[0].status, 0);
    EXPECT_EQ(answers[1].status, -9878);
    EXPECT_NE(answers[2].status, 0) << "success without a reference is no success";
    EXPECT_FALSE(answers[1].grab);
    EXPECT_FALSE(answers[2].grab);
    EXPECT_THAT(carbon.held, ElementsAre(1, 4));
    answers[0].grab.reset();
    EXPECT_THAT(carbon.held, ElementsAre(4));
    answers.clear();
    EXPECT_THAT(carbon.held, IsEmpty());
}

TEST_F(MacHotkeysTest, TheSystemLearnsWhetherAPressWasOurs) {
    ASSERT_EQ(hotkeys.installHandler(&presses), 0);
    EXPECT_TRUE(carbon.handler(Presses::known, 0.25));
    EXPECT_FALSE(carbon.handler(99, 0.0));
    EXPECT_THAT(presses.ids, ElementsAre(Presses::known, 99));
}

TEST_F(MacHotkeysTest, APressCarriesTheTimeTheSystemSawIt) {
    ASSERT_EQ(hotkeys.installHandler(&presses), 0);
    for (const double age : {0.25, 10.0, 10.5, -1.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_TRUE(carbon.handler(Presses::known, age));
    EXPECT_THAT(presses.times, ElementsAre(250ms, 10s, 0s, 0s, 0s));
}

TEST_F(MacHotkeysTest, AHandlerThatWasRefusedIsTriedAgainAndOneThatStandsIsKept) {
    carbon.installStatus = -50;
    EXPECT_EQ(hotkeys.installHandler(&presses), -50);
    carbon.installStatus = 0;
    EXPECT_EQ(hotkeys.installHandler(&presses), 0);
    EXPECT_EQ(hotkeys.installHandler(&presses), 0);
    EXPECT_EQ(carbon.installs, 2);
    EXPECT_EQ(hotkeys.installHandler(nullptr), 0);
    EXPECT_FALSE(carbon.handler) << "without events nothing may be called";
}

TEST_F(MacHotkeysTest, AnotherProgramsEndIsToldOnceAndOnlyAfterARefusal) {
    ASSERT_EQ(hotkeys.installHandler(&presses), 0);
    hotkeys.otherProgramEnded();
    EXPECT_EQ(scheduler.waiting(), 0U);
    EXPECT_EQ(hotkeys.registerHotkeys({{{2}, FakeCarbon::takenKey, 0}}).size(), 1U);
    hotkeys.otherProgramEnded();
    hotkeys.otherProgramEnded();
    EXPECT_EQ(presses.mayBeFree, 0) << "told from inside the notice";
    scheduler.runPosted();
    EXPECT_EQ(presses.mayBeFree, 1);
}

} // namespace
} // namespace skipnest::macos
