// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Availability.h"
#include "platform/Owned.h"
#include "platform/Result.h"
#include "platform/Scheduler.h"

#include <QByteArray>
#include <QUrl>

#include <functional>

namespace skipnest::platform {

struct HttpRequest {
    enum class Method { get, post };
    // `none` also ignores the environment's proxies: for servers on this machine.
    enum class Proxy { system, none };

    Method method = Method::get;
    QUrl url = {};
    QByteArray contentType = {}; // empty: no such header
    QByteArray body = {};        // of a post
    Proxy proxy = Proxy::system;
    Duration deadline = std::chrono::seconds(15); // from the request to the reply's last byte
    qsizetype largestReply = 64 * 1024;           // bytes; a longer reply is a failure
};

// What the server said, whatever its status.
struct HttpReply {
    int status = 0;
    QByteArray body;

    [[nodiscard]] bool isSuccess() const { return status >= 200 && status < 300; }
};

// A request on its way; dropping it ends it, and nothing is told any more.
using HttpExchange = Owned<struct HttpExchangeTag>;

// One request, one reply. Redirects are never followed: they count as replies of their status.
// Failures: `unavailable` where this program has no network, `timedOut`, `tooLarge`, `refused`
// where a connection or its certificate was, `malformed` for a reply that is no HTTP or ends early.
class HttpClient {
public:
    using Completion = std::function<void(const Result<HttpReply>&)>;

    virtual ~HttpClient() = default;

    [[nodiscard]] virtual Availability availability() const = 0;
    // `completion` is called once, on the main thread, never from inside this call.
    [[nodiscard]] virtual HttpExchange send(const HttpRequest& request, Completion completion) = 0;
};

} // namespace skipnest::platform
