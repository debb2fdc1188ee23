// SPDX-License-Identifier: Apache-2.0
#include "tests/e2e/Waiting.h"

#include <thread>

namespace skipnest::e2e {

bool eventually(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    const auto deadline = Clock::now() + limit;
    while (!condition()) {
        if (Clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

} // namespace skipnest::e2e
