// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/StatusItem.h"
#include "tests/x11/XSession.h"

#include <chrono>

namespace skipnest::tests {

// What came of the person's doings at the icon.
struct Events final : platform::StatusItemEvents {
    void statusItemClicked() override { ++clicks; }
    void statusMenuChosen(int id) override { chosen.push_back(id); }
    void dropped(const QStringList& urls) override { urlsDropped += urls; }

    int clicks = 0;
    std::vector<int> chosen;
    QStringList urlsDropped;
};

// What comes now is no second half of the click before.
[[nodiscard]] inline bool doubleClickPasses(platform::QtScheduler& scheduler) {
    const platform::Instant from = scheduler.now();
    return waitUntil(scheduler,
                     [&] { return scheduler.now() - from > std::chrono::milliseconds(450); });
}

} // namespace skipnest::tests
