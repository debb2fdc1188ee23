// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/KeyedListModel.h"
#include "ui/stats/StatisticsFigures.h"

#include <QHash>
#include <qqmlintegration.h>

namespace skipnest::ui {

// A span of seven days in the chart.
struct WeekBar {
    int weeksAgo = 0;
    double length = 0; // from 0 to 1
    QString count;
    QString label;  // the day it ends with
    QString spoken; // all of it in words

    [[nodiscard]] int key() const { return weeksAgo; }
    bool operator==(const WeekBar&) const = default;
};

// The oldest first; the last one ends today.
class WeekBars : public KeyedListModel<WeekBar> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the statistics")
public:
    using KeyedListModel::KeyedListModel;

    void update(const StatisticsFigures& figures);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { lengthRole = Qt::UserRole, countRole, labelRole, spokenRole, isCurrentRole };
};

// A target and how often it was jumped to.
struct MostUsedTarget {
    QString name;
    QString count;
    double length = 0; // beside the first one's, from 0 to 1

    [[nodiscard]] const QString& key() const { return name; }
    bool operator==(const MostUsedTarget&) const = default;
};

// The first five.
class MostUsedTargets : public KeyedListModel<MostUsedTarget> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the statistics")
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY emptyChanged)
public:
    static constexpr std::size_t count = 5;

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] bool isEmpty() const { return rows().empty(); }
    void update(const QHash<QString, std::int64_t>& byTarget);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void emptyChanged();

private:
    enum Role { nameRole = Qt::UserRole, countRole, lengthRole };
};

} // namespace skipnest::ui
