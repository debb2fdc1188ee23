// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractListModel>

#include <algorithm>
#include <concepts>
#include <utility>
#include <vector>

namespace skipnest::ui {

// What the lists of the screens share: a new content is applied as the row operations that lead
// there, so that a view keeps its place, its focus and its running motions.
class RowModel : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

protected:
    // Makes `rows` equal to `wanted`. Row::key() says which rows are the same one; a row that is
    // wanted twice is kept twice.
    template <typename Row>
    requires std::equality_comparable<Row>
    void apply(std::vector<Row>& rows, std::vector<Row> wanted) {
        const auto same = [](const Row& row) {
            return [key = row.key()](const Row& other) { return other.key() == key; };
        };
        for (std::size_t i = rows.size(); i-- > 0;)
            if (std::ranges::none_of(wanted, same(rows[i])))
                removeFrom(rows, i, i + 1);
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            const auto here = rows.begin() + static_cast<std::ptrdiff_t>(i);
            const auto found = std::find_if(here, rows.end(), same(wanted[i]));
            if (found == rows.end()) {
                beginInsertRows({}, static_cast<int>(i), static_cast<int>(i));
                rows.insert(here, std::move(wanted[i]));
                endInsertRows();
                continue;
            }
            if (found != here) {
                const int from = static_cast<int>(found - rows.begin());
                beginMoveRows({}, from, from, {}, static_cast<int>(i));
                std::rotate(here, found, found + 1);
                endMoveRows();
            }
            if (rows[i] != wanted[i]) {
                rows[i] = std::move(wanted[i]);
                const QModelIndex changed = index(static_cast<int>(i));
                Q_EMIT dataChanged(changed, changed);
            }
        }
        if (rows.size() > wanted.size())
            removeFrom(rows, wanted.size(), rows.size());
    }

private:
    template <typename Row>
    void removeFrom(std::vector<Row>& rows, std::size_t first, std::size_t last) {
        beginRemoveRows({}, static_cast<int>(first), static_cast<int>(last) - 1);
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(first),
                   rows.begin() + static_cast<std::ptrdiff_t>(last));
        endRemoveRows();
    }
};

} // namespace skipnest::ui
