// SPDX-License-Identifier: Apache-2.0
#include "ui/settings/VocabularyRows.h"

namespace skipnest::ui {

QVariant VocabularyRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row& row = rows()[static_cast<std::size_t>(index.row())];
    switch (role) {
    case heardRole:
        return row.heard;
    case canonicalRole:
        return row.canonical;
    default:
        return {};
    }
}

QHash<int, QByteArray> VocabularyRows::roleNames() const {
    return {{heardRole, "heard"}, {canonicalRole, "canonical"}};
}

} // namespace skipnest::ui
