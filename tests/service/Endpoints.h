// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "platform/WebService.h"
#include "tests/service/ServiceRequest.h"

#include <QString>

namespace skipnest::tests {

enum class EndpointKind {
    checkName,
    board,
    boardPage,
    submit,
    remove,
    feedback,
    release,
    install,
    funnel,
    crash,
    share,
    voice
};

// A request that is right in every point.
struct AcceptedRequest {
    EndpointKind kind = EndpointKind::release;
    platform::FormFields fields;

    // Of a field that the endpoint has; empty where the request leaves it out.
    [[nodiscard]] QString value(const QString& name) const;
};

// Checks method, path, content type, percent-encoding, the exact set of fields, each value, and
// that no header tells of the person. Fails with the first thing that is not as it must be.
[[nodiscard]] platform::Result<AcceptedRequest> checkRequest(const ServiceRequest& request);

} // namespace skipnest::tests
