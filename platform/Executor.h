// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace skipnest::platform {

// Work off the main thread. `done` runs on the main thread after `work` has returned; it is dropped
// together with the executor. `work` must own what it touches: it may outlive the caller's
// interest.
class Executor {
public:
    using Work = std::function<void()>;

    virtual ~Executor() = default;

    // Any number at once, in no particular order.
    virtual void background(Work work, Work done) = 0;
    // One at a time, in the order given.
    virtual void serial(Work work, Work done) = 0;
};

} // namespace skipnest::platform
