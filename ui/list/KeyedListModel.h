// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractListModel>

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

namespace skipnest::ui {

// A list whose rows are known by a key (`row.id`), so that a new state is told to the views as the
// removals, moves, insertions and changes that lead to it: what did not change keeps its delegate,
// the scroll position and the keyboard's row.
template <typename Row> class KeyedListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    // -1 where there is none.
    template <typename Id> [[nodiscard]] int rowOf(const Id& id) const {
        const auto found = std::ranges::find(rows_, id, &Row::id);
        return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
    }

    // Each key once.
    void setRows(const std::vector<Row>& rows) {
        removeAllBut(rows);
        for (std::size_t i = 0; i < rows.size(); ++i)
            putInPlace(rows, i);
        takeOverValues(rows);
    }

    // `to` is the row's place afterwards.
    void moveRow(int from, int to) {
        if (from == to)
            return;
        beginMoveRows({}, from, from, {}, from < to ? to + 1 : to);
        const auto first = rows_.begin() + std::min(from, to);
        const auto last = rows_.begin() + std::max(from, to) + 1;
        std::rotate(first, from < to ? first + 1 : last - 1, last);
        endMoveRows();
    }

private:
    using Id = decltype(Row::id);

    void removeAllBut(const std::vector<Row>& rows) {
        std::unordered_set<Id> kept;
        for (const Row& row : rows)
            kept.insert(row.id);
        for (int last = rowCount() - 1; last >= 0; --last) {
            int first = last;
            while (first >= 0 && !kept.contains(at(first).id))
                --first;
            if (first == last)
                continue;
            beginRemoveRows({}, first + 1, last);
            rows_.erase(rows_.begin() + first + 1, rows_.begin() + last + 1);
            endRemoveRows();
            last = first + 1;
        }
    }

    // Rows before `i` are in place already.
    void putInPlace(const std::vector<Row>& rows, std::size_t i) {
        const Id& wanted = rows[i].id;
        if (i < rows_.size() && rows_[i].id == wanted)
            return;
        const int here = static_cast<int>(i);
        // One row that went further down would otherwise be told as many that went up.
        if (i + 1 < rows_.size() && rows_[i + 1].id == wanted) {
            const auto place = std::ranges::find(rows, rows_[i].id, &Row::id) - rows.begin();
            moveRow(here, std::min(static_cast<int>(place), rowCount() - 1));
            return;
        }
        if (const int now = rowOf(wanted); now >= 0) {
            moveRow(now, here);
            return;
        }
        beginInsertRows({}, here, here);
        rows_.insert(rows_.begin() + here, rows[i]);
        endInsertRows();
    }

    void takeOverValues(const std::vector<Row>& rows) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (rows_[i] == rows[i])
                continue;
            rows_[i] = rows[i];
            const QModelIndex changed = index(static_cast<int>(i));
            Q_EMIT dataChanged(changed, changed);
        }
    }

    [[nodiscard]] const Row& at(int row) const { return rows_[static_cast<std::size_t>(row)]; }

    std::vector<Row> rows_;
};

} // namespace skipnest::ui
