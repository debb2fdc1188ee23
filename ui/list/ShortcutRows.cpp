// SPDX-License-Identifier: Apache-2.0
#include "ui/list/ShortcutRows.h"

namespace skipnest::ui {

QVariant ShortcutRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ShortcutRow& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case idRole:
        return row.id.text();
    case nameRole:
    case Qt::DisplayRole:
        return row.name;
    case pathRole:
        return row.path;
    case placeRole:
        return row.place;
    case keysRole:
        return row.keys;
    case hideKeysRole:
        return row.hideKeys;
    case noteRole:
        return row.note;
    case noteKindRole:
        return row.noteKind;
    case isConfirmedRole:
        return row.isConfirmed;
    default:
        return {};
    }
}

QHash<int, QByteArray> ShortcutRows::roleNames() const {
    return {{idRole, "recordId"}, {nameRole, "name"},         {pathRole, "path"},
            {placeRole, "place"}, {keysRole, "keys"},         {hideKeysRole, "hideKeys"},
            {noteRole, "note"},   {noteKindRole, "noteKind"}, {isConfirmedRole, "isConfirmed"}};
}

} // namespace skipnest::ui
