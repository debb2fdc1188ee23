// SPDX-License-Identifier: Apache-2.0
#include "ui/switcher/BarRows.h"

namespace skipnest::ui {

QVariant WindowRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const WindowRow& row = at(index.row());
    switch (role) {
    case nameRole:
        return row.name;
    case titleRole:
    case Qt::DisplayRole:
        return row.title;
    case iconRole:
        return row.icon;
    case tabsRole:
        return row.tabs;
    case isFocusedRole:
        return row.isFocused;
    case pictureRole:
        return pictures_.value(row.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> WindowRows::roleNames() const {
    return {{nameRole, "name"}, {titleRole, "title"},         {iconRole, "icon"},
            {tabsRole, "tabs"}, {isFocusedRole, "isFocused"}, {pictureRole, "picture"}};
}

void WindowRows::setPicture(int id, const QImage& picture) {
    const int row = rowOf(id);
    if (row < 0)
        return;
    pictures_.insert(id, picture);
    Q_EMIT dataChanged(index(row), index(row), {pictureRole});
}

void WindowRows::dropPictures() {
    if (pictures_.isEmpty())
        return;
    pictures_.clear();
    if (const int count = rowCount(); count > 0)
        Q_EMIT dataChanged(index(0), index(count - 1), {pictureRole});
}

QVariant TabRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const TabRow& row = at(index.row());
    switch (role) {
    case titleRole:
    case Qt::DisplayRole:
        return row.title;
    case letterRole:
        return row.letter;
    default:
        return {};
    }
}

QHash<int, QByteArray> TabRows::roleNames() const {
    return {{titleRole, "title"}, {letterRole, "letter"}};
}

QVariant FoundRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FoundRow& row = at(index.row());
    switch (role) {
    case nameRole:
    case Qt::DisplayRole:
        return row.name;
    case titleRole:
        return row.title;
    case domainRole:
        return row.domain;
    case windowRole:
        return row.window;
    case letterRole:
        return row.letter;
    default:
        return {};
    }
}

QHash<int, QByteArray> FoundRows::roleNames() const {
    return {{nameRole, "name"},
            {titleRole, "title"},
            {domainRole, "domain"},
            {windowRole, "windowTitle"},
            {letterRole, "letter"}};
}

} // namespace skipnest::ui
