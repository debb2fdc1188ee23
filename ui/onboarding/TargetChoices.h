// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractListModel>
#include <QString>
#include <qqmlintegration.h>

#include <vector>

namespace skipnest::ui {

// What a first shortcut can open: one row a target, known by its path. A new list of rows arrives as
// the removals, moves, insertions and changes that lead to it, so that the view keeps its place.
class TargetChoices final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the onboarding")
public:
    struct Row {
        QString path;
        QString name;
        QString detail; // what it is, or where it lies

        bool operator==(const Row&) const = default;
    };
    enum Role { Path = Qt::UserRole, Name, Detail };

    using QAbstractListModel::QAbstractListModel;

    // Paths are unique.
    void setRows(const std::vector<Row>& rows);
    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void bring(const Row& row, int to);

    std::vector<Row> rows_;
};

} // namespace skipnest::ui
