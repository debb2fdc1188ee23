// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Owned.h"
#include "platform/Result.h"
#include "platform/RunningApplication.h"

#include <cstdint>
#include <optional>

namespace skipnest::platform {

using InstanceToken = Owned<struct InstanceTokenTag>;

// Which process is the agent. The system releases both tokens when a process ends, however it ends.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;

    // Only one starting process at a time gets past this; waits up to 10 s for the others.
    [[nodiscard]] virtual Result<InstanceToken> enterStart() = 0;
    // Becomes the agent; fails with `refused` while another process is.
    [[nodiscard]] virtual Result<InstanceToken> acquire() = 0;
    // The process that is the agent, if any, checked to be this program.
    [[nodiscard]] virtual std::optional<ProcessIdentifier> holder() const = 0;
    // Ends the holder without its cooperation.
    virtual Outcome endHolder(Termination termination) = 0;
};

// Who is at the other end of a local socket.
class PeerCredentials {
public:
    virtual ~PeerCredentials() = default;
    [[nodiscard]] virtual bool isSameUser(std::intptr_t socketDescriptor) const = 0;
};

} // namespace skipnest::platform
