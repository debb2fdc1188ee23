// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/TerminationSignals.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

constexpr std::array handled{SIGTERM, SIGINT, SIGHUP};

// All that a signal handler can reach.
std::atomic<int> writeEnd = -1;

void noteSignal(int) {
    const int interrupted = errno; // whoever was interrupted may be about to look at it
    const char byte = 0;
    // A full pipe has said it already.
    [[maybe_unused]] const ssize_t written = write(writeEnd, &byte, 1);
    errno = interrupted;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> terminate) {
    if (pipe2(pipe_, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    writeEnd = pipe_[1];
    notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this, terminate = std::move(terminate)] {
                         notifier_->setEnabled(false);
                         terminate();
                     });
    struct sigaction action = {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : handled)
        sigaction(signal, &action, nullptr);
}

TerminationSignals::~TerminationSignals() {
    for (const int signal : handled)
        std::signal(signal, SIG_DFL);
    writeEnd = -1;
    notifier_.reset();
    for (const int end : pipe_) {
        if (end >= 0)
            close(end);
    }
}

} // namespace skipnest::linuxdesktop
