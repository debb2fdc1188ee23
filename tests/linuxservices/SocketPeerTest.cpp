// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/SocketPeer.h"

#include <gtest/gtest.h>

#include <array>

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

TEST(SocketPeerTest, onlyALocalSocketOfThisUserIsTrusted) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
    const int tcp = ::socket(AF_INET, SOCK_STREAM, 0);
    const SocketPeer peer;
    EXPECT_TRUE(peer.isSameUser(ends[0]));
    EXPECT_FALSE(peer.isSameUser(tcp));
    EXPECT_FALSE(peer.isSameUser(-1));
    if (::geteuid() == 0) {
        const pid_t other = ::fork(); // the same socket, seen by another user
        if (other == 0)
            ::_exit(::seteuid(65534) == 0 && !peer.isSameUser(ends[0]) ? 0 : 1);
        int status = 0;
        ::waitpid(other, &status, 0);
        EXPECT_EQ(status, 0);
    }
    for (const int descriptor : {ends[0], ends[1], tcp})
        ::close(descriptor);
}

} // namespace
} // namespace skipnest::linuxdesktop
