// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hotkeys/Reactivation.h"
#include "platform/Ports.h"
#include "platform/ScriptRunner.h"

#include <QString>

namespace skipnest::hotkeys {

// Steps through the windows of the application in front by minimising them one after the other
// (next) and bringing them back (previous), through a script that the application answers itself.
class WindowCycler {
public:
    explicit WindowCycler(const platform::Ports& ports);

    void cycle(platform::CycleDirection direction);

    // The script text for one application and direction. Applications name the property
    // differently, so three spellings are tried in turn.
    [[nodiscard]] static QString script(const QString& bundleIdentifier,
                                        platform::CycleDirection direction);

private:
    platform::Ports ports_;
    Reactivation reactivation_;
};

} // namespace skipnest::hotkeys
