// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "model/RecordId.h"
#include "ui/controls/KeyedListModel.h"

#include <QStringList>

namespace skipnest::ui {

// One shortcut as the list shows it.
struct ShortcutRow {
    model::RecordId id;
    QString name;
    QString path;  // for the picture
    QString place; // where the target is, in the person's words
    QStringList keys;
    QStringList hideKeys; // only where the record has its own
    // What is wrong with it, and how grave: "danger", "warning" or "info"; empty where nothing is.
    QString note;
    QString noteKind;
    bool isConfirmed = true; // else it came with an import and waits

    [[nodiscard]] const model::RecordId& key() const { return id; }
    bool operator==(const ShortcutRow&) const = default;
};

class ShortcutRows final : public KeyedListModel<ShortcutRow> {
    Q_OBJECT
public:
    enum Role {
        idRole = Qt::UserRole + 1,
        nameRole,
        pathRole,
        placeRole,
        keysRole,
        hideKeysRole,
        noteRole,
        noteKindRole,
        isConfirmedRole,
    };

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

} // namespace skipnest::ui
