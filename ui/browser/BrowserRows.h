// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/KeyedListModel.h"

#include <QString>
#include <qqmlintegration.h>

namespace skipnest::ui {

struct BrowserRow {
    QString id;
    QString title;
    QString state; // "connected", "waiting", "new", "unreachable"
    QString note;  // the state in words

    [[nodiscard]] const QString& key() const { return id; }
    bool operator==(const BrowserRow&) const = default;
};

// The browsers of this machine and how far each has come.
class BrowserRows : public KeyedListModel<BrowserRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the browsers' setup")
public:
    using Row = BrowserRow;

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { idRole = Qt::UserRole, titleRole, stateRole, noteRole };
};

} // namespace skipnest::ui
