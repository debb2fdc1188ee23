// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/PointerEvents.h"
#include "platform/linux/X11RawInput.h"

namespace skipnest::linuxdesktop {

// Clicks by XInput2, on a connection that is made for the first observer and silent while there is
// none: whoever opens a panel does not wait for another. Where the server refuses one, nothing is
// told: a click is one way out of several.
class X11PointerEvents final : public platform::PointerEvents {
public:
    X11PointerEvents(X11Display& display, platform::Scheduler& scheduler)
        : display_(display), scheduler_(scheduler) {}

    [[nodiscard]] platform::Observation
    observeClicksOutside(std::function<void()> clicked) override;

private:
    void handle(const X11RawInput::Event& event);
    [[nodiscard]] bool pointsAtOurWindow() const;

    X11Display& display_;
    platform::Scheduler& scheduler_;
    std::unique_ptr<X11RawInput> raw_;
    platform::Observers<> observers_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::linuxdesktop
