// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Ports.h"

#include <QString>
#include <QStringList>

namespace skipnest::platform {

// One desktop behind the ports. Owns all of them.
class Backend {
public:
    virtual ~Backend() = default;

    [[nodiscard]] virtual const Ports& ports() const = 0;
    // What the program runs on, for status and bug reports: "x11", "wayland", "headless".
    [[nodiscard]] virtual QString session() const = 0;
    // Named timers that run now.
    [[nodiscard]] virtual QStringList runningTimers() const = 0;
};

} // namespace skipnest::platform
