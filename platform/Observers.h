// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Owned.h"

#include <algorithm>
#include <cstddef>
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
        auto entry = std::make_shared<Entry>(Entry{std::move(callback)});
        state_->entries.push_back(entry);
        return Observation([weak = std::weak_ptr<State>(state_), entry] {
            entry->isObserving = false;
            if (const auto state = weak.lock(); state && state->running == 0)
                state->sweep();
        });
    }

    // Allocates nothing: every X event and key press passes through here.
    void notify(Args... args) const {
        const std::shared_ptr<State> state = state_;
        ++state->running;
        const std::size_t told = state->entries.size();
        for (std::size_t i = 0; i < told; ++i) {
            if (state->entries[i]->isObserving)
                state->entries[i]->callback(args...);
        }
        if (--state->running == 0)
            state->sweep();
    }

    [[nodiscard]] bool empty() const {
        return std::ranges::none_of(state_->entries,
                                    [](const auto& entry) { return entry->isObserving; });
    }

private:
    struct Entry {
        Callback callback;
        bool isObserving = true;
    };
    struct State {
        // One that is removed while notifications run stays until they are over: it may be the one
        // that is running.
        std::vector<std::shared_ptr<Entry>> entries;
        int running = 0;

        void sweep() {
            // Destroyed last: what a callback holds may remove further observations.
            std::vector<std::shared_ptr<Entry>> removed;
            std::erase_if(entries, [&removed](const auto& entry) {
                if (!entry->isObserving)
                    removed.push_back(entry);
                return !entry->isObserving;
            });
        }
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace skipnest::platform
