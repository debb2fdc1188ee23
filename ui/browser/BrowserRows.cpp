// SPDX-License-Identifier: Apache-2.0
#include "ui/browser/BrowserRows.h"

namespace skipnest::ui {

QVariant BrowserRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case idRole:
        return row.id;
    case titleRole:
        return row.title;
    case stateRole:
        return row.state;
    case noteRole:
        return row.note;
    default:
        return {};
    }
}

QHash<int, QByteArray> BrowserRows::roleNames() const {
    return {{idRole, "browserId"}, {titleRole, "title"}, {stateRole, "state"}, {noteRole, "note"}};
}

} // namespace skipnest::ui
