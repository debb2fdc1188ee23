// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/KeyedListModel.h"

#include <qqmlintegration.h>

namespace skipnest::ui {

struct VocabularyRow {
    QString heard;
    QString canonical; // empty for a word

    [[nodiscard]] const QString& key() const { return heard; }
    bool operator==(const VocabularyRow&) const = default;
};

// Words that recognition should know, or what is misheard and what it is read as.
class VocabularyRows : public KeyedListModel<VocabularyRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings")
public:
    using Row = VocabularyRow;

    using KeyedListModel::KeyedListModel;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { heardRole = Qt::UserRole, canonicalRole };
};

} // namespace skipnest::ui
