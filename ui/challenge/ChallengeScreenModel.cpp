// SPDX-License-Identifier: Apache-2.0
#include "ui/challenge/ChallengeScreenModel.h"

#include "app/AppDelegate.h"
#include "ui/stats/PluralCount.h"
#include "ui/stats/StatisticsFigures.h"

#include <QPointer>

#include <utility>

namespace skipnest::ui {

using platform::Availability;
using stats::ChallengeService;
using Joining = ChallengeService::Joining;

ChallengeScreenModel::ChallengeScreenModel(app::AppDelegate& agent, QObject* parent)
    : QObject(parent), agent_(agent), service_(agent.challenge()),
      country_(stats::countryCode(agent.ports().app.country)) {
    if (countryName().isEmpty())
        country_.clear();
    connect(&service_, &ChallengeService::changed, this, &ChallengeScreenModel::serviceChanged);
}

void ChallengeScreenModel::setShown(bool isShown) {
    if (std::exchange(isShown_, isShown) == isShown || !isShown)
        return;
    face_ = Face::entry;
    countries_.setText({});
    say({}, {});
    if (isJoined())
        readBoard();
}

QString ChallengeScreenModel::face() const {
    if (!isJoined())
        return QStringLiteral("join");
    switch (face_) {
    case Face::entry:
        return QStringLiteral("board");
    case Face::rename:
        return QStringLiteral("rename");
    case Face::leave:
        return QStringLiteral("leave");
    }
    Q_UNREACHABLE();
}

QString ChallengeScreenModel::problem() const {
    const Availability availability = service_.availability();
    return availability.state == Availability::State::unavailable ? availability.reason : QString();
}

QString ChallengeScreenModel::remedy() const {
    return problem().isEmpty() ? QString() : service_.availability().remedy;
}

QString ChallengeScreenModel::nameHint() const {
    if (name_.trimmed().isEmpty() || stats::challengerName(name_))
        return {};
    return tr("A name is 1 to %n characters that can be seen.", "",
              static_cast<int>(ChallengeService::longestName));
}

QString ChallengeScreenModel::countryName() const {
    return ui::countryName(country_);
}

bool ChallengeScreenModel::canSend() const {
    const auto fitting = stats::challengerName(name_);
    const bool isNew =
        !isJoined() || fitting != service_.state().name || country_ != service_.state().country;
    return problem().isEmpty() && !isBusy_ && fitting && !country_.isEmpty() && isNew;
}

QString ChallengeScreenModel::ownName() const {
    return stats::challengerLine(service_.state().name);
}

QString ChallengeScreenModel::ownCountry() const {
    return ownCountryName().isEmpty() ? QString() : service_.state().country;
}

QString ChallengeScreenModel::ownCountryName() const {
    return ui::countryName(service_.state().country);
}

QString ChallengeScreenModel::standing() const {
    const auto standing = service_.standing();
    if (!standing || standing->rank < 1)
        return tr("No rank yet");
    if (standing->of < standing->rank)
        return tr("Rank #%1").arg(shownNumber(standing->rank));
    return tr("Rank #%1 of %2").arg(shownNumber(standing->rank), shownNumber(standing->of));
}

QString ChallengeScreenModel::climb() const {
    const std::int64_t climb = service_.climbThisWeek().value_or(0);
    if (climb == 0)
        return {};
    return (climb > 0 ? u'▲' : u'▼') + shownNumber(climb > 0 ? climb : -climb);
}

QString ChallengeScreenModel::climbText() const {
    const std::int64_t climb = service_.climbThisWeek().value_or(0);
    if (climb > 0)
        return tr("%n places up this week", "", pluralCount(climb));
    return climb < 0 ? tr("%n places down this week", "", pluralCount(-climb)) : QString();
}

bool ChallengeScreenModel::isClimbing() const {
    return service_.climbThisWeek().value_or(0) > 0;
}

QString ChallengeScreenModel::boardNote() const {
    switch (board_) {
    case Board::none:
        return {};
    case Board::reading:
        return rows_.rowCount() == 0 ? tr("The board is on its way…") : QString();
    case Board::shown:
        return rows_.rowCount() == 0 ? tr("Nobody is on the board yet.") : QString();
    case Board::unreachable:
        return rows_.rowCount() == 0
                   ? tr("The board can't be reached just now.")
                   : tr("The board can't be reached just now. This is how it was last.");
    }
    Q_UNREACHABLE();
}

void ChallengeScreenModel::setName(const QString& name) {
    if (isBusy_ || name == name_)
        return;
    name_ = name;
    say({}, {});
}

void ChallengeScreenModel::setCountry(const QString& code) {
    if (isBusy_ || code == country_ || ui::countryName(code).isEmpty())
        return;
    country_ = code;
    say({}, {});
}

void ChallengeScreenModel::send() {
    if (!canSend())
        return;
    isBusy_ = true;
    say({}, {});
    service_.join(name_, country_, [self = QPointer(this)](Joining answer) {
        if (self)
            self->joiningAnswered(answer);
    });
}

void ChallengeScreenModel::joiningAnswered(Joining answer) {
    isBusy_ = false;
    switch (answer) {
    case Joining::joined:
        name_.clear();
        enter(Face::entry);
        return readBoard();
    case Joining::nameTaken:
        return say(QStringLiteral("warning"), tr("That name's already taken. Try another."));
    case Joining::nameUnfit:
        return say(QStringLiteral("warning"), nameHint());
    case Joining::unreachable:
        return say(QStringLiteral("info"),
                   tr("The leaderboard can't be reached just now, so nothing was changed."));
    }
    Q_UNREACHABLE();
}

void ChallengeScreenModel::startRename() {
    if (!isJoined() || isBusy_)
        return;
    name_ = ownName();
    country_ = ownCountry();
    countries_.setText({});
    enter(Face::rename);
}

void ChallengeScreenModel::askToLeave() {
    if (isJoined() && !isBusy_)
        enter(Face::leave);
}

bool ChallengeScreenModel::cancel() {
    if (!isJoined() || face_ == Face::entry)
        return false;
    if (!isBusy_)
        enter(Face::entry);
    return true;
}

void ChallengeScreenModel::leave() {
    if (!isJoined() || isBusy_)
        return;
    isBusy_ = true;
    say({}, {});
    service_.leave([self = QPointer(this)](bool left) {
        if (self)
            self->leavingAnswered(left);
    });
}

void ChallengeScreenModel::leavingAnswered(bool left) {
    isBusy_ = false;
    if (!left)
        return say(QStringLiteral("danger"),
                   tr("Your entry could not be removed just now, so you are still on the board."));
    ++reading_;
    board_ = Board::none;
    rows_.show({});
    name_.clear();
    enter(Face::entry);
    say(QStringLiteral("success"), tr("Your entry is gone."));
}

void ChallengeScreenModel::readBoard() {
    if (!problem().isEmpty())
        return;
    board_ = Board::reading;
    submitted_ = service_.state().lastSubmit;
    Q_EMIT changed();
    service_.fetchBoard([self = QPointer(this), reading = ++reading_](const auto& board) {
        if (self && self->reading_ == reading)
            self->boardAnswered(board);
    });
}

void ChallengeScreenModel::boardAnswered(const platform::Result<stats::ChallengeBoard>& board) {
    board_ = board ? Board::shown : Board::unreachable;
    if (board)
        rows_.show(*board);
    Q_EMIT changed();
}

void ChallengeScreenModel::openWebBoard() {
    if (const QUrl page = service_.boardPage(); !page.isEmpty())
        agent_.ports().workspace.openUrl(page, [self = QPointer(this)](const auto& opened) {
            if (self && !opened)
                self->say(QStringLiteral("danger"), tr("The browser could not be opened."));
        });
}

void ChallengeScreenModel::serviceChanged() {
    Q_EMIT changed();
    // Another submission was answered: the board is another one now.
    if (isShown_ && isJoined() && service_.state().lastSubmit != submitted_)
        readBoard();
}

bool ChallengeScreenModel::isJoined() const {
    return service_.state().joined;
}

void ChallengeScreenModel::enter(Face face) {
    face_ = face;
    say({}, {});
}

void ChallengeScreenModel::say(const QString& kind, const QString& message) {
    messageKind_ = kind;
    message_ = message;
    Q_EMIT changed();
}

} // namespace skipnest::ui
