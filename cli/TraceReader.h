// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "cli/TraceEvents.h"
#include "platform/Result.h"

#include <QByteArray>
#include <QIODevice>

#include <cstdint>
#include <optional>

namespace skipnest::cli::trace {

// Reads a trace, one JSON object a line, from any bytes. Blank lines count but say nothing; a byte
// order mark and CRLF are accepted. Every failure's detail begins with "line N: ".
class TraceReader {
public:
    static constexpr std::int64_t longestLine = 1 << 20;
    static constexpr std::int64_t largestTrace = 64 << 20;

    // `input` is open for reading and outlives the reader.
    explicit TraceReader(QIODevice& input) : input_(input) {}

    // The next event, nothing at the end. After a failure only the end follows. Fails with
    // `unavailable` for an event of the format that cannot be played yet, else `malformed` or
    // `tooLarge`.
    [[nodiscard]] platform::Result<std::optional<Event>> next();

    // The number of the line that was read last, from 1.
    [[nodiscard]] int line() const { return line_; }

private:
    [[nodiscard]] platform::Result<std::optional<QByteArray>> nextLine();
    [[nodiscard]] platform::Result<Event> read(const QByteArray& line);

    QIODevice& input_;
    int line_ = 0;
    std::int64_t bytes_ = 0;
    platform::Instant time_{}; // the latest that the trace has stated
    bool ended_ = false;
};

// One event as the reader understands it, without regard to the order of times.
[[nodiscard]] platform::Result<Event> eventFromJson(const QJsonObject& object);

} // namespace skipnest::cli::trace
