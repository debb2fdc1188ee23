// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/controls/RowModel.h"

#include <qqmlintegration.h>

namespace skipnest::ui {

// Words that recognition should know, or what is misheard and what it is read as.
class VocabularyRows : public RowModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the settings")
public:
    struct Row {
        QString heard;
        QString canonical; // empty for a word

        [[nodiscard]] const QString& key() const { return heard; }
        bool operator==(const Row&) const = default;
    };

    explicit VocabularyRows(QObject* parent) : RowModel(parent) {}
    void update(std::vector<Row> rows) { apply(rows_, std::move(rows)); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    enum Role { heardRole = Qt::UserRole, canonicalRole };
    std::vector<Row> rows_;
};

} // namespace skipnest::ui
