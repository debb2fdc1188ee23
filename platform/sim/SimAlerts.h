// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Alerts.h"
#include "platform/sim/Journal.h"

#include <deque>
#include <memory>
#include <vector>

namespace skipnest::sim {

// The person in front of the alerts. An answer given before an alert opens is kept for the first
// alert that has such a button; without one, the last button is pressed at once.
class SimAlerts final : public platform::Alerts {
public:
    enum class Patience {
        answersAtOnce, // with the last button, unless another answer was given before
        waits,         // alerts stay open until press()
    };

    SimAlerts(platform::Scheduler& scheduler, Journal& journal);
    ~SimAlerts() override;
    SimAlerts(const SimAlerts&) = delete;
    SimAlerts& operator=(const SimAlerts&) = delete;

    // Presses this button of the oldest open alert that has it, or keeps the answer.
    void press(const QString& button);
    void setPatience(Patience patience) { patience_ = patience; }
    // Oldest first.
    [[nodiscard]] std::vector<platform::Alert> open() const;

    void show(const platform::Alert& alert, std::function<void(int)> answered) override;

private:
    struct Open {
        platform::Alert alert;
        std::vector<std::function<void(int)>> completions;
    };
    void answerSoon(const platform::Alert& alert, qsizetype button);

    platform::Scheduler& scheduler_;
    Journal& journal_;
    Patience patience_ = Patience::answersAtOnce;
    std::vector<Open> open_;
    std::deque<QString> answers_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::sim
