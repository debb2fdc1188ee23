// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/KeyedListModel.h"

#include <QString>
#include <qqmlintegration.h>

namespace skipnest::stats {
struct ChallengeBoard;
}

namespace skipnest::ui {

// One challenger, as the board shows them.
struct ChallengeRow {
    QString name;
    QString rank;    // "#3"
    QString code;    // of the country; empty where the board names none that there is
    QString country; // in the person's language
    QString jumps;   // "1,204"
    QString minutes;
    QString streak;
    QString figures; // in words, for those who hear the row
    bool isOwn = false;

    [[nodiscard]] const QString& key() const { return name; }
    bool operator==(const ChallengeRow&) const = default;
};

class ChallengeRows : public KeyedListModel<ChallengeRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the challenge")
public:
    using KeyedListModel::KeyedListModel;

    void show(const stats::ChallengeBoard& board);
    // Of the person's own entry; -1 where it is not among those shown.
    [[nodiscard]] int ownRow() const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role {
        nameRole = Qt::UserRole + 1,
        rankRole,
        codeRole,
        countryRole,
        jumpsRole,
        minutesRole,
        streakRole,
        figuresRole,
        isOwnRole,
    };
};

} // namespace skipnest::ui
