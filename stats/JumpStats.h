// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Diagnostics.h"
#include "platform/Executor.h"
#include "platform/Files.h"
#include "platform/Scheduler.h"
#include "platform/WallClock.h"
#include "stats/LocalDays.h"
#include "stats/Milestones.h"
#include "stats/StatsFile.h"
#include "stats/StatsStore.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace skipnest::stats {

// Counts every jump, and says what the person gained by it. On the main thread; only the writing of
// the file leaves it.
//
// A day is a calendar day where the person is. A jump is counted on the day of the zone as last
// known, and moved at once after the event at hand where the zone turns out to be another one.
class JumpStats final : public QObject {
    Q_OBJECT
public:
    enum class Kind { keyboard, voice, switcher };

    // What others do about a jump, when the event at hand has been dealt with: a key press waits
    // for none of it. Either may be empty.
    struct Reactions {
        std::function<void()> firstJump; // the first one ever
        std::function<void()> jumped;    // every one, after it was counted
    };

    JumpStats(platform::Files& files, platform::Scheduler& scheduler, platform::Executor& executor,
              const platform::WallClock& clock, platform::Diagnostics& diagnostics,
              const platform::AppInfo& app);
    // Writes what waits to be written.
    ~JumpStats() override;

    void setReactions(Reactions reactions) { reactions_ = std::move(reactions); }
    // The challenge milestones ask for the standing; empty where the person takes no part.
    void setStanding(std::function<std::optional<ChallengeStanding>()> standing) {
        standing_ = std::move(standing);
    }

    // Counts one jump to the target of this name; a blank one is no target, but a jump all the
    // same. Takes 1 µs, 15 µs after a rest that left all caches cold, with a save going on or
    // without; no file is touched. The file is written 2 s after the last change, on another
    // thread.
    void record(Kind kind, const QString& target);
    // Of a feature that tips speak of: "keyboard", "voice", "switcher", "hide", "capture", "drop".
    void markUsed(const QString& feature);
    // Writes what waits to be written, here and now.
    void flush();

    [[nodiscard]] const StatsStore& store() const { return store_; }
    // Jumps of today and the six days before it.
    [[nodiscard]] std::int64_t weekJumps() const;
    // Days in a row up to today with a jump each; 0 until today's first.
    [[nodiscard]] std::int64_t streakDays() const;
    // The run that ended yesterday, while today has no jump yet: what today's first would keep
    // alive. 0 otherwise.
    [[nodiscard]] std::int64_t streakToKeep() const;
    // Jumps of each of the last `weeks` spans of seven days, the oldest first; the last one is
    // weekJumps().
    [[nodiscard]] std::vector<std::int64_t> weeks(int weeks) const;

    // The first that is due and was not shown yet. The caller who shows it says so by celebrate().
    [[nodiscard]] std::optional<Milestone> nextMilestone() const;
    [[nodiscard]] std::optional<Milestone> weeklyRecap() const;
    [[nodiscard]] std::optional<Tip> nextTip() const;
    void celebrate(const QString& id);

Q_SIGNALS:
    // A figure, a milestone or a tip may be another one now. Once for all changes of one event,
    // after it.
    void changed();

private:
    struct Counted {
        QDateTime utc;
        QDate day;
    };

    void use(const QString& feature);
    void changedStore();
    void settle();
    void settleDays();
    void handOver();
    void write();
    void report(const StatsFile::Saved& saved);

    platform::Scheduler& scheduler_;
    platform::Executor& executor_;
    const platform::WallClock& clock_;
    platform::Diagnostics& diagnostics_;
    Reactions reactions_;
    std::function<std::optional<ChallengeStanding>()> standing_;

    std::shared_ptr<StatsFile> file_;
    LocalDays days_;
    StatsStore store_;
    StatsStore unsaved_; // days and targets that changed since the file was told
    bool hasUnsaved_ = false;
    platform::Timer save_;
    std::set<platform::Failure::Kind> reported_; // since the last save that worked

    std::vector<Counted> unsettled_;
    bool isFirstJump_ = false;
    bool isSettling_ = false; // settle() is posted
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::stats
