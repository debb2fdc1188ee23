// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Observers.h"
#include "platform/Ports.h"

#include <QString>

#include <functional>
#include <vector>

namespace skipnest::app {

// What other processes may set off for tests, by the notification "com.skipnest.debug." and the
// hook's name. Only where the person has made the marker file "Skipnest-debughooks" in the folder
// of the debug log: without it nothing listens.
class DebugHooks {
public:
    struct Hook {
        QString name;
        std::function<void(const QString& object)> run;
    };

    // Called once, at start.
    void install(const platform::Ports& ports, std::vector<Hook> hooks);

private:
    std::vector<platform::Observation> observers_;
};

} // namespace skipnest::app
