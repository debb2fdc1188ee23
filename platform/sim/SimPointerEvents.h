// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/PointerEvents.h"

#include <functional>
#include <utility>

namespace skipnest::sim {

// The mouse of the simulated desktop.
class SimPointerEvents final : public platform::PointerEvents {
public:
    void clickOutside() const { clicked_.notify(); }
    [[nodiscard]] bool isObserved() const { return !clicked_.empty(); }

    [[nodiscard]] platform::Observation
    observeClicksOutside(std::function<void()> clicked) override {
        return clicked_.add(std::move(clicked));
    }

private:
    platform::Observers<> clicked_;
};

} // namespace skipnest::sim
