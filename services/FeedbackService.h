// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Diagnostics.h"
#include "platform/WebService.h"

#include <functional>

namespace skipnest::services {

// Sends what a person writes to the makers: the category, the text and the address they typed, and
// nothing else.
class FeedbackService {
public:
    enum class Category { bug, feature, marketing, other };

    FeedbackService(platform::WebService& web, platform::Diagnostics& diagnostics)
        : web_(web), diagnostics_(diagnostics) {}

    [[nodiscard]] platform::Availability availability() const { return web_.availability(); }
    // `done` hears once, on the main thread, never from inside.
    void send(Category category, const QString& message, const QString& email,
              std::function<void(bool sent)> done);

private:
    platform::WebService& web_;
    platform::Diagnostics& diagnostics_;
};

} // namespace skipnest::services
