// SPDX-License-Identifier: Apache-2.0
#include "ui/challenge/CountryChoices.h"

#include "ui/list/FoldedText.h"

#include <array>

namespace skipnest::ui {
namespace {

bool hasWordThatBegins(const QString& name, const QString& start) {
    for (qsizetype at = name.indexOf(start); at >= 0; at = name.indexOf(start, at + 1))
        if (at > 0 && !name.at(at - 1).isLetter())
            return true;
    return false;
}

} // namespace

CountryChoices::CountryChoices(QObject* parent) : KeyedListModel(parent), all_(countries()) {
    folded_.reserve(all_.size());
    for (const Country& each : all_)
        folded_.push_back(foldedText(each.name));
    setRows(all_);
}

void CountryChoices::setText(const QString& text) {
    if (text == text_)
        return;
    text_ = text;
    list();
    Q_EMIT textChanged();
}

void CountryChoices::list() {
    const QString wanted = foldedText(text_.trimmed());
    std::array<std::vector<Country>, 3> found; // by code, by the name, by a word in it
    for (std::size_t i = 0; i < all_.size(); ++i) {
        if (all_[i].code == wanted)
            found[0].push_back(all_[i]);
        else if (folded_[i].startsWith(wanted))
            found[1].push_back(all_[i]);
        else if (hasWordThatBegins(folded_[i], wanted))
            found[2].push_back(all_[i]);
    }
    std::vector<Country> rows;
    for (const auto& part : found)
        rows.insert(rows.end(), part.begin(), part.end());
    setRows(rows);
}

QString CountryChoices::codeAt(int row) const {
    return row >= 0 && row < rowCount() ? at(row).code : QString();
}

QVariant CountryChoices::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Country& country = at(index.row());
    switch (role) {
    case codeRole:
        return country.code;
    case nameRole:
    case Qt::DisplayRole:
        return country.name;
    default:
        return {};
    }
}

QHash<int, QByteArray> CountryChoices::roleNames() const {
    return {{codeRole, "code"}, {nameRole, "name"}};
}

} // namespace skipnest::ui
