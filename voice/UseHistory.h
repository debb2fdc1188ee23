// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/Result.h"
#include "voice/TargetScorer.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace skipnest::voice {

// How often each target was jumped to by voice, of the ones most recently used.
class UseHistory {
public:
    // More than anybody says in a year; a title that was not said for so long starts anew.
    static constexpr std::size_t kept = 500;

    struct Use {
        QString title; // lower-cased
        std::int64_t count = 0;

        bool operator==(const Use&) const = default;
    };

    // Blank titles are no targets.
    void record(const QString& title);

    [[nodiscard]] UseCounts counts() const;
    // The titles said most often, the most frequent first, among equals the most recent.
    [[nodiscard]] QStringList frequent(qsizetype most) const;
    // The most recent last.
    [[nodiscard]] const std::vector<Use>& uses() const { return uses_; }

    // {"uses": [{"title": "safari", "count": 3}, …]}, the most recent last, and what a newer
    // version added.
    [[nodiscard]] QByteArray encoded() const;
    struct Decoded;
    // Takes any bytes. Every entry that is right is taken; fails where there is no JSON object.
    [[nodiscard]] static platform::Result<Decoded> decoded(const QByteArray& bytes);

    bool operator==(const UseHistory&) const = default;

private:
    void add(const QString& lowerCasedTitle, std::int64_t count);

    std::vector<Use> uses_;
    QJsonObject unknown_;
};

struct UseHistory::Decoded {
    UseHistory history;
    qsizetype leftOut = 0; // entries that could not be taken over
};

} // namespace skipnest::voice
