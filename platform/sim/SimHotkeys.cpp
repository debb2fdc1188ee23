// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimHotkeys.h"

#include <algorithm>
#include <utility>

namespace skipnest::sim {

using platform::HotkeyHandling;
using platform::HotkeyRegistration;
using platform::HotkeyRequest;
using platform::Instant;

// Outlives the backend as long as grabs and holds do, which may be dropped after it.
struct SimHotkeys::State {
    struct Held {
        HotkeyCombo combo;
        Instant seen;
    };

    bool deliver(HotkeyCombo combo, Instant seen) {
        const auto found = std::ranges::find_if(grabs, [combo](const HotkeyRequest& grab) {
            return HotkeyCombo{grab.keyCode, grab.carbonModifiers} == combo;
        });
        if (!events || found == grabs.end())
            return false;
        return events->hotkeyPressed(found->id, seen) == HotkeyHandling::handled;
    }

    platform::HotkeyEvents* events = nullptr;
    std::vector<HotkeyRequest> grabs;
    int holds = 0;
    std::vector<Held> held;
};

SimHotkeys::SimHotkeys(platform::Scheduler& scheduler)
    : scheduler_(scheduler), state_(std::make_shared<State>()) {}

SimHotkeys::~SimHotkeys() {
    state_->events = nullptr;
}

bool SimHotkeys::press(HotkeyCombo combo, Instant seen) {
    if (state_->holds == 0)
        return state_->deliver(combo, seen);
    state_->held.push_back({combo, seen});
    return false;
}

void SimHotkeys::refuse(HotkeyCombo combo, std::int32_t status) {
    if (status != 0) {
        refusals_[combo] = status;
        return;
    }
    if (refusals_.erase(combo) == 0)
        return;
    scheduler_.post([state = state_] {
        if (state->events)
            state->events->refusedHotkeysMayBeFree();
    });
}

void SimHotkeys::setAvailability(const platform::Availability& availability) {
    availability_ = availability;
}

std::vector<HotkeyRequest> SimHotkeys::registered() const {
    return state_->grabs;
}

std::int32_t SimHotkeys::installHandler(platform::HotkeyEvents* events) {
    if (events && handlerStatus_ != 0)
        return handlerStatus_;
    state_->events = events;
    return 0;
}

std::vector<HotkeyRegistration>
SimHotkeys::registerHotkeys(const std::vector<HotkeyRequest>& requests) {
    std::vector<HotkeyRegistration> answers;
    answers.reserve(requests.size());
    for (const HotkeyRequest& request : requests)
        answers.push_back(registerOne(request));
    return answers;
}

HotkeyRegistration SimHotkeys::registerOne(const HotkeyRequest& request) {
    const HotkeyCombo combo{request.keyCode, request.carbonModifiers};
    if (const auto refused = refusals_.find(combo); refused != refusals_.end())
        return {refused->second, {}};
    const bool exists = std::ranges::any_of(state_->grabs, [combo](const HotkeyRequest& grab) {
        return HotkeyCombo{grab.keyCode, grab.carbonModifiers} == combo;
    });
    if (exists)
        return {alreadyRegistered, {}};
    state_->grabs.push_back(request);
    return {0, platform::HotkeyGrab([weak = std::weak_ptr<State>(state_), combo] {
                if (const auto state = weak.lock())
                    std::erase_if(state->grabs, [combo](const HotkeyRequest& grab) {
                        return HotkeyCombo{grab.keyCode, grab.carbonModifiers} == combo;
                    });
            })};
}

platform::KeyDeliveryHold SimHotkeys::holdKeyDelivery() {
    ++state_->holds;
    return platform::KeyDeliveryHold([state = state_, &scheduler = scheduler_] {
        if (--state->holds > 0 || !state->events)
            return;
        scheduler.post([state] {
            for (const State::Held& press : std::exchange(state->held, {}))
                state->deliver(press.combo, press.seen);
        });
    });
}

} // namespace skipnest::sim
