// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/SocketPeer.h"

#include <sys/socket.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {

bool SocketPeer::isSameUser(std::intptr_t socketDescriptor) const {
    ucred peer{};
    socklen_t size = sizeof peer;
    // A socket of another family answers too, with pid 0 and uid -1.
    return ::getsockopt(static_cast<int>(socketDescriptor), SOL_SOCKET, SO_PEERCRED, &peer,
                        &size) == 0 &&
           size == sizeof peer && peer.pid > 0 && peer.uid == ::geteuid();
}

} // namespace skipnest::linuxdesktop
