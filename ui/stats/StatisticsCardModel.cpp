// SPDX-License-Identifier: Apache-2.0
#include "ui/stats/StatisticsCardModel.h"

#include "app/AppDelegate.h"
#include "platform/Files.h"
#include "platform/WallClock.h"
#include "services/ShareLink.h"
#include "stats/TimeSaved.h"
#include "ui/ComboWording.h"
#include "ui/editor/PlainLine.h"
#include "ui/settings/SettingsTable.h"
#include "ui/stats/PluralCount.h"
#include "ui/stats/StatisticsPicture.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QStringBuilder>

#include <algorithm>
#include <utility>

namespace skipnest::ui {

using stats::ChallengeService;
using stats::JumpStats;

namespace {

const QString separator = QStringLiteral(" · ");

// A picture of the card under a name that nothing in the folder has.
QString freePath(const platform::Files& files, const QString& folder, QDate day) {
    constexpr int mostADay = 1000;
    const QString stem = folder % u"/Skipnest-jumps-" % day.toString(Qt::ISODate);
    QString path = stem % u".png";
    for (int i = 2; i < mostADay && files.kind(path) != platform::FileKind::none; ++i)
        path = stem % u'-' % QString::number(i) % u".png";
    return path;
}

// Tips speak of these; whoever cannot use a feature yet need not be told of it.
QStringList featuresToCome() {
    QStringList features;
    for (const SettingSectionInfo& info : settingSections()) {
        if (info.feature == SettingSectionInfo::Feature::here)
            continue;
        if (info.section == SettingSection::capture)
            features.append(QStringLiteral("capture"));
        if (info.section == SettingSection::voice)
            features.append(QStringLiteral("voice"));
    }
    return features;
}

} // namespace

StatisticsCardModel::StatisticsCardModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent) {
    const auto markStale = [this] {
        isStale_ = true;
        if (view_ == View::card || view_ == View::details)
            update();
    };
    connect(&agent.stats(), &JumpStats::changed, this, markStale);
    connect(&agent.challenge(), &ChallengeService::changed, this, markStale);
    // The first frame of the popover has the figures already.
    update();
}

void StatisticsCardModel::setView(View view) {
    if (std::exchange(view_, view) == view && view == View::none)
        return;
    switch (view) {
    case View::none:
        hasLooked_ = false;
        setMoment({});
        say({}, true);
        return;
    case View::other:
        return;
    case View::card:
        update();
        if (!std::exchange(hasLooked_, true))
            setMoment(dueMoment());
        return;
    case View::details:
        update();
        updateDetails();
        return;
    }
}

void StatisticsCardModel::update() {
    const QDate today = agent_.ports().wallClock.today();
    if (!std::exchange(isStale_, false) && figures_.day == today)
        return;
    figures_ = readFigures(agent_.stats(), today);
    bars_.update(figures_);
    if (view_ == View::details)
        updateDetails();
    Q_EMIT changed();
}

// Goes through every target there is, so only for those who look.
void StatisticsCardModel::updateDetails() {
    targets_.update(agent_.stats().store().byTarget);
}

Moment StatisticsCardModel::dueMoment() {
    JumpStats& stats = agent_.stats();
    ChallengeService& challenge = agent_.challenge();
    if (const auto milestone = stats.nextMilestone()) {
        const Moment moment = wordedMilestone(*milestone, challenge.standing());
        if (milestone->id.startsWith(u"ch."))
            challenge.award(milestone->id);
        else
            stats.celebrate(milestone->id);
        return moment;
    }
    if (const auto recap = stats.weeklyRecap()) {
        stats.celebrate(recap->id);
        return wordedRecap(*recap, figures_.weekJumps, figures_.streakDays);
    }
    if (const auto tip = dueTip()) {
        const auto& ports = agent_.ports();
        return wordedTip(*tip, agent_.viewModel().config(),
                         modifierStyle(ports.app, ports.defaults));
    }
    return {};
}

std::optional<stats::Tip> StatisticsCardModel::dueTip() const {
    static const QStringList toCome = featuresToCome();
    const stats::StatsStore& store = agent_.stats().store();
    stats::StatsStore asked; // without the days and targets, which no tip depends on
    asked.total = store.total;
    asked.celebrated = store.celebrated;
    asked.used = store.used + toCome;
    if (!agent_.viewModel().config().shiftToHideOrDefault())
        asked.used.append(QStringLiteral("hide"));
    return stats::tip(asked);
}

void StatisticsCardModel::dismissMoment() {
    if (moment_.kind == Moment::Kind::tip)
        agent_.stats().celebrate(moment_.id);
    setMoment({});
}

void StatisticsCardModel::setMoment(Moment moment) {
    if (moment_ == moment)
        return;
    moment_ = std::move(moment);
    Q_EMIT momentChanged();
}

QString StatisticsCardModel::momentKind() const {
    switch (moment_.kind) {
    case Moment::Kind::none:
        return {};
    case Moment::Kind::milestone:
        return QStringLiteral("milestone");
    case Moment::Kind::recap:
        return QStringLiteral("recap");
    case Moment::Kind::tip:
        return QStringLiteral("tip");
    }
    Q_UNREACHABLE();
}

QString StatisticsCardModel::headline() const {
    return hasJumps() ? weekText(figures_.weekJumps) : tr("Your jumps are counted here");
}

QString StatisticsCardModel::details() const {
    if (!hasJumps())
        return tr("Press one of your keys to begin.");
    QStringList parts;
    if (const QString streak = streakText(figures_); !streak.isEmpty())
        parts.append(streak);
    if (figures_.weekJumps > 0)
        parts.append(savedText(figures_.weekJumps));
    if (const QString rank = rankText(); !rank.isEmpty())
        parts.append(rank);
    if (parts.isEmpty())
        parts.append(allText());
    return parts.join(separator);
}

QString StatisticsCardModel::weekLabel() const {
    return QCoreApplication::translate("Statistics", "jumps this week", nullptr,
                                       pluralCount(figures_.weekJumps));
}

QString StatisticsCardModel::streakValue() const {
    return figures_.streakDays > 0 ? shownNumber(figures_.streakDays) % u" 🔥"
                                   : shownNumber(figures_.streakToKeep);
}

QString StatisticsCardModel::streakLabel() const {
    if (figures_.streakDays == 0 && figures_.streakToKeep > 0)
        return tr("days, keep it alive today", nullptr, pluralCount(figures_.streakToKeep));
    return tr("days in a row", nullptr, pluralCount(figures_.streakDays));
}

QString StatisticsCardModel::savedValue() const {
    return stats::timeSavedText(figures_.weekJumps);
}

QString StatisticsCardModel::allText() const {
    return tr("%Ln jumps in all", nullptr, pluralCount(figures_.total)) % separator %
           savedText(figures_.total);
}

QString StatisticsCardModel::waysText() const {
    const stats::StatsStore& store = agent_.stats().store();
    QStringList parts;
    if (store.keyboard() > 0)
        parts.append(tr("%Ln by key", nullptr, pluralCount(store.keyboard())));
    if (store.switcher > 0)
        parts.append(tr("%Ln from the window switcher", nullptr, pluralCount(store.switcher)));
    if (store.voice > 0)
        parts.append(tr("%Ln by voice", nullptr, pluralCount(store.voice)));
    if (store.firstUse) {
        const QDate first = store.firstUse->toTimeZone(agent_.ports().wallClock.zone()).date();
        parts.append(tr("since %1").arg(shownDay(first)));
    }
    return parts.join(separator);
}

bool StatisticsCardModel::isJoined() const {
    return agent_.challenge().state().joined;
}

// "🌍 #12", and where it went this week.
QString StatisticsCardModel::rankText() const {
    const auto standing = agent_.challenge().standing();
    if (!standing || standing->rank < 1)
        return {};
    QString text = u"🌍 #" % shownNumber(standing->rank);
    if (const auto climb = agent_.challenge().climbThisWeek(); climb && *climb != 0)
        text += (*climb > 0 ? u" ▲" : u" ▼") % shownNumber(std::abs(*climb));
    return text;
}

QString StatisticsCardModel::challengeTitle() const {
    const auto standing = agent_.challenge().standing();
    if (!standing || standing->rank < 1)
        return tr("🌍 Global Jump Challenge");
    return tr("🌍 #%1 of %2 in the world")
        .arg(shownNumber(standing->rank), shownNumber(standing->of));
}

QString StatisticsCardModel::challengeText() const {
    if (!isJoined())
        return tr("Put your jumps on the world leaderboard - anonymous, just a name and a flag.");
    const auto standing = agent_.challenge().standing();
    if (!standing || standing->rank < 1)
        return tr("Your rank comes with the next answer of the board.");
    const std::int64_t climb = agent_.challenge().climbThisWeek().value_or(0);
    if (climb > 0)
        return tr("%Ln places up this week", nullptr, pluralCount(climb));
    if (climb < 0)
        return tr("%Ln places down this week", nullptr, pluralCount(-climb));
    return tr("Where you were at the start of the week");
}

bool StatisticsCardModel::canCopyLink() const {
    return hasJumps() && agent_.webService().isConfigured();
}

void StatisticsCardModel::savePicture() {
    const platform::Ports& ports = agent_.ports();
    QByteArray png;
    QBuffer buffer(&png);
    const QImage picture = statisticsPicture(figures_, palette(agent_.viewModel().theme()));
    if (!buffer.open(QBuffer::WriteOnly) || !picture.save(&buffer, "PNG"))
        return say(tr("The picture couldn't be drawn."), false);
    const QString& folder = ports.app.downloadsFolder;
    auto saved = ports.files.createFolder(folder);
    const QString path = freePath(ports.files, folder, figures_.day);
    if (saved)
        saved = platform::writeDurably(ports.files, path, png);
    if (saved)
        say(tr("Saved to %1").arg(shownPath(path, ports.app.home)), true);
    else
        say(tr("The picture couldn't be saved: %1").arg(saved.failure().detail), false);
}

void StatisticsCardModel::copyPicture() {
    QGuiApplication::clipboard()->setImage(
        statisticsPicture(figures_, palette(agent_.viewModel().theme())));
    say(tr("The picture is on the clipboard."), true);
}

void StatisticsCardModel::copyLink() {
    if (!canCopyLink())
        return;
    const QUrl link = services::shareLink(
        agent_.webService(), {figures_.weekJumps, stats::minutesSaved(figures_.weekJumps),
                              figures_.streakDays, figures_.total});
    QGuiApplication::clipboard()->setText(link.toString(QUrl::FullyEncoded));
    say(tr("The link is on the clipboard."), true);
}

void StatisticsCardModel::say(const QString& result, bool isGood) {
    shareResult_ = result;
    isShareGood_ = isGood;
    Q_EMIT shareChanged();
}

QString StatisticsCardModel::shareResultKind() const {
    return isShareGood_ ? QStringLiteral("success") : QStringLiteral("danger");
}

} // namespace skipnest::ui
