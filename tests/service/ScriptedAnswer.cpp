// SPDX-License-Identifier: Apache-2.0
#include "tests/service/ScriptedAnswer.h"

namespace skipnest::tests {

ScriptedAnswer ScriptedAnswer::reply(int status, const QByteArray& body,
                                     const QByteArray& headers) {
    return {Manner::whole, "HTTP/1.1 " + QByteArray::number(status) +
                               " Told\r\nContent-Type: application/json\r\nContent-Length: " +
                               QByteArray::number(body.size()) + "\r\n" + headers +
                               "Connection: close\r\n\r\n" + body};
}

ScriptedAnswer ScriptedAnswer::redirect(const QByteArray& location) {
    return reply(302, {}, "Location: " + location + "\r\n");
}

ScriptedAnswer ScriptedAnswer::cut() {
    return {Manner::whole, "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n{\"ok\":true,"};
}

ScriptedAnswer ScriptedAnswer::trickling() {
    return {Manner::trickling, "HTTP/1.1 200 OK\r\nContent-Length: 60000\r\n\r\n"};
}

ScriptedAnswer ScriptedAnswer::huge() {
    return {Manner::flooding, "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n"};
}

} // namespace skipnest::tests
