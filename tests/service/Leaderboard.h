// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QJsonObject>
#include <QString>

#include <cstdint>
#include <vector>

namespace skipnest::tests {

// The world board in memory. More jumps rank higher; of equal ones, who came first.
class Leaderboard {
public:
    struct Entry {
        QString id;
        QString name;
        QString country;
        std::int64_t jumps = 0;
        std::int64_t minutes = 0;
        std::int64_t streak = 0;
    };

    // Adds the entry, or replaces the one of its id.
    void submit(const Entry& entry);
    void remove(const QString& id);
    // Whether nobody else goes by this name, in whatever case.
    [[nodiscard]] bool isFree(const QString& name, const QString& id) const;
    [[nodiscard]] std::int64_t rank(const QString& id) const; // from 1; 0 where there is none
    [[nodiscard]] const std::vector<Entry>& entries() const { return entries_; } // best first
    // {"ok":true,"of":N,"board":[{"rank","n","c","j","m","s","me"}]}: the best hundred, and `id`'s.
    [[nodiscard]] QJsonObject board(const QString& id) const;

private:
    std::vector<Entry> entries_;
};

} // namespace skipnest::tests
