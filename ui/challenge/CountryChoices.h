// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/challenge/Countries.h"
#include "ui/controls/KeyedListModel.h"

#include <qqmlintegration.h>

namespace skipnest::ui {

// What the person may mean by what they typed: the country of this code, then those whose name
// begins like that, then those with such a word in it. All of them while nothing is typed.
class CountryChoices : public KeyedListModel<Country> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the challenge")
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
public:
    explicit CountryChoices(QObject* parent = nullptr);

    [[nodiscard]] const QString& text() const { return text_; }
    void setText(const QString& text);

    // -1 for a row that is not shown.
    Q_INVOKABLE int rowOfCode(const QString& code) const { return rowOf(code); }
    // Empty for a row that there is not.
    Q_INVOKABLE QString codeAt(int row) const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void textChanged();

private:
    enum Role { codeRole = Qt::UserRole + 1, nameRole };

    void list();

    std::vector<Country> all_;
    std::vector<QString> folded_; // the names of all_
    QString text_;
};

} // namespace skipnest::ui
