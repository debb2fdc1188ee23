// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/ScreenCapture.h"
#include "platform/sim/Journal.h"
#include "platform/sim/SimApplications.h"

#include <QRgb>

#include <map>
#include <optional>

namespace skipnest::sim {

// Pictures of the simulated applications' windows: each is one colour, its window's own. A window
// without a frame counts as 0 x 0.
class SimScreenCapture final : public platform::ScreenCapture {
public:
    SimScreenCapture(platform::Scheduler& scheduler, Journal& journal,
                     const SimApplications& applications)
        : scheduler_(scheduler), journal_(journal), applications_(applications) {}

    void setAvailability(const platform::Availability& availability) {
        availability_ = availability;
    }
    void setGranted(bool granted) { granted_ = granted; }
    // From now on the windows cannot be listed, until `std::nullopt`.
    void refuseListing(const std::optional<platform::Failure>& failure) { refusal_ = failure; }
    // How long a listing, and a picture, take.
    void setDelay(platform::Duration delay) { delay_ = delay; }
    [[nodiscard]] bool isEnabled() const { return enabled_; }
    [[nodiscard]] static QRgb colourOf(const QString& identifier);

    [[nodiscard]] platform::Availability availability() const override { return availability_; }
    [[nodiscard]] bool isGranted() const override { return granted_; }
    void requestAccess() override { journal_.call(QStringLiteral("requestScreenCapture")); }
    void setEnabled(bool enabled) override { enabled_ = enabled; }
    [[nodiscard]] platform::ScreenCaptureRun listWindows(Listed listed) override;
    [[nodiscard]] platform::ScreenCaptureRun capture(const platform::CapturableWindow& window,
                                                     const QSize& size, Captured captured) override;

private:
    [[nodiscard]] std::vector<platform::CapturableWindow> windows() const;
    [[nodiscard]] platform::ScreenCaptureRun later(std::function<void()> task);

    platform::Scheduler& scheduler_;
    Journal& journal_;
    const SimApplications& applications_;
    platform::Availability availability_;
    bool granted_ = true;
    bool enabled_ = true;
    std::optional<platform::Failure> refusal_;
    platform::Duration delay_{};
};

} // namespace skipnest::sim
