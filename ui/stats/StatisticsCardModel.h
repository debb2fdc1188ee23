// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/stats/MomentWording.h"
#include "ui/stats/StatisticsFigures.h"
#include "ui/stats/StatisticsRows.h"

#include <QObject>
#include <QString>
#include <qqmlintegration.h>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// What the person gained by their jumps: one card below the list, and all of it on a screen.
//
// Figures are read when something changed and is looked at, so that showing the popover costs
// nothing. At most one thing is celebrated a showing; what was shown never comes again.
class StatisticsCardModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    Q_PROPERTY(bool hasJumps READ hasJumps NOTIFY changed)
    // The card: "42 jumps this week" over "5-day streak 🔥 · 4 min saved · 🌍 #12".
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QString details READ details NOTIFY changed)
    Q_PROPERTY(skipnest::ui::WeekBars* bars READ bars CONSTANT)
    // "milestone", "recap", "tip", or empty while there is nothing to say.
    Q_PROPERTY(QString momentKind READ momentKind NOTIFY momentChanged)
    Q_PROPERTY(QString momentTitle READ momentTitle NOTIFY momentChanged)
    Q_PROPERTY(QString momentText READ momentText NOTIFY momentChanged)
    // The screen: each figure over what it counts.
    Q_PROPERTY(QString weekValue READ weekValue NOTIFY changed)
    Q_PROPERTY(QString weekLabel READ weekLabel NOTIFY changed)
    Q_PROPERTY(QString streakValue READ streakValue NOTIFY changed)
    Q_PROPERTY(QString streakLabel READ streakLabel NOTIFY changed)
    Q_PROPERTY(QString savedValue READ savedValue NOTIFY changed)
    Q_PROPERTY(QString allText READ allText NOTIFY changed)
    Q_PROPERTY(QString waysText READ waysText NOTIFY changed)
    Q_PROPERTY(skipnest::ui::MostUsedTargets* targets READ targets CONSTANT)
    Q_PROPERTY(bool isJoined READ isJoined NOTIFY changed)
    Q_PROPERTY(QString challengeTitle READ challengeTitle NOTIFY changed)
    Q_PROPERTY(QString challengeText READ challengeText NOTIFY changed)
    // Sharing: what came of it, and its kind for a MessageLine.
    Q_PROPERTY(bool canCopyLink READ canCopyLink NOTIFY changed)
    Q_PROPERTY(QString shareResult READ shareResult NOTIFY shareChanged)
    Q_PROPERTY(QString shareResultKind READ shareResultKind NOTIFY shareChanged)
public:
    explicit StatisticsCardModel(app::AppDelegate& agent, QObject* parent = nullptr);

    // What of this the person sees now; none ends the showing.
    enum class View { none, card, details, other };
    void setView(View view);

    [[nodiscard]] bool hasJumps() const { return figures_.total > 0; }
    [[nodiscard]] QString headline() const;
    [[nodiscard]] QString details() const;
    [[nodiscard]] WeekBars* bars() { return &bars_; }
    [[nodiscard]] QString momentKind() const;
    [[nodiscard]] const QString& momentTitle() const { return moment_.title; }
    [[nodiscard]] const QString& momentText() const { return moment_.text; }
    [[nodiscard]] QString weekValue() const { return shownNumber(figures_.weekJumps); }
    [[nodiscard]] QString weekLabel() const;
    [[nodiscard]] QString streakValue() const;
    [[nodiscard]] QString streakLabel() const;
    [[nodiscard]] QString savedValue() const;
    [[nodiscard]] QString allText() const;
    [[nodiscard]] QString waysText() const;
    [[nodiscard]] MostUsedTargets* targets() { return &targets_; }
    [[nodiscard]] bool isJoined() const;
    [[nodiscard]] QString challengeTitle() const;
    [[nodiscard]] QString challengeText() const;
    [[nodiscard]] bool canCopyLink() const;
    [[nodiscard]] const QString& shareResult() const { return shareResult_; }
    [[nodiscard]] QString shareResultKind() const;

    // A tip that was closed does not come again.
    Q_INVOKABLE void dismissMoment();
    // Into the folder for downloads, beside earlier ones.
    Q_INVOKABLE void savePicture();
    Q_INVOKABLE void copyPicture();
    Q_INVOKABLE void copyLink();

Q_SIGNALS:
    void changed();
    void momentChanged();
    void shareChanged();

private:
    void update();
    void updateDetails();
    [[nodiscard]] Moment dueMoment();
    [[nodiscard]] std::optional<stats::Tip> dueTip() const;
    void setMoment(Moment moment);
    void say(const QString& result, bool isGood);
    [[nodiscard]] QString rankText() const;

    app::AppDelegate& agent_;
    View view_ = View::none;
    bool isStale_ = true;
    bool hasLooked_ = false; // for something to celebrate, in this showing
    StatisticsFigures figures_;
    WeekBars bars_;
    MostUsedTargets targets_;
    Moment moment_;
    QString shareResult_;
    bool isShareGood_ = true;
};

} // namespace skipnest::ui
