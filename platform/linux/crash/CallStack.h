// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <atomic>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <span>

namespace skipnest::linuxdesktop {

// Where a thread was, innermost first, as addresses in this process. Of a caller the address lies
// within the instruction that calls, so that it names the line of the call. Everything here may run
// in a signal handler. Frames are there as soon as they are found: a handler that interrupts a
// walk, because the stack was no stack any more, finds those before.
class CallStack {
public:
    static constexpr std::size_t most = 64;

    // The unwinder prepares itself at its first walk, which allocates and takes locks: once, before
    // a walk in a handler.
    static void prepare();

    // The callers of a function that is running, from `returnAddress` on, to which it returns.
    void walkFrom(const void* returnAddress);
    // The thread that this signal has interrupted; for its handler, `context` being the handler's
    // third argument. The place itself is always the first frame.
    void walkInterrupted(const siginfo_t& info, void* context);

    [[nodiscard]] std::span<const std::uintptr_t> addresses() const {
        return {addresses_.data(), size_.load(std::memory_order_acquire)};
    }

private:
    struct Walk;

    bool add(std::uintptr_t address);
    void walk(std::uintptr_t from);

    std::array<std::uintptr_t, most> addresses_{};
    std::atomic<std::size_t> size_ = 0;
};

} // namespace skipnest::linuxdesktop
