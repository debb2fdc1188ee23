// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <csignal>
#include <string_view>

namespace skipnest::linuxdesktop {

// By which a program ends that has done something it must not.
struct FatalSignal {
    int number;
    std::string_view name;
};

constexpr std::array<FatalSignal, 6> fatalSignals{{
    {SIGABRT, "SIGABRT"},
    {SIGILL, "SIGILL"},
    {SIGSEGV, "SIGSEGV"},
    {SIGFPE, "SIGFPE"},
    {SIGBUS, "SIGBUS"},
    {SIGTRAP, "SIGTRAP"},
}};

// What is done about these signals in this process. All but catchAll() is for their handler.
class FatalSignals {
public:
    using Handler = void (*)(int number, siginfo_t* info, void* context);

    // The handler runs on the thread's alternate stack where it has one. Only these six interrupt
    // it, so that a fault of its own reaches it as well.
    void catchAll(Handler handler);

    [[nodiscard]] static std::string_view nameOf(int number);
    // Calls what was there before us, if anything. Where that returns, so does this.
    void callPrevious(int number, siginfo_t* info, void* context) const;
    // The end that the signal brings by itself, with its exit status and core dump. Returns only
    // where the handler of this very signal then has to return: the instruction that it interrupted
    // fails again, and the dump shows that place.
    static void endBy(int number, siginfo_t* info);
    // The same from anywhere else.
    [[noreturn]] static void endHere(int number, siginfo_t* info);

private:
    std::array<struct sigaction, fatalSignals.size()> previous_{};
};

} // namespace skipnest::linuxdesktop
