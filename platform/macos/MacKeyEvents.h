// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyEvents.h"
#include "platform/Observers.h"
#include "platform/macos/EventTap.h"

#include <memory>

namespace skipnest::macos {

// Key events by one Quartz tap that all listeners share. The tap exists only while somebody
// listens. The system may disable or drop a tap unseen (after sleep, or when the permission is
// taken away and given back), so it is looked at every 20 seconds and repaired.
class MacKeyEvents final : public platform::KeyEvents {
public:
    MacKeyEvents(KeyboardEventBridge& bridge, platform::Scheduler& scheduler);

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::Result<platform::KeyTap>
    listen(platform::KeyEventListener& listener) override;
    [[nodiscard]] platform::Result<platform::KeyTap> intercept(platform::KeyInterceptor&) override {
        return platform::Failure{platform::Failure::Kind::unavailable,
                                 QStringLiteral("Keys cannot be taken over.")};
    }
    [[nodiscard]] platform::EventFlags modifiersDown() const override;
    platform::Outcome post(const platform::KeyStroke& stroke) override;

private:
    void install();
    void repair();
    void stopIfUnheard();
    void tell(const TappedKey& key) const;

    KeyboardEventBridge& bridge_;
    platform::Scheduler& scheduler_;
    platform::Observers<const TappedKey&> listeners_;
    std::unique_ptr<KeyboardTap> tap_;
    platform::Timer health_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::macos
