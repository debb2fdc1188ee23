// SPDX-License-Identifier: Apache-2.0
#include "voice/PhraseDecision.h"

#include "voice/Aliases.h"
#include "voice/DesktopNumber.h"
#include "voice/PhraseParts.h"
#include "voice/VoiceFillers.h"

#include <algorithm>

namespace skipnest::voice {
namespace {

using Kind = PhraseDecision::Kind;
using Verb = VoiceCommand::Verb;

// A number of a desktop in a search ("search for desktop 3 stands") or in the name of a file that
// is moved is none to switch to.
bool isAboutDesktop(const PhraseParts& parts, const DesktopRequest& request) {
    const bool isBeside =
        std::max(request.wordAt, request.numberAt) - std::min(request.wordAt, request.numberAt) ==
        1;
    if (parts.move && !isBeside)
        return false;
    const auto holds = [&](const Clause& clause) {
        return clause.verb == Verb::search &&
               std::ranges::find(clause.words, request.wordAt) != clause.words.end();
    };
    const auto search = std::ranges::find_if(parts.clauses.clauses, holds);
    return search == parts.clauses.clauses.end() || (isBeside && search->words.size() == 2);
}

std::optional<int> spaceOf(const PhraseParts& parts) {
    const auto request = desktopRequest(parts.words, 0, parts.clauses.trigger);
    if (!request || !isAboutDesktop(parts, *request))
        return std::nullopt;
    return request->number;
}

PhraseDecision decide(const QString& phrase) {
    PhraseParts parts = takeApart(phrase, Reading::asMeant);
    PhraseDecision decision;
    if (parts.words.empty())
        return decision;
    if (const auto space = spaceOf(parts)) {
        decision.kind = Kind::space;
        decision.space = *space;
        return decision;
    }
    if (!parts.move) {
        decision.route = MessagingRouter::route(phrase);
        if (decision.route) {
            decision.kind = Kind::message;
            return decision;
        }
    }
    decision.parsed = std::move(parts.parsed);
    decision.parsed.target = spokenTarget(decision.parsed.target);
    decision.site = parts.targetSite;
    if (!decision.parsed.steps.empty())
        decision.kind = Kind::steps;
    else if (!decision.parsed.target.isEmpty())
        decision.kind = Kind::jump;
    return decision;
}

qsizetype startOfText(const QString& phrase) {
    const PhraseParts parts = takeApart(phrase, Reading::asMeant);
    const std::size_t trigger = parts.clauses.trigger;
    return trigger < parts.words.size() ? parts.words[trigger].end : phrase.size();
}

bool hasText(const PhraseDecision& decision) {
    if (decision.route)
        return decision.route->message.has_value();
    return std::ranges::any_of(decision.parsed.steps, [](const VoiceCommand::Step& step) {
        return std::holds_alternative<VoiceCommand::Dictate>(step);
    });
}

} // namespace

PhraseDecision PhraseDecision::openingSite() const {
    PhraseDecision opening = *this;
    const auto found = site ? VoiceCommand::site(*site) : std::nullopt;
    if (!found)
        return opening;
    opening.kind = Kind::steps;
    opening.site.reset();
    opening.parsed.target.clear();
    opening.parsed.steps.clear();
    opening.parsed.steps.reserve(parsed.steps.size() + 1);
    opening.parsed.steps.emplace_back(VoiceCommand::OpenSite{found->url});
    for (const VoiceCommand::Step& step : parsed.steps)
        opening.parsed.steps.push_back(step);
    return opening;
}

PhraseDecision understand(const QString& phrase, const std::vector<model::VocabAlias>& aliases) {
    if (aliases.empty())
        return decide(phrase);
    PhraseDecision decision = decide(withAliases(phrase, aliases));
    if (!hasText(decision))
        return decision;
    const qsizetype text = startOfText(phrase);
    return decide(withAliases(phrase.left(text), aliases) + phrase.mid(text));
}

} // namespace skipnest::voice
