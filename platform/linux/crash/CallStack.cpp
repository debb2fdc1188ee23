// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/CallStack.h"

#include <ucontext.h>
#include <unwind.h>

namespace skipnest::linuxdesktop {
namespace {

// The registers of an interrupted thread that a walk begins with.
#if defined(__x86_64__)
std::uintptr_t programCounter(const ucontext_t& context) {
    return static_cast<std::uintptr_t>(context.uc_mcontext.gregs[REG_RIP]);
}

// As if the function that was called just now had returned.
void leaveFunction(ucontext_t& context) {
    auto& registers = context.uc_mcontext.gregs;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a register has no other type
    const auto* top = reinterpret_cast<const greg_t*>(registers[REG_RSP]);
    registers[REG_RIP] = *top;
    registers[REG_RSP] += static_cast<greg_t>(sizeof *top);
}
#elif defined(__aarch64__)
std::uintptr_t programCounter(const ucontext_t& context) {
    return context.uc_mcontext.pc;
}

void leaveFunction(ucontext_t& context) {
    constexpr int linkRegister = 30;
    context.uc_mcontext.pc = context.uc_mcontext.regs[linkRegister];
}
#else
#error "Name the registers of this processor."
#endif

} // namespace

// Takes the frames outside the one that `from` lies in; those inside it are the walk's own.
struct CallStack::Walk {
    CallStack& stack;
    std::uintptr_t from;
    bool isReached = false;
};

bool CallStack::add(std::uintptr_t address) {
    const std::size_t count = size_.load(std::memory_order_relaxed);
    if (count == most)
        return false;
    addresses_[count] = address;
    size_.store(count + 1, std::memory_order_release);
    return count + 1 < most;
}

void CallStack::walk(std::uintptr_t from) {
    Walk walk{*this, from};
    const auto visit = [](_Unwind_Context* context, void* data) -> _Unwind_Reason_Code {
        auto& now = *static_cast<Walk*>(data);
        int isInterrupted = 0;
        const std::uintptr_t address = _Unwind_GetIPInfo(context, &isInterrupted);
        if (!now.isReached) {
            now.isReached = address == now.from;
            return _URC_NO_REASON;
        }
        if (address == 0)
            return _URC_END_OF_STACK;
        return now.stack.add(isInterrupted != 0 ? address : address - 1) ? _URC_NO_REASON
                                                                         : _URC_END_OF_STACK;
    };
    (void)_Unwind_Backtrace(visit, &walk);
}

void CallStack::prepare() {
    CallStack discarded;
    discarded.walkFrom(__builtin_return_address(0));
}

void CallStack::walkFrom(const void* returnAddress) {
    const auto from = reinterpret_cast<std::uintptr_t>(returnAddress);
    (void)add(from - 1);
    walk(from);
}

void CallStack::walkInterrupted(const siginfo_t& info, void* context) {
    auto& registers = *static_cast<ucontext_t*>(context);
    const std::uintptr_t place = programCounter(registers);
    (void)add(place);
    const bool isCallToNowhere =
        info.si_signo == SIGSEGV && reinterpret_cast<std::uintptr_t>(info.si_addr) == place;
    if (!isCallToNowhere)
        return walk(place);
    // Nothing tells how to unwind from where no code is, but its caller is known. The unwinder
    // reads the very registers that the kernel will restore, so they are put back.
    const mcontext_t interrupted = registers.uc_mcontext;
    leaveFunction(registers);
    const std::uintptr_t caller = programCounter(registers);
    (void)add(caller - 1);
    walk(caller);
    registers.uc_mcontext = interrupted;
}

} // namespace skipnest::linuxdesktop
