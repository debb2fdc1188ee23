// SPDX-License-Identifier: Apache-2.0
#include "tests/services/Network.h"

#include <QCoreApplication>

#include <optional>

namespace skipnest::tests {

using namespace std::chrono_literals;
using platform::HttpReply;
using platform::HttpRequest;
using platform::Result;

Network::Network() {
    if (!service.listenHere())
        qFatal("no port on this machine");
}

bool Network::waitUntil(const std::function<bool()>& condition) {
    const platform::Instant limit = scheduler.now() + 5s;
    const auto wake = scheduler.every(5ms, "condition", [] {});
    while (!condition() && scheduler.now() < limit)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return condition();
}

HttpRequest Network::request(const QString& pathAndQuery) const {
    return {.url = QUrl(service.address() + pathAndQuery), .proxy = HttpRequest::Proxy::none};
}

Result<HttpReply> Network::reply(const HttpRequest& request) {
    std::optional<Result<HttpReply>> heard;
    const auto exchange = client.send(request, [&](const auto& reply) { heard = reply; });
    if (heard || !waitUntil([&] { return heard.has_value(); }))
        return platform::Failure{platform::Failure::Kind::system,
                                 heard ? QStringLiteral("heard from inside the call")
                                       : QStringLiteral("heard nothing")};
    return *heard;
}

} // namespace skipnest::tests
