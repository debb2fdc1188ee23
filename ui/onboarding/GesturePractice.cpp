// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/GesturePractice.h"

#include "app/AppDelegate.h"
#include "ui/ComboWording.h"

namespace skipnest::ui {

using model::ModifierFlags;

GesturePractice::GesturePractice(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {
    // The desktop's settings may be read only after the step was opened.
    connect(&agent.ledger(), &hotkeys::KeyLedger::changed, this, [this] {
        propose();
        Q_EMIT changed();
    });
}

void GesturePractice::start() {
    propose();
    trial_ = DoubleTapTrial(trigger_);
    failure_ = agent_.ports().keyEvents.availability();
    if (failure_.state != platform::Availability::State::unavailable) {
        failure_ = {};
        if (auto tap = agent_.ports().keyEvents.listen(*this))
            tap_ = std::move(tap).value();
        else
            failure_ = {platform::Availability::State::unavailable, tap.failure().detail, {}};
    }
    Q_EMIT changed();
}

void GesturePractice::stop() {
    tap_.reset();
}

// What the person chose, ever, is never replaced by a proposal.
void GesturePractice::propose() {
    const auto& chosen = agent_.viewModel().config().voiceTrigger;
    const bool isSuperBad = agent_.ledger().desktop().reactsToSuperTap;
    setTrigger(chosen || !isSuperBad ? triggerNamed(chosen) : VoiceTrigger::shift);
}

void GesturePractice::setTrigger(VoiceTrigger trigger) {
    if (std::exchange(trigger_, trigger) == trigger)
        return;
    trial_ = DoubleTapTrial(trigger);
    answer_ = Answer::nothing;
}

void GesturePractice::choose(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= voiceTriggers.size())
        return;
    setTrigger(voiceTriggers.at(static_cast<std::size_t>(index)));
    store();
    Q_EMIT changed();
}

void GesturePractice::accept() {
    // The default needs no entry: an absent one means it.
    if (trigger_ != triggerNamed(agent_.viewModel().config().voiceTrigger))
        store();
}

void GesturePractice::store() const {
    agent_.viewModel().changeSettings([this](model::AppConfiguration& configuration) {
        configuration.voiceTrigger = triggerName(trigger_);
    });
}

QStringList GesturePractice::triggers() const {
    const auto style = modifierStyle(agent_.ports().app, agent_.ports().defaults);
    return modifierKeys(ModifierFlags::command, style) +
           modifierKeys(ModifierFlags::option, style) + modifierKeys(ModifierFlags::shift, style) +
           QStringList(tr("Off"));
}

QString GesturePractice::advice() const {
    const auto& desktop = agent_.ledger().desktop();
    const bool isProposal = !agent_.viewModel().config().voiceTrigger;
    if (!desktop.reactsToSuperTap || !(isProposal || trigger_ == VoiceTrigger::command))
        return {};
    const QString owner =
        desktop.superTapOwner.isEmpty() ? tr("This desktop") : desktop.superTapOwner;
    const QString fact = owner == u"GNOME" ? tr("GNOME opens its overview when Super is tapped.")
                                           : tr("%1 acts on a tap of Super itself.").arg(owner);
    return isProposal ? tr("%1 Shift is proposed in its place.").arg(fact)
                      : tr("%1 Shift is a better choice here.").arg(fact);
}

void GesturePractice::modifiersChanged(const platform::ModifierEvent& event) {
    note(trial_.modifiersChanged(event));
}

void GesturePractice::otherKeyPressed(platform::Instant) {
    note(trial_.otherKeyPressed());
}

void GesturePractice::note(Answer answer) {
    if (answer == Answer::nothing || answer_ == Answer::doubleTap)
        return;
    answer_ = answer;
    Q_EMIT changed();
}

QString GesturePractice::answerName() const {
    switch (answer_) {
    case Answer::nothing:
        return {};
    case Answer::firstTap:
        return QStringLiteral("firstTap");
    case Answer::doubleTap:
        return QStringLiteral("doubleTap");
    case Answer::heldTooLong:
        return QStringLiteral("heldTooLong");
    case Answer::tooFarApart:
        return QStringLiteral("tooFarApart");
    case Answer::otherSide:
        return QStringLiteral("otherSide");
    case Answer::disturbed:
        return QStringLiteral("disturbed");
    }
    Q_UNREACHABLE();
}

} // namespace skipnest::ui
