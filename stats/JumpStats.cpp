// SPDX-License-Identifier: Apache-2.0
#include "stats/JumpStats.h"

#include <chrono>
#include <utility>

namespace skipnest::stats {
namespace {

using namespace std::chrono_literals;

constexpr platform::Duration saveDelay = 2s;
// New targets of one run find room without the whole table being laid out anew under a key press.
constexpr qsizetype roomForTargets = 4096;

void countOne(std::int64_t& count) {
    count = sumOfCounts(count, 1);
}

} // namespace

JumpStats::JumpStats(platform::Files& files, platform::Scheduler& scheduler,
                     platform::Executor& executor, const platform::WallClock& clock,
                     platform::Diagnostics& diagnostics, const platform::AppInfo& app)
    : scheduler_(scheduler), executor_(executor), clock_(clock), diagnostics_(diagnostics),
      file_(std::make_shared<StatsFile>(files, app.supportFolder + QStringLiteral("/stats.json"))),
      days_(clock) {
    StatsFile::Loaded loaded = file_->load();
    store_ = std::move(loaded.store);
    // Also parts with the copy that the file has; the first jump would have to otherwise.
    store_.byTarget.reserve(store_.byTarget.size() + roomForTargets);
    if (!loaded.problem.isEmpty())
        diagnostics_.log(QStringLiteral("stats: not all of stats.json can be used: ") +
                         loaded.problem);
}

JumpStats::~JumpStats() {
    *alive_ = false;
    flush();
    file_->close();
}

void JumpStats::record(Kind kind, const QString& target) {
    const QDateTime now = clock_.nowUtc();
    const QDate day = days_.at(now);
    std::int64_t& today = store_.byDay[day];
    countOne(today);
    unsaved_.byDay[day] = today;
    unsettled_.push_back({now, day});

    if (const QString name = target.trimmed(); !name.isEmpty()) {
        std::int64_t& jumps = store_.byTarget[name];
        countOne(jumps);
        unsaved_.byTarget[name] = jumps;
    }
    countOne(store_.total);
    switch (kind) {
    case Kind::keyboard:
        use(QStringLiteral("keyboard"));
        break;
    case Kind::voice:
        countOne(store_.voice);
        use(QStringLiteral("voice"));
        break;
    case Kind::switcher:
        countOne(store_.switcher);
        use(QStringLiteral("switcher"));
        break;
    }
    if (!store_.firstUse) {
        store_.firstUse = now;
        isFirstJump_ = true;
    }
    changedStore();
}

void JumpStats::use(const QString& feature) {
    if (!store_.used.contains(feature))
        store_.used.append(feature);
}

void JumpStats::markUsed(const QString& feature) {
    if (store_.used.contains(feature))
        return;
    store_.used.append(feature);
    changedStore();
}

void JumpStats::celebrate(const QString& id) {
    if (store_.celebrated.contains(id))
        return;
    store_.celebrated.append(id);
    changedStore();
}

void JumpStats::changedStore() {
    hasUnsaved_ = true;
    if (std::exchange(isSettling_, true))
        return;
    scheduler_.post([this, alive = alive_] {
        if (*alive)
            settle();
    });
}

void JumpStats::settle() {
    isSettling_ = false;
    const auto jumps = unsettled_.size();
    settleDays();
    if (hasUnsaved_)
        save_ = scheduler_.after(saveDelay, "stats", [this] { write(); });
    if (std::exchange(isFirstJump_, false) && reactions_.firstJump)
        reactions_.firstJump();
    for (std::size_t i = 0; i < jumps && reactions_.jumped; ++i)
        reactions_.jumped();
    Q_EMIT changed();
}

void JumpStats::settleDays() {
    if (unsettled_.empty())
        return;
    days_.askZone();
    for (const Counted& counted : std::exchange(unsettled_, {})) {
        const QDate day = days_.at(counted.utc);
        if (day == counted.day)
            continue;
        const auto wrong = store_.byDay.find(counted.day);
        unsaved_.byDay[counted.day] = --wrong->second;
        if (wrong->second == 0)
            store_.byDay.erase(wrong);
        countOne(store_.byDay[day]);
        unsaved_.byDay[day] = store_.byDay[day];
    }
}

void JumpStats::handOver() {
    if (!std::exchange(hasUnsaved_, false))
        return;
    StatsStore changed = std::exchange(unsaved_, {});
    changed.total = store_.total;
    changed.voice = store_.voice;
    changed.switcher = store_.switcher;
    changed.firstUse = store_.firstUse;
    changed.celebrated = store_.celebrated;
    changed.used = store_.used;
    file_->put(std::move(changed));
}

void JumpStats::write() {
    handOver();
    const auto saved = std::make_shared<StatsFile::Saved>();
    executor_.serial(
        [file = file_, saved, local = clock_.nowLocal()] { *saved = file->save(local); },
        [this, alive = alive_, saved] {
            if (*alive)
                report(*saved);
        });
}

void JumpStats::flush() {
    settleDays();
    save_.reset();
    handOver();
    report(file_->save(clock_.nowLocal()));
}

void JumpStats::report(const StatsFile::Saved& saved) {
    if (!saved.movedTo.isEmpty())
        diagnostics_.log(QStringLiteral("stats: kept a file with wrong parts as ") + saved.movedTo);
    if (saved.outcome)
        reported_.clear();
    else if (reported_.insert(saved.outcome.failure().kind).second)
        diagnostics_.log(QStringLiteral("stats: not saved: ") + saved.outcome.failure().detail);
}

std::int64_t JumpStats::weekJumps() const {
    return stats::weekJumps(store_, clock_.today());
}

std::int64_t JumpStats::streakDays() const {
    return stats::streakDays(store_, clock_.today());
}

std::int64_t JumpStats::streakToKeep() const {
    const QDate today = clock_.today();
    return stats::streakDays(store_, today) > 0 ? 0 : stats::streakDays(store_, today.addDays(-1));
}

std::vector<std::int64_t> JumpStats::weeks(int weeks) const {
    return stats::weeks(store_, clock_.today(), weeks);
}

std::optional<Milestone> JumpStats::nextMilestone() const {
    if (auto milestone = jumpMilestone(store_))
        return milestone;
    std::optional<ChallengeStanding> standing = standing_ ? standing_() : std::nullopt;
    if (!standing)
        return std::nullopt;
    standing->awarded += store_.celebrated;
    return challengeMilestone(*standing);
}

std::optional<Milestone> JumpStats::weeklyRecap() const {
    return recap(store_, clock_.today());
}

std::optional<Tip> JumpStats::nextTip() const {
    return tip(store_);
}

} // namespace skipnest::stats
