// SPDX-License-Identifier: Apache-2.0
#include "ui/editor/SearchResults.h"

namespace skipnest::ui {

QVariant SearchResults::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FoundTarget& found = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case pathRole:
        return found.id;
    case nameRole:
    case Qt::DisplayRole:
        return found.name;
    case placeRole:
        return found.place;
    case isTakenRole:
        return found.isTaken;
    default:
        return {};
    }
}

QHash<int, QByteArray> SearchResults::roleNames() const {
    return {{pathRole, "path"}, {nameRole, "name"}, {placeRole, "place"}, {isTakenRole, "isTaken"}};
}

} // namespace skipnest::ui
