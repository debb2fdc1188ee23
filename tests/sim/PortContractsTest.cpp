// SPDX-License-Identifier: Apache-2.0
#include "platform/QtScheduler.h"
#include "platform/sim/SimDesktop.h"
#include "tests/contract/HotkeyContract.h"
#include "tests/contract/SchedulerContract.h"

#include <QEventLoop>

namespace skipnest::test {
namespace {

class QtDesk {
public:
    platform::Scheduler& scheduler() { return scheduler_; }
    void pass(platform::Duration duration) {
        QEventLoop loop;
        const auto end = scheduler_.after(duration, "end of the wait", [&loop] { loop.quit(); });
        loop.exec();
    }

private:
    platform::QtScheduler scheduler_;
};

class VirtualDesk {
public:
    platform::Scheduler& scheduler() { return desk_.scheduler(); }
    void pass(platform::Duration duration) { desk_.advance(duration); }
    platform::HotkeyBackend& hotkeys() { return desk_.hotkeys(); }
    void press(std::uint16_t keyCode, std::uint32_t modifiers) {
        desk_.pressHotkey({keyCode, modifiers});
    }
    void takeAway(std::uint16_t keyCode, std::uint32_t modifiers) {
        desk_.hotkeys().refuse({keyCode, modifiers}, 10);
    }

private:
    sim::SimDesktop desk_;
};

using Schedulers = testing::Types<QtDesk, VirtualDesk>;
INSTANTIATE_TYPED_TEST_SUITE_P(Any, SchedulerContract, Schedulers);
INSTANTIATE_TYPED_TEST_SUITE_P(Sim, HotkeyContract, VirtualDesk);

} // namespace
} // namespace skipnest::test
