// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/TargetChoices.h"

#include <algorithm>

namespace skipnest::ui {

void TargetChoices::setRows(const std::vector<Row>& rows) {
    for (int i = static_cast<int>(rows_.size()) - 1; i >= 0; --i) {
        if (std::ranges::find(rows, rows_[static_cast<std::size_t>(i)].path, &Row::path) !=
            rows.end())
            continue;
        beginRemoveRows({}, i, i);
        rows_.erase(rows_.begin() + i);
        endRemoveRows();
    }
    for (int i = 0; i < static_cast<int>(rows.size()); ++i)
        bring(rows[static_cast<std::size_t>(i)], i);
}

void TargetChoices::bring(const Row& row, int to) {
    const auto found = std::ranges::find(rows_, row.path, &Row::path);
    if (found == rows_.end()) {
        beginInsertRows({}, to, to);
        rows_.insert(rows_.begin() + to, row);
        endInsertRows();
        return;
    }
    // Rows before `to` are in their places, so it can only stand further down.
    if (const int from = static_cast<int>(found - rows_.begin()); from != to) {
        beginMoveRows({}, from, from, {}, to);
        std::rotate(rows_.begin() + to, found, found + 1);
        endMoveRows();
    }
    if (Row& here = rows_[static_cast<std::size_t>(to)]; here != row) {
        here = row;
        Q_EMIT dataChanged(index(to), index(to));
    }
}

int TargetChoices::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant TargetChoices::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Path:
        return row.path;
    case Qt::DisplayRole:
    case Name:
        return row.name;
    case Detail:
        return row.detail;
    default:
        return {};
    }
}

QHash<int, QByteArray> TargetChoices::roleNames() const {
    return {{Path, "path"}, {Name, "name"}, {Detail, "detail"}};
}

} // namespace skipnest::ui
