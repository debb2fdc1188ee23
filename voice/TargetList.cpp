// SPDX-License-Identifier: Apache-2.0
#include "voice/TargetList.h"

#include <QSet>
#include <QUrl>

#include <utility>

namespace skipnest::voice {

using namespace Qt::StringLiterals;

std::vector<ScoredTarget> TargetList::rank(const QString& phrase, const UseCounts& uses,
                                           std::size_t limit) const {
    std::vector<ScoredTarget> ranked;
    QSet<QUrl> folders;
    for (const ScoredTarget& scored : scorer.score(phrase, uses)) {
        if (ranked.size() == limit)
            break;
        const JumpTarget& target = targets[scored.target];
        if (target.kind == JumpTarget::Kind::folder && target.url) {
            if (folders.contains(*target.url))
                continue;
            folders.insert(*target.url);
        }
        ranked.push_back(scored);
    }
    return ranked;
}

void TargetCollector::add(JumpTarget target, const QString& place, Names names) {
    const auto isNamed = [&target](const QString& text) {
        return text.compare(target.title, Qt::CaseInsensitive) == 0;
    };
    const auto known = place.isEmpty() ? places_.constEnd() : places_.constFind(place);
    if (known == places_.constEnd()) {
        if (!place.isEmpty())
            places_.insert(place, targets_.size());
        targets_.push_back(std::move(target));
        return;
    }
    JumpTarget& first = targets_[*known];
    if (isNamed(first.title))
        return;
    if (names == Names::several && !first.hot) {
        targets_.push_back(std::move(target));
        return;
    }
    if (!first.subtitle.contains(target.title, Qt::CaseInsensitive))
        first.subtitle += first.subtitle.isEmpty() ? target.title : u" · "_s + target.title;
}

} // namespace skipnest::voice
