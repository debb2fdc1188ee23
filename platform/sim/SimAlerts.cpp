// SPDX-License-Identifier: Apache-2.0
#include "platform/sim/SimAlerts.h"

#include <QJsonArray>

#include <algorithm>
#include <utility>

namespace skipnest::sim {

using namespace Qt::StringLiterals;
using platform::Alert;

SimAlerts::SimAlerts(platform::Scheduler& scheduler, Journal& journal)
    : scheduler_(scheduler), journal_(journal) {}

SimAlerts::~SimAlerts() {
    *alive_ = false;
}

std::vector<Alert> SimAlerts::open() const {
    std::vector<Alert> alerts;
    for (const Open& open : open_)
        alerts.push_back(open.alert);
    return alerts;
}

void SimAlerts::press(const QString& button) {
    const auto found = std::ranges::find_if(
        open_, [&button](const Open& open) { return open.alert.buttons.contains(button); });
    if (found == open_.end())
        answers_.push_back(button);
    else
        answerSoon(found->alert, found->alert.buttons.indexOf(button));
}

void SimAlerts::show(const Alert& alert, std::function<void(int)> answered) {
    const auto same = std::ranges::find(open_, alert, &Open::alert);
    if (same != open_.end()) {
        same->completions.push_back(std::move(answered));
        return;
    }
    journal_.call(u"alert"_s, {{u"message"_s, alert.message},
                               {u"text"_s, alert.informativeText},
                               {u"buttons"_s, QJsonArray::fromStringList(alert.buttons)}});
    open_.push_back({alert, {std::move(answered)}});

    const auto answer = std::ranges::find_if(
        answers_, [&alert](const QString& button) { return alert.buttons.contains(button); });
    if (answer != answers_.end()) {
        const qsizetype button = alert.buttons.indexOf(*answer);
        answers_.erase(answer);
        answerSoon(alert, button);
    } else if (patience_ == Patience::answersAtOnce) {
        answerSoon(alert, alert.buttons.size() - 1);
    }
}

void SimAlerts::answerSoon(const Alert& alert, qsizetype button) {
    scheduler_.post([this, alive = alive_, alert, button] {
        if (!*alive)
            return;
        const auto found = std::ranges::find(open_, alert, &Open::alert);
        if (found == open_.end())
            return;
        const Open closing = std::move(*found);
        open_.erase(found);
        for (const auto& answered : closing.completions)
            if (answered)
                answered(static_cast<int>(button));
    });
}

} // namespace skipnest::sim
