// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace skipnest::linuxdesktop {

// A second stack for the thread that makes it, on which the handlers of fatal signals run: a thread
// whose own stack has run over has none left for them, and would end without a record. One that the
// thread has already, of a library or a sanitizer, stays. Belongs to that thread: made and
// destroyed on it. Its memory is taken when a handler first runs there.
class AlternateStack {
public:
    AlternateStack();
    ~AlternateStack();
    AlternateStack(const AlternateStack&) = delete;
    AlternateStack& operator=(const AlternateStack&) = delete;

private:
    void* memory_ = nullptr; // with a page below it that cannot be touched
    std::size_t size_ = 0;
};

// The calling thread has one from now on, until it ends. For every thread that is ours, first thing
// or before each piece of work: calling it again costs nothing.
void ensureAlternateStack();

} // namespace skipnest::linuxdesktop
