// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/QtExecutor.h"
#include "platform/QtHttpClient.h"
#include "platform/QtScheduler.h"
#include "tests/service/StandInService.h"

#include <functional>

namespace skipnest::tests {

// The stand-in service on a port of this machine, and the real client.
struct Network {
    Network();

    // Runs the event loop until the condition holds; false when it does not within five seconds.
    [[nodiscard]] bool waitUntil(const std::function<bool()>& condition);
    // A request to the service, which environment proxies do not concern.
    [[nodiscard]] platform::HttpRequest request(const QString& pathAndQuery) const;
    // The reply to a request; a failure of kind `system` where there was none.
    [[nodiscard]] platform::Result<platform::HttpReply> reply(const platform::HttpRequest& request);

    platform::QtScheduler scheduler;
    platform::QtExecutor executor{scheduler};
    StandInService service{scheduler};
    platform::QtHttpClient client{scheduler, executor, QStringLiteral("0.1.0")};
};

} // namespace skipnest::tests
