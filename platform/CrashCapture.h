// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Result.h"

#include <QString>

namespace skipnest::platform {

// Writes a record of how the program ended when it ends by a fatal signal or an uncaught exception.
// The record is one JSON object: `type` ("exception" or "signal"), `name` ("SIGSEGV",
// "std::bad_alloc"), `reason` (exceptions only; the kind of exception, never its text, which may
// hold a path or a name) and `stack`: one line a frame, "MODULE+0xOFFSET", MODULE being a file name
// without its folder.
class CrashCapture {
public:
    virtual ~CrashCapture() = default;

    // Unavailable where a sanitizer watches the program, which reports better.
    [[nodiscard]] virtual Availability availability() const = 0;
    // From now on a crash leaves its record in this file; an existing record of an earlier run is
    // kept until a new crash replaces it. The folder must exist then. Called once.
    virtual Outcome install(const QString& recordFile) = 0;
};

} // namespace skipnest::platform
