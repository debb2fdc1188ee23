// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "stats/ChallengeService.h"
#include "ui/challenge/ChallengeRows.h"
#include "ui/challenge/CountryChoices.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <qqmlintegration.h>

#include <cstdint>
#include <optional>

namespace skipnest::app {
class AppDelegate;
}

namespace skipnest::ui {

// The challenge as a person takes part in it: joining, the board, another name or flag, leaving.
class ChallengeScreenModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the popover")
    // "join", "board", "rename" or "leave".
    Q_PROPERTY(QString face READ face NOTIFY changed)
    // Why nobody can take part, and what helps; empty where everybody can.
    Q_PROPERTY(QString problem READ problem CONSTANT)
    Q_PROPERTY(QString remedy READ remedy CONSTANT)
    // The service has been asked, and has not answered.
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY changed)
    // What came of it, and its kind for a MessageLine.
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString messageKind READ messageKind NOTIFY changed)
    // The form of "join" and "rename".
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(QString nameHint READ nameHint NOTIFY changed)
    Q_PROPERTY(QString country READ country WRITE setCountry NOTIFY changed)
    Q_PROPERTY(QString countryName READ countryName NOTIFY changed)
    Q_PROPERTY(bool canSend READ canSend NOTIFY changed)
    Q_PROPERTY(skipnest::ui::CountryChoices* countries READ countries CONSTANT)
    // The person's entry.
    Q_PROPERTY(QString ownName READ ownName NOTIFY changed)
    Q_PROPERTY(QString ownCountry READ ownCountry NOTIFY changed)
    Q_PROPERTY(QString ownCountryName READ ownCountryName NOTIFY changed)
    Q_PROPERTY(QString standing READ standing NOTIFY changed)
    // "▲3", "▼2" or empty, and the same in words.
    Q_PROPERTY(QString climb READ climb NOTIFY changed)
    Q_PROPERTY(QString climbText READ climbText NOTIFY changed)
    Q_PROPERTY(bool isClimbing READ isClimbing NOTIFY changed)
    // The board as last read, and why there is none or none newer.
    Q_PROPERTY(skipnest::ui::ChallengeRows* rows READ rows CONSTANT)
    Q_PROPERTY(int ownRow READ ownRow NOTIFY changed)
    Q_PROPERTY(QString boardNote READ boardNote NOTIFY changed)
    Q_PROPERTY(bool isReading READ isReading NOTIFY changed)
public:
    explicit ChallengeScreenModel(app::AppDelegate& agent, QObject* parent = nullptr);

    // Whether the screen is in view: the board is read when it comes, and while it is there.
    void setShown(bool isShown);

    [[nodiscard]] QString face() const;
    [[nodiscard]] QString problem() const;
    [[nodiscard]] QString remedy() const;
    [[nodiscard]] bool isBusy() const { return isBusy_; }
    [[nodiscard]] const QString& message() const { return message_; }
    [[nodiscard]] const QString& messageKind() const { return messageKind_; }
    [[nodiscard]] const QString& name() const { return name_; }
    [[nodiscard]] QString nameHint() const;
    [[nodiscard]] const QString& country() const { return country_; }
    [[nodiscard]] QString countryName() const;
    [[nodiscard]] bool canSend() const;
    [[nodiscard]] CountryChoices* countries() { return &countries_; }
    [[nodiscard]] QString ownName() const;
    [[nodiscard]] QString ownCountry() const;
    [[nodiscard]] QString ownCountryName() const;
    [[nodiscard]] QString standing() const;
    [[nodiscard]] QString climb() const;
    [[nodiscard]] QString climbText() const;
    [[nodiscard]] bool isClimbing() const;
    [[nodiscard]] ChallengeRows* rows() { return &rows_; }
    [[nodiscard]] int ownRow() const { return rows_.ownRow(); }
    [[nodiscard]] QString boardNote() const;
    [[nodiscard]] bool isReading() const { return board_ == Board::reading; }

    void setName(const QString& name);
    void setCountry(const QString& code);
    // Joins, or gives the entry another name and flag.
    Q_INVOKABLE void send();
    Q_INVOKABLE void startRename();
    Q_INVOKABLE void askToLeave();
    // Back to the board from "rename" and "leave"; false where there is nothing to go back from.
    Q_INVOKABLE bool cancel();
    Q_INVOKABLE void leave();
    Q_INVOKABLE void readBoard();
    // In the browser.
    Q_INVOKABLE void openWebBoard();

Q_SIGNALS:
    void changed();

private:
    enum class Face { entry, rename, leave }; // the entry: the board, or joining
    enum class Board { none, reading, shown, unreachable };

    [[nodiscard]] bool isJoined() const;
    void enter(Face face);
    void say(const QString& kind, const QString& message);
    void joiningAnswered(stats::ChallengeService::Joining answer);
    void leavingAnswered(bool left);
    void boardAnswered(const platform::Result<stats::ChallengeBoard>& board);
    void serviceChanged();

    app::AppDelegate& agent_;
    stats::ChallengeService& service_;
    CountryChoices countries_;
    ChallengeRows rows_;
    Face face_ = Face::entry;
    Board board_ = Board::none;
    std::uint64_t reading_ = 0;          // number of the last reading; older ones are stale
    std::optional<QDateTime> submitted_; // as of the last reading
    bool isShown_ = false;
    bool isBusy_ = false;
    QString name_;
    QString country_;
    QString message_;
    QString messageKind_;
};

} // namespace skipnest::ui
