// SPDX-License-Identifier: Apache-2.0
#include "platform/FramedMessages.h"

#include <cstring>

namespace skipnest::platform {
namespace {

constexpr qsizetype headSize = sizeof(quint32);

} // namespace

QByteArray framedMessage(const QByteArray& message) {
    const auto length = static_cast<quint32>(message.size());
    QByteArray framed(headSize + message.size(), Qt::Uninitialized);
    std::memcpy(framed.data(), &length, headSize);
    std::memcpy(framed.data() + headSize, message.constData(),
                static_cast<std::size_t>(message.size()));
    return framed;
}

void MessageReader::append(const char* bytes, qsizetype count) {
    if (isBroken_)
        return;
    // Before it grows, so that a burst of messages is moved once and not once a message.
    received_.remove(0, taken_);
    taken_ = 0;
    received_.append(bytes, count);
}

std::optional<QByteArray> MessageReader::next() {
    const qsizetype left = received_.size() - taken_;
    if (isBroken_ || left < headSize)
        return std::nullopt;
    quint32 length = 0;
    std::memcpy(&length, received_.constData() + taken_, headSize);
    if (length == 0 || length > static_cast<std::size_t>(longest_)) {
        isBroken_ = true;
        received_.clear();
        return std::nullopt;
    }
    if (left - headSize < static_cast<qsizetype>(length))
        return std::nullopt;
    QByteArray message = received_.mid(taken_ + headSize, static_cast<qsizetype>(length));
    taken_ += headSize + static_cast<qsizetype>(length);
    // One long message is no reason to hold on to its room.
    if (taken_ == received_.size()) {
        received_ = QByteArray();
        taken_ = 0;
    }
    return message;
}

} // namespace skipnest::platform
