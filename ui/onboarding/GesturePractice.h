// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/KeyEvents.h"
#include "ui/onboarding/DoubleTapTrial.h"

#include <QObject>
#include <QStringList>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// The step in which the person chooses the modifier whose double tap will start the voice search,
// and tries it. Listens to modifier keys only, and only while the step shows.
class GesturePractice final : public QObject, private platform::KeyEventListener {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the onboarding")
    // The modifiers as people here call them, and no gesture at all last.
    Q_PROPERTY(QStringList triggers READ triggers CONSTANT)
    Q_PROPERTY(int trigger READ trigger NOTIFY changed)
    // Why another key than Super is proposed, or is a better choice; empty where it is not.
    Q_PROPERTY(QString advice READ advice NOTIFY changed)
    // Why nothing can be tried here, and what to do about it; empty where it can.
    Q_PROPERTY(QString reason READ reason NOTIFY changed)
    Q_PROPERTY(QString remedy READ remedy NOTIFY changed)
    // How the last attempt went: "" before the first, "firstTap", "doubleTap", "heldTooLong",
    // "tooFarApart", "otherSide", "disturbed". A double tap stays until another key is chosen.
    Q_PROPERTY(QString answer READ answerName NOTIFY changed)
public:
    explicit GesturePractice(app::AppDelegate& agent, QObject* parent = nullptr);

    void start();
    void stop();
    // The person goes on with what is chosen or proposed: a proposal is stored now.
    void accept();

    [[nodiscard]] QStringList triggers() const;
    [[nodiscard]] int trigger() const { return static_cast<int>(trigger_); }
    [[nodiscard]] QString advice() const;
    [[nodiscard]] QString reason() const { return failure_.reason; }
    [[nodiscard]] QString remedy() const { return failure_.remedy; }
    [[nodiscard]] QString answerName() const;

    // By its place in triggers(); stored at once.
    Q_INVOKABLE void choose(int index);

Q_SIGNALS:
    void changed();

private:
    using Answer = DoubleTapTrial::Answer;

    void modifiersChanged(const platform::ModifierEvent& event) override;
    void otherKeyPressed(platform::Instant time) override;
    void note(Answer answer);
    void setTrigger(VoiceTrigger trigger);
    void store() const;
    void propose();

    app::AppDelegate& agent_;
    VoiceTrigger trigger_ = VoiceTrigger::command;
    DoubleTapTrial trial_{VoiceTrigger::command};
    Answer answer_ = Answer::nothing;
    platform::Availability failure_;
    platform::KeyTap tap_;
};

} // namespace skipnest::ui
