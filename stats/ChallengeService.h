// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/AppInfo.h"
#include "platform/Diagnostics.h"
#include "platform/Scheduler.h"
#include "platform/UserDefaults.h"
#include "platform/WallClock.h"
#include "platform/WebService.h"
#include "stats/ChallengeBoard.h"
#include "stats/ChallengeName.h"
#include "stats/JumpStats.h"

#include <QDateTime>
#include <QJsonObject>
#include <QObject>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace skipnest::stats {

// The person's entry on the anonymous world leaderboard. Best effort: no network error is shown,
// and what failed is tried again at the next jump or timer.
class ChallengeService final : public QObject {
    Q_OBJECT
public:
    // Kept in the user defaults under `key`, field names as keys.
    struct State {
        bool joined = false;
        QString name;
        QString country; // ISO 3166 code of two letters, lower case
        QString id;
        std::int64_t lastRank = 0; // 0: none yet
        std::int64_t lastOf = 0;
        std::optional<QDateTime> lastSubmit; // UTC, when it was answered
        QStringList awarded;
        std::int64_t weekAnchorRank = 0;
        std::optional<QDateTime> weekAnchorDate;
        QJsonObject unknown; // members of a newer version, written back as they are

        bool operator==(const State&) const = default;
    };
    enum class Joining { joined, nameTaken, nameUnfit, unreachable };

    static constexpr auto key = "sk.challenge.v1";
    static constexpr std::size_t longestName = longestChallengerName; // in code points

    ChallengeService(platform::WebService& web, JumpStats& stats, platform::UserDefaults& defaults,
                     platform::Scheduler& scheduler, const platform::WallClock& clock,
                     platform::Diagnostics& diagnostics, const platform::AppInfo& app);
    ~ChallengeService() override;

    [[nodiscard]] platform::Availability availability() const { return web_.availability(); }
    [[nodiscard]] const State& state() const { return state_; }
    // Nothing while not joined.
    [[nodiscard]] std::optional<ChallengeStanding> standing() const;
    // Places won since the week's anchor; negative for places lost. Nothing before two ranks.
    [[nodiscard]] std::optional<std::int64_t> climbThisWeek() const;

    // Joins, or gives the entry this name and country. The name is checked with the service first;
    // nothing is stored unless it is free. `done` (not empty) hears once, never from inside.
    // Joining and leaving wait for nobody: while one is on its way, another one fails.
    void join(const QString& name, const QString& country, std::function<void(Joining)> done);
    // Deletes the entry at the service, and then here. On failure all stays as it was. A submission
    // that is on its way is waited for: arriving after the removal, it would make the entry anew.
    void leave(std::function<void(bool left)> done);
    // After a jump: submits where the last answered submission is absent or at least 300 s old.
    void jumped();
    // The timer of the shell, and joining. Does nothing while not joined or on its way already.
    void submit();
    // The board as it is now. `done` hears once, never from inside.
    void fetchBoard(std::function<void(const platform::Result<ChallengeBoard>&)> done);
    // The board for a browser; empty where there is no service.
    [[nodiscard]] QUrl boardPage() const;

    // A challenge milestone was shown.
    void award(const QString& id);

Q_SIGNALS:
    void changed();

private:
    // What the person asked for and the service has not answered yet.
    enum class Request { none, join, leave };

    void nameChecked(const platform::Result<platform::HttpReply>& reply, const State& wanted,
                     const std::function<void(Joining)>& done);
    void submissionAnswered(const platform::Result<platform::HttpReply>& reply, const QString& id);
    void accept(std::int64_t rank, std::int64_t of);
    void remove();
    void removalAnswered(const platform::Result<platform::HttpReply>& reply);
    void store(State state);
    // Runs `task` soon, unless this object is gone by then.
    void later(std::function<void()> task);
    // `handler` with the reply, unless this object is gone by then.
    [[nodiscard]] platform::WebService::Completion
    whileAlive(platform::WebService::Completion handler) const;

    platform::WebService& web_;
    JumpStats& stats_;
    platform::UserDefaults& defaults_;
    platform::Scheduler& scheduler_;
    const platform::WallClock& clock_;
    platform::Diagnostics& diagnostics_;
    QString version_;
    State state_;
    bool isSubmitting_ = false;
    bool submitsAgain_ = false; // the one on its way carries an old name
    Request request_ = Request::none;
    std::function<void(bool)> left_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace skipnest::stats
