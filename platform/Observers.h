// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Owned.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace skipnest::platform {

using Observation = Owned<struct ObservationTag>;

// A list of callbacks that survives what observers do while they are being told: remove themselves,
// remove each other, add new ones (told from the next notification on), or destroy the list's
// owner.
template <typename... Args> class Observers {
public:
    using Callback = std::function<void(Args...)>;

    Observation add(Callback callback) {
        const std::uint64_t id = ++state_->lastId;
        state_->entries.push_back({id, std::make_shared<Callback>(std::move(callback))});
        return Observation([weak = std::weak_ptr<State>(state_), id] {
            if (const auto state = weak.lock())
                std::erase_if(state->entries, [id](const Entry& entry) { return entry.id == id; });
        });
    }

    void notify(Args... args) const {
        const std::shared_ptr<State> state = state_;
        const std::vector<Entry> told = state->entries;
        for (const Entry& entry : told) {
            const bool stillThere = std::ranges::any_of(
                state->entries, [&entry](const Entry& other) { return other.id == entry.id; });
            if (stillThere)
                (*entry.callback)(args...);
        }
    }

    [[nodiscard]] bool empty() const { return state_->entries.empty(); }

private:
    struct Entry {
        std::uint64_t id;
        std::shared_ptr<Callback> callback;
    };
    struct State {
        std::uint64_t lastId = 0;
        std::vector<Entry> entries;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace skipnest::platform
