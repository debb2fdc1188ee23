// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace skipnest::platform {

// What a port can do on this machine, in this session. Every port answers; `skipnest doctor` and
// the settings show the answer as it stands. `reason` and `remedy` are whole English sentences and
// empty while the state is `available`.
struct Availability {
    enum class State { available, limited, unavailable };
    State state = State::available;
    QString reason;
    QString remedy;

    bool operator==(const Availability&) const = default;
};

} // namespace skipnest::platform
