// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

#include <optional>

namespace skipnest::platform {

// Messages the way browsers send them to programs: the length in bytes as 4 bytes in this machine's
// order, then that many bytes.
[[nodiscard]] QByteArray framedMessage(const QByteArray& message);

// Takes a stream apart again, however it arrives. A length of nothing or above the limit breaks the
// stream for good: where the next message would begin is unknown.
class MessageReader {
public:
    explicit MessageReader(qsizetype longest) : longest_(longest) {}

    void append(const char* bytes, qsizetype count);
    // The next whole message, if there is one.
    [[nodiscard]] std::optional<QByteArray> next();
    [[nodiscard]] bool isBroken() const { return isBroken_; }

private:
    qsizetype longest_;
    QByteArray received_;
    qsizetype taken_ = 0; // bytes at the front that have been handed out
    bool isBroken_ = false;
};

} // namespace skipnest::platform
