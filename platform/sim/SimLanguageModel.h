// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/LanguageModel.h"
#include "platform/sim/Journal.h"

#include <map>
#include <optional>

namespace skipnest::sim {

// A model that answers as told for a prompt: every request is noted as the call "model" with its
// prompt, every warming as "warmModel". Without an answer it behaves like a server that is not
// there. Unavailable until it is told anything.
class SimLanguageModel final : public platform::LanguageModel {
public:
    SimLanguageModel(platform::Scheduler& scheduler, Journal& journal)
        : scheduler_(scheduler), journal_(journal) {}

    // The answer to this prompt from now on, `after` that long; to every other prompt with
    // setAnswerToAll().
    void setAnswer(const QString& prompt, platform::Result<QString> answer,
                   platform::Duration after = {});
    void setAnswerToAll(platform::Result<QString> answer, platform::Duration after = {});
    void setAvailable(bool available) { isAvailable_ = available; }
    // Of the last request.
    [[nodiscard]] const platform::ModelTask& lastTask() const { return lastTask_; }
    // Requests that have neither answered nor been dropped.
    [[nodiscard]] int running() const { return *running_; }

    [[nodiscard]] platform::Availability availability() const override;
    [[nodiscard]] platform::ModelRequest respond(const platform::ModelTask& task,
                                                 const QString& prompt, platform::Duration deadline,
                                                 Completion completion) override;
    void warm(const platform::ModelTask& task) override;

private:
    struct Told {
        platform::Result<QString> answer;
        platform::Duration after{};
    };
    platform::Scheduler& scheduler_;
    Journal& journal_;
    bool isAvailable_ = false;
    std::map<QString, Told> answers_;
    std::optional<Told> answerToAll_;
    platform::ModelTask lastTask_;
    std::shared_ptr<int> running_ = std::make_shared<int>(0);
};

} // namespace skipnest::sim
