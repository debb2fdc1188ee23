// SPDX-License-Identifier: Apache-2.0
#include "tests/x11/XServer.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>

namespace skipnest::tests {
namespace {

constexpr int startMilliseconds = 20'000;

[[noreturn]] void becomeXvfb(int displayPipe) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (const int null = open("/dev/null", O_RDWR | O_CLOEXEC); null >= 0)
        dup2(null, STDERR_FILENO);
    const std::string pipe = std::to_string(displayPipe);
    // Without -noreset the server starts afresh whenever its last client leaves.
    execlp("Xvfb", "Xvfb", "-displayfd", pipe.c_str(), "-screen", "0", "1280x800x24", "-nolisten",
           "tcp", "-noreset", static_cast<char*>(nullptr));
    _exit(127);
}

// The line that Xvfb writes once clients can connect; empty when it ended or took too long.
QByteArray readLine(int descriptor) {
    QByteArray line;
    while (!line.endsWith('\n')) {
        pollfd waiting{descriptor, POLLIN, 0};
        std::array<char, 16> buffer{};
        if (poll(&waiting, 1, startMilliseconds) <= 0)
            return {};
        const ssize_t count = read(descriptor, buffer.data(), buffer.size());
        if (count <= 0)
            return {};
        line.append(buffer.data(), count);
    }
    return line.trimmed();
}

} // namespace

std::unique_ptr<XServer> XServer::start() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return nullptr;
    const pid_t process = fork();
    if (process == 0) {
        close(ends[0]);
        becomeXvfb(ends[1]);
    }
    close(ends[1]);
    const QByteArray number = process > 0 ? readLine(ends[0]) : QByteArray();
    close(ends[0]);
    if (process <= 0)
        return nullptr;
    std::unique_ptr<XServer> server(new XServer(process, ":" + number));
    return number.isEmpty() ? nullptr : std::move(server);
}

XServer::XServer(pid_t process, QByteArray display)
    : process_(process), display_(std::move(display)) {}

XServer::~XServer() {
    stop();
}

void XServer::stop() {
    if (process_ <= 0)
        return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
    process_ = 0;
}

} // namespace skipnest::tests
