// SPDX-License-Identifier: Apache-2.0
#include "extension/host/Relay.h"

#include "platform/BrowserExtension.h"
#include "platform/linux/SocketPeer.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace skipnest::browserhost {

using namespace std::chrono_literals;
using linuxdesktop::FileDescriptor;
using platform::Duration;

namespace {

constexpr Duration shortestPause = 1s;
// Looking for a socket that is not there costs next to nothing, and an agent that has just started
// should not be without tabs for long.
constexpr Duration longestPause = 10s;
constexpr qsizetype chunk = 65'536;

void makeNonBlocking(int descriptor) {
    ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) | O_NONBLOCK);
}

bool mayComeLater() {
    return errno == EAGAIN || errno == EINTR;
}

// Bytes read, 0 where there is nothing now, -1 where there never will be.
qsizetype readInto(int descriptor, platform::MessageReader& reader) {
    std::array<char, chunk> bytes;
    const ssize_t count = ::read(descriptor, bytes.data(), bytes.size());
    if (count > 0)
        reader.append(bytes.data(), count);
    if (count == 0 || (count < 0 && !mayComeLater()))
        return -1;
    return std::max<qsizetype>(count, 0);
}

// False where the other end is gone.
bool writeFrom(int descriptor, QByteArray& bytes) {
    const ssize_t count =
        ::write(descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (count < 0)
        return mayComeLater();
    bytes.remove(0, count);
    return true;
}

FileDescriptor connectedTo(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(name.size()) >= sizeof address.sun_path)
        return {};
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // Local sockets connect at once or, with a full queue, not at all.
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        !linuxdesktop::SocketPeer().isSameUser(socket.get()))
        return {};
    return socket;
}

} // namespace

Relay::Relay(int input, int output, QString socketPath, const platform::Scheduler& clock)
    : input_(input), output_(output), socketPath_(std::move(socketPath)), clock_(clock),
      fromBrowser_(platform::longestTabsAnswer), fromAgent_(platform::longestTabsRequest),
      pause_(shortestPause), nextAttempt_(clock.now()) {
    makeNonBlocking(input_);
    makeNonBlocking(output_);
}

Relay::End Relay::run() {
    for (;;) {
        if (!agent_ && clock_.now() >= nextAttempt_)
            connectToAgent();
        const auto wants = [](bool reading, bool writing) {
            return static_cast<short>((reading ? POLLIN : 0) | (writing ? POLLOUT : 0));
        };
        std::array<pollfd, 3> ends{{
            {input_, wants(toAgent_.isEmpty(), false), 0},
            {toBrowser_.isEmpty() ? -1 : output_, wants(false, true), 0},
            {agent_.get(), wants(toBrowser_.isEmpty(), !toAgent_.isEmpty()), 0},
        }};
        if (::poll(ends.data(), ends.size(), agent_ ? -1 : untilNextAttempt()) < 0 &&
            errno != EINTR)
            return End::browserClosed;
        if (ends[2].revents & POLLOUT)
            writeAgent();
        if (agent_ && (ends[2].revents & ~POLLOUT) != 0)
            readAgent();
        if (ends[1].revents != 0 && !writeBrowser())
            return End::browserClosed;
        if (ends[0].revents != 0 && !readBrowser())
            return fromBrowser_.isBroken() ? End::browserBroken : End::browserClosed;
    }
}

void Relay::connectToAgent() {
    agent_ = connectedTo(socketPath_);
    if (!agent_) {
        nextAttempt_ = clock_.now() + pause_;
        pause_ = std::min(2 * pause_, longestPause);
        return;
    }
    fromAgent_ = platform::MessageReader(platform::longestTabsRequest);
    toAgent_ = platform::framedMessage(QByteArrayLiteral("{\"hello\":1}"));
}

void Relay::loseAgent() {
    agent_ = {};
    toAgent_.clear();
    nextAttempt_ = clock_.now() + pause_;
    pause_ = std::min(2 * pause_, longestPause);
}

int Relay::untilNextAttempt() const {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(nextAttempt_ - clock_.now());
    return static_cast<int>(std::max<qint64>(left.count(), 0));
}

bool Relay::readBrowser() {
    if (readInto(input_, fromBrowser_) < 0)
        return false;
    while (const auto message = fromBrowser_.next()) {
        if (agent_)
            toAgent_ += platform::framedMessage(*message);
    }
    return !fromBrowser_.isBroken();
}

bool Relay::writeBrowser() {
    return writeFrom(output_, toBrowser_);
}

void Relay::readAgent() {
    const bool gone = readInto(agent_.get(), fromAgent_) < 0;
    while (const auto message = fromAgent_.next()) {
        // An agent that speaks is one to come back to soon.
        pause_ = shortestPause;
        toBrowser_ += platform::framedMessage(*message);
    }
    if (gone || fromAgent_.isBroken())
        loseAgent();
}

void Relay::writeAgent() {
    if (!writeFrom(agent_.get(), toAgent_))
        loseAgent();
}

} // namespace skipnest::browserhost
