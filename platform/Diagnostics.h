// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::platform {

// The program's two outlets for what happened: lines of the debug log, and lines on standard output
// that begin with "[Skipnest] ". Neither is ever translated, and neither can fail visibly.
class Diagnostics {
public:
    virtual ~Diagnostics() = default;

    virtual void log(const QString& line) = 0;
    virtual void print(const QString& line) = 0;
};

} // namespace skipnest::platform
