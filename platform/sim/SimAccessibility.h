// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Accessibility.h"
#include "platform/sim/Journal.h"
#include "platform/sim/SimApplications.h"

namespace skipnest::sim {

// The user interface of the simulated applications: windows, and the menu bar with its Window menu,
// as SimApp has them. Requests take effect at once, as they do where programs answer them before
// the call returns; each is noted, also one that SimApp::accessibilityErrors lets fail.
class SimAccessibility final : public platform::Accessibility {
public:
    SimAccessibility(Journal& journal, SimApplications& applications)
        : journal_(journal), applications_(applications) {}

    void setTrusted(bool trusted) { trusted_ = trusted; }

    [[nodiscard]] platform::Availability availability() const override { return {}; }
    [[nodiscard]] bool isTrusted() const override { return trusted_; }
    void promptForTrust() override { journal_.call(QStringLiteral("accessibilityPrompt")); }
    [[nodiscard]] platform::AccessibilityElement
    application(platform::ProcessIdentifier pid) override;
    [[nodiscard]] std::optional<platform::AccessibilityValue>
    attribute(const platform::AccessibilityElement& element, const QString& name) override;
    int setAttribute(const platform::AccessibilityElement& element, const QString& name,
                     const platform::AccessibilityValue& value) override;
    int performAction(const platform::AccessibilityElement& element, const QString& name) override;

private:
    struct Place;

    [[nodiscard]] std::optional<platform::AccessibilityValue>
    ofApplication(const SimApp& app, const QString& name) const;
    [[nodiscard]] QString titleOf(const platform::AccessibilityElement& element) const;
    void choose(const SimApp& app, const SimMenuItem& item);

    Journal& journal_;
    SimApplications& applications_;
    bool trusted_ = true;
};

} // namespace skipnest::sim
