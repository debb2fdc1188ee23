// SPDX-License-Identifier: Apache-2.0
#include "tests/service/ServiceRequest.h"

#include <QByteArrayList>

namespace skipnest::tests {
namespace {

platform::Failure malformed(const char* why) {
    return {platform::Failure::Kind::malformed, QString::fromLatin1(why)};
}

} // namespace

QByteArray ServiceRequest::header(const QByteArray& name) const {
    const auto found = headers.find(name);
    return found == headers.end() ? QByteArray() : found->second;
}

platform::Result<std::optional<ServiceRequest>> readRequest(const QByteArray& received) {
    constexpr qsizetype longestHead = 16 * 1024;
    // A TLS handshake, for one: its sender waits for an answer.
    if (!received.isEmpty() && (received[0] < 'A' || received[0] > 'Z'))
        return malformed("no HTTP");
    const qsizetype end = received.indexOf("\r\n\r\n");
    if (end < 0 && received.size() > longestHead)
        return malformed("no end of the headers");
    if (end < 0)
        return std::optional<ServiceRequest>();
    QByteArrayList lines = received.left(end).split('\n');
    for (QByteArray& line : lines)
        line = line.trimmed();
    const QByteArrayList start = lines.takeFirst().split(' ');
    if (start.size() != 3 || start[2] != "HTTP/1.1" || !start[1].startsWith('/'))
        return malformed("no HTTP/1.1 request line");

    ServiceRequest request;
    request.method = start[0];
    const qsizetype mark = start[1].indexOf('?');
    request.path = mark < 0 ? start[1] : start[1].left(mark);
    if (mark >= 0)
        request.query = start[1].mid(mark + 1);
    for (const QByteArray& line : lines) {
        const qsizetype colon = line.indexOf(':');
        if (colon < 1)
            return malformed("a header without name");
        const QByteArray name = line.left(colon).toLower();
        if (!request.headers.emplace(name, line.mid(colon + 1).trimmed()).second)
            return malformed("a header comes twice");
    }
    bool isNumber = true;
    const QByteArray length = request.header("content-length");
    const qsizetype bytes = length.isEmpty() ? 0 : length.toLongLong(&isNumber);
    if (!isNumber || bytes < 0)
        return malformed("no number as Content-Length");
    request.body = received.mid(end + 4);
    if (request.body.size() > bytes)
        return malformed("more bytes than announced");
    if (request.body.size() < bytes)
        return std::optional<ServiceRequest>();
    return std::optional(request);
}

} // namespace skipnest::tests
