// SPDX-License-Identifier: Apache-2.0
#include "stats/ChallengeService.h"

#include "stats/ChallengeCoding.h"
#include "stats/TimeSaved.h"

#include <QUuid>

#include <utility>

namespace skipnest::stats {
namespace {

// A thousand entries with long names.
constexpr qsizetype largestBoard = 512 * 1024;

using namespace std::chrono_literals;
using platform::HttpReply;
using platform::Result;

const QString page = QStringLiteral("/leaderboard.php");

constexpr std::chrono::milliseconds submissionPeriod = 300s;
constexpr std::chrono::milliseconds anchorPeriod = 604800s;

// A date in the future is of a clock that was wrong then or is now. Waiting for it could take for
// ever, so it counts as long past.
bool isFuture(const QDateTime& date, const QDateTime& now) {
    return date > now;
}

bool isSubmissionDue(const std::optional<QDateTime>& last, const QDateTime& now) {
    return !last || isFuture(*last, now) || last->msecsTo(now) >= submissionPeriod.count();
}

bool isAnchorOld(const std::optional<QDateTime>& anchor, const QDateTime& now) {
    return !anchor || isFuture(*anchor, now) || anchor->msecsTo(now) > anchorPeriod.count();
}

} // namespace

ChallengeService::ChallengeService(platform::WebService& web, JumpStats& stats,
                                   platform::UserDefaults& defaults, platform::Scheduler& scheduler,
                                   const platform::WallClock& clock,
                                   platform::Diagnostics& diagnostics, const platform::AppInfo& app)
    : web_(web), stats_(stats), defaults_(defaults), scheduler_(scheduler), clock_(clock),
      diagnostics_(diagnostics), version_(app.version),
      state_(decodeChallenge(defaults.value(QLatin1String(key)))) {}

ChallengeService::~ChallengeService() = default;

std::optional<ChallengeStanding> ChallengeService::standing() const {
    if (!state_.joined)
        return std::nullopt;
    return ChallengeStanding{state_.lastRank, state_.lastOf, state_.awarded};
}

std::optional<std::int64_t> ChallengeService::climbThisWeek() const {
    // Right after the anchor was set, the rank is the anchor.
    const bool hasTwoRanks = state_.joined && state_.lastRank > 0 && state_.weekAnchorRank > 0 &&
                             state_.lastSubmit != state_.weekAnchorDate;
    return hasTwoRanks ? std::optional(state_.weekAnchorRank - state_.lastRank) : std::nullopt;
}

void ChallengeService::join(const QString& name, const QString& country,
                            std::function<void(Joining)> done) {
    const auto fitting = challengerName(name);
    if (!fitting || request_ != Request::none)
        return later([done = std::move(done), fits = fitting.has_value()] {
            done(fits ? Joining::unreachable : Joining::nameUnfit);
        });
    State wanted = state_;
    if (!wanted.joined) {
        wanted = {};
        wanted.joined = true;
        wanted.id = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    }
    wanted.name = *fitting;
    wanted.country = countryCode(country);

    request_ = Request::join;
    web_.get(page,
             {{QStringLiteral("api"), QStringLiteral("checkname")},
              {QStringLiteral("n"), wanted.name},
              {QStringLiteral("i"), wanted.id}},
             whileAlive([this, wanted, done = std::move(done)](const Result<HttpReply>& reply) {
                 nameChecked(reply, wanted, done);
             }));
}

void ChallengeService::nameChecked(const Result<HttpReply>& reply, const State& wanted,
                                   const std::function<void(Joining)>& done) {
    request_ = Request::none;
    const auto available =
        reply && reply->isSuccess() ? decodeAvailable(reply->body) : std::nullopt;
    if (!available)
        return done(Joining::unreachable);
    if (!*available)
        return done(Joining::nameTaken);
    // Only these are the person's; a submission may have been answered, or a milestone shown, since
    // the question.
    State next = state_;
    next.joined = true;
    next.name = wanted.name;
    next.country = wanted.country;
    next.id = wanted.id;
    store(std::move(next));
    submitsAgain_ = isSubmitting_;
    submit();
    done(Joining::joined);
}

void ChallengeService::leave(std::function<void(bool)> done) {
    if (!state_.joined || request_ != Request::none)
        return later([done = std::move(done), left = !state_.joined] { done(left); });
    request_ = Request::leave;
    left_ = std::move(done);
    diagnostics_.log(QStringLiteral("challenge: remove attempt"));
    if (!isSubmitting_)
        remove();
}

void ChallengeService::remove() {
    web_.post(
        page,
        {{QStringLiteral("action"), QStringLiteral("remove")}, {QStringLiteral("i"), state_.id}},
        whileAlive([this](const Result<HttpReply>& reply) { removalAnswered(reply); }));
}

void ChallengeService::removalAnswered(const Result<HttpReply>& reply) {
    request_ = Request::none;
    const bool left = reply && reply->isSuccess();
    const auto done = std::exchange(left_, nullptr);
    if (left) {
        diagnostics_.log(QStringLiteral("challenge: left board (id removed)"));
        store({});
    } else {
        const int status = reply ? reply->status : 0;
        diagnostics_.log(QStringLiteral("failed (code %1)").arg(status));
    }
    done(left);
}

void ChallengeService::jumped() {
    if (isSubmissionDue(state_.lastSubmit, clock_.nowUtc()))
        submit();
}

void ChallengeService::submit() {
    if (!state_.joined || isSubmitting_ || request_ == Request::leave)
        return;
    isSubmitting_ = true;
    const std::int64_t jumps = stats_.weekJumps();
    web_.post(page,
              {{QStringLiteral("i"), state_.id},
               {QStringLiteral("n"), state_.name},
               {QStringLiteral("j"), QString::number(jumps)},
               {QStringLiteral("m"), QString::number(minutesSaved(jumps))},
               {QStringLiteral("s"), QString::number(stats_.streakDays())},
               {QStringLiteral("v"), version_},
               {QStringLiteral("e"), QStringLiteral("pro")},
               {QStringLiteral("c"), state_.country}},
              whileAlive([this, id = state_.id](const Result<HttpReply>& reply) {
                  submissionAnswered(reply, id);
              }));
}

void ChallengeService::submissionAnswered(const Result<HttpReply>& reply, const QString& id) {
    isSubmitting_ = false;
    if (request_ == Request::leave)
        return remove();
    const auto rank = reply && reply->isSuccess() ? decodeRank(reply->body) : std::nullopt;
    if (rank && state_.joined && state_.id == id)
        accept(rank->rank, rank->of);
    if (std::exchange(submitsAgain_, false))
        submit();
}

void ChallengeService::accept(std::int64_t rank, std::int64_t of) {
    const QDateTime now = clock_.nowUtc();
    State next = state_;
    next.lastRank = rank;
    if (isAnchorOld(next.weekAnchorDate, now)) {
        next.weekAnchorRank = rank;
        next.weekAnchorDate = now;
    }
    next.lastOf = of;
    next.lastSubmit = now;
    store(std::move(next));
    diagnostics_.log(QStringLiteral("challenge: rank #%1 of %2").arg(rank).arg(of));
}

void ChallengeService::fetchBoard(std::function<void(const Result<ChallengeBoard>&)> done) {
    web_.get(
        page, {{QStringLiteral("api"), QStringLiteral("full")}, {QStringLiteral("i"), state_.id}},
        whileAlive([done = std::move(done)](const Result<HttpReply>& reply) {
            if (!reply)
                return done(reply.failure());
            if (!reply->isSuccess())
                return done(platform::Failure{
                    platform::Failure::Kind::refused,
                    QStringLiteral("the leaderboard answered with code %1").arg(reply->status)});
            done(decodeBoard(reply->body));
        }),
        largestBoard);
}

QUrl ChallengeService::boardPage() const {
    return web_.url(page);
}

void ChallengeService::award(const QString& id) {
    if (!state_.joined || state_.awarded.contains(id))
        return;
    State next = state_;
    next.awarded.append(id);
    store(std::move(next));
}

void ChallengeService::store(State state) {
    state_ = std::move(state);
    const auto saved = defaults_.setValue(QLatin1String(key), encodeChallenge(state_));
    if (!saved)
        diagnostics_.log(
            QStringLiteral("challenge: state not saved (%1)").arg(saved.failure().detail));
    Q_EMIT changed();
}

void ChallengeService::later(std::function<void()> task) {
    scheduler_.post([task = std::move(task), alive = std::weak_ptr(alive_)] {
        if (!alive.expired())
            task();
    });
}

platform::WebService::Completion
ChallengeService::whileAlive(platform::WebService::Completion handler) const {
    return [handler = std::move(handler),
            alive = std::weak_ptr(alive_)](const Result<HttpReply>& reply) {
        if (!alive.expired())
            handler(reply);
    };
}

} // namespace skipnest::stats
