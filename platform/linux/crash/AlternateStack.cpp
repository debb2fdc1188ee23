// SPDX-License-Identifier: Apache-2.0
#include "platform/linux/crash/AlternateStack.h"

#include <algorithm>

#include <csignal>
#include <sys/mman.h>
#include <unistd.h>

namespace skipnest::linuxdesktop {
namespace {

// What the kernel puts there alone is up to 11 KB with the widest registers; unwinding takes some
// 5 KB, and a fault in the middle of it starts over further down.
constexpr std::size_t smallest = std::size_t{64} * 1024;

} // namespace

AlternateStack::AlternateStack() {
    stack_t known = {};
    if (::sigaltstack(nullptr, &known) != 0 || (known.ss_flags & SS_DISABLE) == 0)
        return;
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const long asked = ::sysconf(_SC_SIGSTKSZ);
    const std::size_t wanted =
        std::max(smallest, asked > 0 ? 2 * static_cast<std::size_t>(asked) : 0);
    size_ = (wanted + page - 1) / page * page + page;
    memory_ = ::mmap(nullptr, size_, PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK | MAP_NORESERVE, -1, 0);
    if (memory_ == MAP_FAILED) {
        memory_ = nullptr;
        return;
    }
    (void)::mprotect(memory_, page, PROT_NONE);
    stack_t ours = {};
    ours.ss_sp = static_cast<std::byte*>(memory_) + page;
    ours.ss_size = size_ - page;
    (void)::sigaltstack(&ours, nullptr);
}

AlternateStack::~AlternateStack() {
    if (!memory_)
        return;
    stack_t none = {};
    none.ss_flags = SS_DISABLE;
    // Refused while a handler runs on it: then it has to stay.
    if (::sigaltstack(&none, nullptr) == 0)
        (void)::munmap(memory_, size_);
}

void ensureAlternateStack() {
    thread_local const AlternateStack stack;
    (void)stack;
}

} // namespace skipnest::linuxdesktop
