// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/HotkeyBackend.h"
#include "platform/InstanceLock.h"
#include "platform/Ports.h"

#include <functional>

namespace skipnest::app {

// Makes this process the agent. A running one is asked to hand over, which takes a few
// milliseconds and loses no key; one that does not answer is ended, and by force after two seconds.
class InstanceTakeover {
public:
    struct Taken {
        platform::InstanceToken agent; // kept for the whole run
        // Both are let go when this process has bound its keys and listens.
        platform::InstanceToken start;
        platform::KeyDeliveryHold keys;
    };
    using Completion = std::function<void(platform::Result<Taken>)>;

    explicit InstanceTakeover(const platform::Ports& ports) : ports_(ports) {}

    // Calls `completion` once, at once where nothing else runs.
    void begin(Completion completion);

private:
    [[nodiscard]] bool askToHandOver();
    [[nodiscard]] bool tryAcquire();
    void finish();
    void endHolderAndRetry();

    platform::Ports ports_;
    Completion completion_;
    Taken taken_;
    platform::Instant endingSince_;
    bool forced_ = false;
    platform::Timer retryTimer_;
};

} // namespace skipnest::app
