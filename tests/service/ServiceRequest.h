// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"

#include <QByteArray>

#include <map>
#include <optional>

namespace skipnest::tests {

// An HTTP/1.1 request as it came over the wire.
struct ServiceRequest {
    QByteArray method;
    QByteArray path;
    QByteArray query;                         // without the "?"
    std::map<QByteArray, QByteArray> headers; // names in lower case
    QByteArray body;

    [[nodiscard]] QByteArray header(const QByteArray& name) const;
};

// Nothing while bytes are missing; fails where they are no request. A body needs a Content-Length.
[[nodiscard]] platform::Result<std::optional<ServiceRequest>>
readRequest(const QByteArray& received);

} // namespace skipnest::tests
