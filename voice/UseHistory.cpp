// SPDX-License-Identifier: Apache-2.0
#include "voice/UseHistory.h"

#include "model/LoneSurrogates.h"
#include "stats/StatsStore.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace skipnest::voice {

using platform::Failure;
using platform::Result;

void UseHistory::add(const QString& lowerCasedTitle, std::int64_t count) {
    const auto known = std::ranges::find(uses_, lowerCasedTitle, &Use::title);
    if (known != uses_.end()) {
        known->count = stats::sumOfCounts(known->count, count);
        std::rotate(known, known + 1, uses_.end());
        return;
    }
    if (uses_.size() == kept)
        uses_.erase(uses_.begin());
    uses_.push_back({lowerCasedTitle, count});
}

void UseHistory::record(const QString& title) {
    const QString lower = model::withoutLoneSurrogates(title.toLower());
    if (!lower.trimmed().isEmpty())
        add(lower, 1);
}

UseCounts UseHistory::counts() const {
    UseCounts counts;
    counts.reserve(static_cast<qsizetype>(uses_.size()));
    for (const Use& use : uses_)
        counts.insert(use.title, use.count);
    return counts;
}

QStringList UseHistory::frequent(qsizetype most) const {
    std::vector<Use> sorted(uses_.rbegin(), uses_.rend());
    std::ranges::stable_sort(sorted, std::ranges::greater{}, &Use::count);
    QStringList titles;
    for (const Use& use : sorted) {
        if (titles.size() == most)
            break;
        titles.append(use.title);
    }
    return titles;
}

QByteArray UseHistory::encoded() const {
    QJsonArray list;
    for (const Use& use : uses_)
        list.append(QJsonObject{{QStringLiteral("title"), use.title},
                                {QStringLiteral("count"), qint64{use.count}}});
    QJsonObject document = unknown_;
    document.insert(QStringLiteral("uses"), list);
    return QJsonDocument(document).toJson(QJsonDocument::Indented);
}

Result<UseHistory::Decoded> UseHistory::decoded(const QByteArray& bytes) {
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return Failure{
            Failure::Kind::malformed,
            QStringLiteral("no JSON at byte %1: %2").arg(error.offset).arg(error.errorString())};
    if (!document.isObject())
        return Failure{Failure::Kind::malformed, QStringLiteral("not a JSON object")};

    Decoded decoded;
    QJsonObject members = document.object();
    const QJsonValue uses = members.take(QStringLiteral("uses"));
    decoded.leftOut = uses.isArray() || uses.isUndefined() ? 0 : 1;
    const QJsonArray list = uses.toArray();
    for (const QJsonValueConstRef entry : list) {
        const QString title =
            model::withoutLoneSurrogates(entry.toObject().value(u"title").toString().toLower());
        const qint64 count = entry.toObject().value(u"count").toInteger(-1);
        if (title.trimmed().isEmpty() || count < 1 || count > stats::largestCount)
            ++decoded.leftOut;
        else
            decoded.history.add(title, count);
    }
    decoded.history.unknown_ = model::withoutLoneSurrogates(QJsonValue(members)).toObject();
    return decoded;
}

} // namespace skipnest::voice
