// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractListModel>

#include <algorithm>
#include <concepts>
#include <type_traits>
#include <unordered_map>
#include <utility>
#include <vector>

namespace skipnest::ui {

// A list whose rows are known by a key (Row::key(), which can be hashed), so that a new state is
// told to the views as the removals, moves, insertions and changes that lead to it: what did not
// change keeps its delegate, the scroll position and the keyboard's row.
template <typename Row> class KeyedListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
    // The first of this key; -1 where there is none.
    [[nodiscard]] int rowOf(const auto& key) const { return placeOf(rows_, key, 0); }

    // A key that is there twice is kept twice, in the order given.
    void setRows(const std::vector<Row>& rows) requires std::equality_comparable<Row> {
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

protected:
    [[nodiscard]] const Row& at(int row) const { return rows_[static_cast<std::size_t>(row)]; }

private:
    using Key = std::remove_cvref_t<decltype(std::declval<const Row&>().key())>;

    [[nodiscard]] static int placeOf(const std::vector<Row>& rows, const auto& key,
                                     std::size_t from) {
        const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(from);
        const auto found =
            std::find_if(begin, rows.end(), [&key](const Row& row) { return row.key() == key; });
        return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
    }

    void removeAllBut(const std::vector<Row>& rows) {
        std::unordered_map<Key, int> wanted;
        for (const Row& row : rows)
            ++wanted[row.key()];
        std::vector<bool> isKept;
        isKept.reserve(rows_.size());
        for (const Row& row : rows_) {
            const auto found = wanted.find(row.key());
            isKept.push_back(found != wanted.end() && found->second-- > 0);
        }
        for (int last = rowCount() - 1; last >= 0; --last) {
            int first = last;
            while (first >= 0 && !isKept[static_cast<std::size_t>(first)])
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
        const Key& wanted = rows[i].key();
        if (i < rows_.size() && rows_[i].key() == wanted)
            return;
        const int here = static_cast<int>(i);
        // One row that went further down would otherwise be told as many that went up.
        if (i + 1 < rows_.size() && rows_[i + 1].key() == wanted) {
            const int place = placeOf(rows, rows_[i].key(), i + 1);
            moveRow(here, std::min(place, rowCount() - 1));
            return;
        }
        if (const int now = placeOf(rows_, wanted, i); now >= 0) {
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

    std::vector<Row> rows_;
};

} // namespace skipnest::ui
