// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Executor.h"
#include "platform/HttpClient.h"

#include <QString>

namespace skipnest::platform {

// HTTP/1.1 over Qt's network access. A request tells the server nothing of the person: no cookies,
// no language, no earlier connection. Nothing of Qt's network is there between requests: each has
// its own QNetworkAccessManager, which ends with it (as does its thread), so that an idle agent
// has none and nothing is carried from one request to the next.
//
// Two limits of Qt's: a reply sent in chunks that ends before its last one may pass as whole (one
// with a Content-Length never does), so callers decode what they take; and a GET, never a post, may
// be sent again when the server closes the connection without a word.
class QtHttpClient final : public HttpClient {
public:
    // The server sees "Skipnest/VERSION".
    QtHttpClient(Scheduler& scheduler, Executor& executor, const QString& version);

    [[nodiscard]] Availability availability() const override { return {}; }
    [[nodiscard]] HttpExchange send(const HttpRequest& request, Completion completion) override;

private:
    Scheduler& scheduler_;
    Executor& executor_;
    QByteArray userAgent_;
};

} // namespace skipnest::platform
