// SPDX-License-Identifier: Apache-2.0
#include "ui/onboarding/TargetChoices.h"

namespace skipnest::ui {

QVariant TargetChoices::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const TargetChoice& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case pathRole:
        return row.id;
    case Qt::DisplayRole:
    case nameRole:
        return row.name;
    case detailRole:
        return row.detail;
    default:
        return {};
    }
}

QHash<int, QByteArray> TargetChoices::roleNames() const {
    return {{pathRole, "path"}, {nameRole, "name"}, {detailRole, "detail"}};
}

} // namespace skipnest::ui
