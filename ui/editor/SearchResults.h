// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/KeyedListModel.h"

#include <QString>

namespace skipnest::ui {

// One target that could get a shortcut.
struct FoundTarget {
    QString id; // the absolute path
    QString name;
    QString place;        // in the person's words
    bool isTaken = false; // there is a shortcut for it

    [[nodiscard]] const QString& key() const { return id; }
    bool operator==(const FoundTarget&) const = default;
};

class SearchResults final : public KeyedListModel<FoundTarget> {
    Q_OBJECT
public:
    enum Role { pathRole = Qt::UserRole + 1, nameRole, placeRole, isTakenRole };

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

} // namespace skipnest::ui
