// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/FatalSignals.h"

#include <cstddef>

#include <sys/syscall.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

// A fault of the processor, and not a signal that somebody sent. After a trap the thread would go
// on behind the instruction.
bool isRepeated(int number, const siginfo_t& info) {
    return info.si_code > 0 && number != SIGTRAP && number != SIGABRT;
}

void restoreStandard(int number) {
    struct sigaction standard = {};
    standard.sa_handler = SIG_DFL;
    (void)::sigaction(number, &standard, nullptr);
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, number);
    (void)::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace

void FatalSignals::catchAll(Handler handler) {
    struct sigaction action = {};
    action.sa_sigaction = handler;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
    sigfillset(&action.sa_mask);
    for (const FatalSignal& signal : fatalSignals)
        sigdelset(&action.sa_mask, signal.number);
    for (std::size_t i = 0; i < fatalSignals.size(); ++i)
        (void)::sigaction(fatalSignals[i].number, nullptr, &previous_[i]);
    for (const FatalSignal& signal : fatalSignals)
        (void)::sigaction(signal.number, &action, nullptr);
}

std::string_view FatalSignals::nameOf(int number) {
    for (const FatalSignal& signal : fatalSignals) {
        if (signal.number == number)
            return signal.name;
    }
    return "unknown";
}

void FatalSignals::callPrevious(int number, siginfo_t* info, void* context) const {
    for (std::size_t i = 0; i < fatalSignals.size(); ++i) {
        if (fatalSignals[i].number != number)
            continue;
        const struct sigaction& previous = previous_[i];
        if ((previous.sa_flags & SA_SIGINFO) != 0)
            previous.sa_sigaction(number, info, context);
        // Ignored by whoever started us, a fault would end the program all the same.
        else if (previous.sa_handler != SIG_DFL && previous.sa_handler != SIG_IGN)
            previous.sa_handler(number);
    }
}

void FatalSignals::endBy(int number, siginfo_t* info) {
    if (!isRepeated(number, *info))
        endHere(number, info);
    restoreStandard(number);
}

void FatalSignals::endHere(int number, siginfo_t* info) {
    restoreStandard(number);
    // The signal as it came, so that a dump tells its cause.
    (void)::syscall(SYS_rt_tgsigqueueinfo, ::getpid(), ::gettid(), number, info);
    (void)::syscall(SYS_tgkill, ::getpid(), ::gettid(), number);
    constexpr int endedBySignal = 128;
    ::_exit(endedBySignal + number);
}

} // namespace skipnest::linuxdesktop
