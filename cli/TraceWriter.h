// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cli/TraceEvents.h"

#include <QByteArray>

#include <functional>

namespace skipnest::cli::trace {

// Writes events so that TraceReader reads the same ones back, with two changes. Keys lose what they
// were: of a key without a hotkey only that there was one may leave the machine. And time never
// runs backwards: key events carry the time at which the system saw them, which may be a little
// before what was written last.
class TraceWriter {
public:
    using WriteLine = std::function<void(const QByteArray&)>;

    // Code of a key whose identity is withheld.
    static constexpr std::uint16_t withheldKey = 65535;

    // Instants are counted from `start`, which becomes 0 of the trace. `writeLine` gets one line
    // without its line break.
    TraceWriter(platform::Instant start, WriteLine writeLine);

    void write(platform::Instant at, const What& what);

private:
    platform::Instant start_;
    platform::Instant last_;
    WriteLine writeLine_;
};

// The event without its time, as the file has it.
[[nodiscard]] QJsonObject toJson(const What& what);

} // namespace skipnest::cli::trace
