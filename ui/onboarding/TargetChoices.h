// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/KeyedListModel.h"

#include <QString>
#include <qqmlintegration.h>

namespace skipnest::ui {

struct TargetChoice {
    QString id; // the path
    QString name;
    QString detail; // what it is, or where it lies

    [[nodiscard]] const QString& key() const { return id; }
    bool operator==(const TargetChoice&) const = default;
};

// What a first shortcut can open.
class TargetChoices : public KeyedListModel<TargetChoice> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with the onboarding")
public:
    enum Role { pathRole = Qt::UserRole + 1, nameRole, detailRole };

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

} // namespace skipnest::ui
