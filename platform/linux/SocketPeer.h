// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/InstanceLock.h"

namespace skipnest::linuxdesktop {

// The user at the other end of a local stream socket, as the kernel noted it at connect time.
class SocketPeer final : public platform::PeerCredentials {
public:
    // False where the kernel cannot say: a descriptor that is no connected local socket.
    [[nodiscard]] bool isSameUser(std::intptr_t socketDescriptor) const override;
};

} // namespace skipnest::linuxdesktop
