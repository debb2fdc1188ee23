// SPDX-License-Identifier: Apache-2.0
#include "voice/JumpChoice.h"

#include "voice/VoiceCommand.h"

#include <QSet>

#include <algorithm>

namespace skipnest::voice {
namespace {

using Kind = JumpTarget::Kind;

bool isInside(const JumpTarget& target) {
    return (target.kind == Kind::tab || target.kind == Kind::window) && !target.owner.isEmpty();
}

QStringList lowerWords(const QString& text) {
    return VoiceCommand::tokenize(text.toLower());
}

// Where `part` stands among the words in one piece.
std::optional<qsizetype> placeOf(const QStringList& part, const QStringList& words) {
    for (qsizetype at = 0; at + part.size() <= words.size(); ++at) {
        if (std::equal(part.begin(), part.end(), words.begin() + at))
            return at;
    }
    return std::nullopt;
}

// An application is called by its whole name or by the last word of it ("Google Chrome").
struct Naming {
    qsizetype at;
    qsizetype count;
};
std::optional<Naming> naming(const QString& owner, const QStringList& words) {
    const QStringList name = lowerWords(owner);
    if (name.isEmpty())
        return std::nullopt;
    if (const auto at = placeOf(name, words))
        return Naming{*at, name.size()};
    if (const auto at = placeOf({name.last()}, words))
        return Naming{*at, 1};
    return std::nullopt;
}

bool titleHasAll(const JumpTarget& target, const QStringList& words) {
    const QString title = target.title.toLower();
    if (!std::ranges::all_of(words, [&](const QString& word) { return title.contains(word); }))
        return false;
    const QStringList titleWords = lowerWords(title);
    return std::ranges::all_of(words, [&](const QString& word) {
        return std::ranges::any_of(titleWords,
                                   [&](const QString& one) { return one.startsWith(word); });
    });
}

// A person says few words; what is longer is not looked at more closely.
constexpr qsizetype mostWords = 32;

bool bearsName(const JumpTarget& target, const QString& site) {
    if (target.kind == Kind::app)
        return target.title.toLower() == site;
    return target.kind == Kind::tab && lowerWords(target.title).contains(site);
}

std::vector<ScoredTarget> rankedInside(const NamedContainer& container,
                                       const std::vector<JumpTarget>& targets,
                                       const UseCounts& uses) {
    std::vector<JumpTarget> inside;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        if (isInside(targets[i]) && targets[i].owner == container.owner) {
            inside.push_back(targets[i]);
            places.push_back(i);
        }
    }
    std::vector<ScoredTarget> ranked = score(container.rest, inside, uses);
    for (ScoredTarget& one : ranked)
        one.target = places[one.target];
    return ranked;
}

} // namespace

std::optional<NamedContainer> namedContainer(const QString& spoken,
                                             const std::vector<JumpTarget>& targets) {
    const QStringList words = lowerWords(spoken);
    if (words.size() < 2 || words.size() > mostWords)
        return std::nullopt;
    QSet<QString> owners;
    for (const JumpTarget& target : targets) {
        if (isInside(target))
            owners.insert(target.owner);
    }
    QString owner;
    std::optional<Naming> best;
    for (const QString& one : owners) {
        const auto found = naming(one, words);
        if (found &&
            (!best || found->count > best->count || (found->count == best->count && one < owner))) {
            owner = one;
            best = found;
        }
    }
    if (!best || best->count == words.size())
        return std::nullopt;
    const bool isTitleElsewhere = std::ranges::any_of(targets, [&](const JumpTarget& target) {
        return target.owner != owner && titleHasAll(target, words);
    });
    if (isTitleElsewhere)
        return std::nullopt;
    QStringList rest = words.first(best->at);
    rest += words.mid(best->at + best->count);
    return NamedContainer{owner, rest.join(u' ')};
}

JumpChoice JumpChoice::among(const std::vector<ScoredTarget>& ranked,
                             const std::vector<JumpTarget>& targets) {
    JumpChoice choice;
    for (const ScoredTarget& one : ranked) {
        const JumpTarget& target = targets[one.target];
        if (target.kind == JumpTarget::Kind::tab && target.current) {
            choice.droppedCurrentTab = true;
            continue;
        }
        if (choice.candidates.empty())
            choice.top = one.score;
        // Close to the best one where that is good, else all that may be meant.
        const double least = choice.top >= TargetScorer::certainScore
                                 ? TargetScorer::clearLead * choice.top
                                 : TargetScorer::floor;
        if (one.score < least || one.score < TargetScorer::floor ||
            choice.candidates.size() == mostListed)
            break;
        choice.candidates.push_back(one);
    }
    if (choice.candidates.size() == 1)
        choice.kind = Kind::commit;
    else if (!choice.candidates.empty())
        choice.kind = Kind::list;
    return choice;
}

JumpChoice JumpChoice::forSpoken(const QString& spoken, const std::optional<QString>& site,
                                 const std::vector<JumpTarget>& targets, const TargetScorer& scorer,
                                 const UseCounts& uses) {
    if (const auto container = namedContainer(spoken, targets)) {
        JumpChoice choice = among(rankedInside(*container, targets, uses), targets);
        if (choice.kind != Kind::none) {
            choice.container = container;
            return choice;
        }
    }
    std::vector<ScoredTarget> ranked = scorer.score(spoken, uses);
    if (site)
        std::erase_if(ranked, [&](const ScoredTarget& one) {
            return !bearsName(targets[one.target], *site);
        });
    return among(ranked, targets);
}

} // namespace skipnest::voice
