// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <compare>
#include <cstdint>

namespace skipnest::platform {

struct ProcessIdentifier {
    std::int64_t value = -1;
    auto operator<=>(const ProcessIdentifier&) const = default;
};

// One running application as it was when asked. On Linux it is a group of windows with one
// application id, and `pid` that of its most recent window.
struct RunningApplication {
    ProcessIdentifier pid;
    QString bundleIdentifier; // empty where unknown
    QString bundlePath;       // the application's path (".app", ".desktop"); empty where unknown
    QString name;             // localised display name

    bool operator==(const RunningApplication&) const = default;
};

struct ApplicationState {
    bool active = false;     // it is in front
    bool hidden = false;     // none of its windows shows
    bool terminated = false; // its process has ended; the other two are then false
};

enum class ActivationOption { none, allWindows, ignoringOtherApps };
enum class Termination { polite, forced };

} // namespace skipnest::platform
