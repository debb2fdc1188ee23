// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/CrashCapture.h"

#include <memory>

namespace skipnest::linuxdesktop {

// The record is written by the handlers of the fatal signals and of std::terminate, from what
// install() has made ready: they allocate nothing, take no lock, and then let the program end as it
// would have without them: by the handler that was there before, by the signal's own action last.
// Installed for the whole process and for good; the thread that installs it gets an alternate
// stack, other threads of ours by ensureAlternateStack().
//
// A crash while a crash is looked at, because the stack is destroyed, leaves a record of what was
// found until then. Only the first crash of a run is recorded, and none of a forked child.
//
// The one of this build: unavailable where a sanitizer watches the program.
[[nodiscard]] std::unique_ptr<platform::CrashCapture> makeCrashCapture();

} // namespace skipnest::linuxdesktop
