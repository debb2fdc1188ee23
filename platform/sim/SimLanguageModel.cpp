// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimLanguageModel.h"

#include <memory>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::Availability;
using platform::Failure;
using platform::Result;

void SimLanguageModel::setAnswer(const QString& prompt, Result<QString> answer,
                                 platform::Duration after) {
    isAvailable_ = true;
    answers_.insert_or_assign(prompt, Told{std::move(answer), after});
}

void SimLanguageModel::setAnswerToAll(Result<QString> answer, platform::Duration after) {
    isAvailable_ = true;
    answerToAll_.emplace(Told{std::move(answer), after});
}

Availability SimLanguageModel::availability() const {
    if (isAvailable_)
        return {};
    return {Availability::State::unavailable, u"The simulated model was told no answer."_s,
            u"Tell it one."_s};
}

platform::ModelRequest SimLanguageModel::respond(const platform::ModelTask& task,
                                                 const QString& prompt, platform::Duration deadline,
                                                 Completion completion) {
    lastTask_ = task;
    journal_.call(u"model"_s, {{u"prompt"_s, prompt}});
    Told told{Failure{Failure::Kind::refused, u"no server answers"_s}, {}};
    if (const auto found = answers_.find(prompt); found != answers_.end())
        told = found->second;
    else if (answerToAll_)
        told = *answerToAll_;
    if (!isAvailable_)
        told = {Failure{Failure::Kind::unavailable, availability().reason}, {}};
    else if (told.after > deadline)
        told = {Failure{Failure::Kind::timedOut, u"no reply in time"_s}, deadline};

    const auto timer = std::make_shared<platform::Timer>();
    const auto running = running_;
    ++*running;
    const auto isOpen = std::make_shared<bool>(true);
    *timer = scheduler_.after(
        told.after, "sim model",
        [completion = std::move(completion), answer = told.answer, running, isOpen] {
            --*running;
            *isOpen = false;
            completion(answer);
        });
    return platform::ModelRequest([timer, running, isOpen] {
        if (std::exchange(*isOpen, false))
            --*running;
        timer->reset();
    });
}

void SimLanguageModel::warm(const platform::ModelTask&) {
    if (isAvailable_)
        journal_.call(u"warmModel"_s);
}

} // namespace skipnest::sim
