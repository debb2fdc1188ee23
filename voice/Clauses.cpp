// SPDX-License-Identifier: Apache-2.0
#include "voice/Clauses.h"

#include "voice/WordList.h"

#include <utility>

namespace skipnest::voice {
namespace {

using Verb = VoiceCommand::Verb;

bool isOpener(const SpokenWord& word) {
    return word.use->verb == Verb::open || word.use->verb == Verb::goTo;
}

class Walk {
public:
    Walk(const std::vector<SpokenWord>& words, Reading reading,
         const std::optional<MoveCommand>& move)
        : words_(words), reading_(reading), move_(move) {}

    Clauses run() {
        std::size_t at = 0;
        for (; at < words_.size(); ++at) {
            if (move_ && at == move_->first) {
                flush();
                at = move_->end - 1;
                afterMove_ = true;
                continue;
            }
            if (words_[at].use->dictationTrigger && !isPartOfName(at))
                break;
            take(at);
        }
        flush();
        found_.trigger = at;
        return std::move(found_);
    }

private:
    void take(std::size_t at) {
        const WordUse& use = *words_[at].use;
        if (use.connector) {
            if (staysInQuery(at))
                keep(at);
            else
                flush();
        } else if (use.verb && !isNoun(at)) {
            takeVerb(at);
        } else if (use.jumpFiller || (reading_ == Reading::asMeant && isHesitation(words_, at))) {
            current_.end = at + 1;
        } else {
            keep(at);
        }
    }

    void takeVerb(std::size_t at) {
        const bool introduces = isOpener(words_[at]) && isUntouched();
        if (!introduces) {
            flush();
            current_.verb = words_[at].use->verb;
            current_.verbAt = at;
            current_.end = at + 1;
        }
        opened_ = isOpener(words_[at]);
    }

    void keep(std::size_t at) {
        current_.words.push_back(at);
        current_.end = at + 1;
        opened_ = false;
    }

    // Nothing but fillers was said so far.
    bool isUntouched() const {
        return found_.clauses.empty() && !afterMove_ && !current_.verb && current_.words.empty();
    }

    // A verb word that names something where it stands.
    bool isNoun(std::size_t at) const {
        const bool isQuery = current_.verb == Verb::search;
        if (words_[at].text == u"google")
            return opened_ || isQuery;
        return reading_ == Reading::asMeant && isQuery && !current_.words.empty() &&
               !words_[at].afterPause;
    }

    bool isPartOfName(std::size_t at) const {
        if (reading_ == Reading::byTables)
            return false;
        if (isNamed(words_, at))
            return true;
        if (current_.verb != Verb::search || words_[at].afterPause || at == 0)
            return false;
        const QString& before = words_[at - 1].text;
        return before == u"to" || before == u"zu";
    }

    // "tom and jerry", but not "cats and close the window".
    bool staysInQuery(std::size_t at) const {
        const QString& word = words_[at].text;
        if (reading_ == Reading::byTables || current_.verb != Verb::search ||
            current_.words.empty() || words_[at].afterPause ||
            (word != u"and" && word != u"und" && word != u"plus"))
            return false;
        // As far as a person says "and please": a phrase of nothing else is no reason to look on.
        const std::size_t last = std::min(words_.size(), at + 4);
        for (std::size_t next = at + 1; next < last; ++next) {
            const WordUse& use = *words_[next].use;
            if (use.verb || use.connector || use.dictationTrigger ||
                (move_ && next == move_->first))
                return false;
            if (!use.jumpFiller)
                return !VoiceCommand::site(words_[next].text);
        }
        return false;
    }

    void flush() {
        opened_ = false;
        if (reading_ == Reading::asMeant && current_.verb == Verb::search &&
            words_[current_.verbAt].text == u"google" && current_.words.size() == 1 &&
            isGoogleProduct(words_[current_.words[0]].text)) {
            current_.verb.reset();
            current_.words.insert(current_.words.begin(), current_.verbAt);
        }
        Clause clause = std::exchange(current_, {});
        if (clause.verb || !clause.words.empty())
            found_.clauses.push_back(std::move(clause));
    }

    const std::vector<SpokenWord>& words_;
    const Reading reading_;
    const std::optional<MoveCommand>& move_;
    Clauses found_;
    Clause current_;
    bool opened_ = false; // "open" or "go to" was said, and nothing yet that is to be opened
    bool afterMove_ = false;
};

} // namespace

bool isGoogleProduct(const QString& word) {
    static constexpr QStringView products[] = {
        u"chrome",   u"maps", u"docs",   u"drive", u"sheets", u"slides", u"calendar",
        u"kalender", u"meet", u"photos", u"fotos", u"keep",   u"earth",  u"mail"};
    return isOneOf(products, word);
}

bool isNamed(const std::vector<SpokenWord>& words, std::size_t trigger) {
    const QString& word = words[trigger].text;
    if (word != u"text" && word != u"texte" && word != u"message" && word != u"nachricht")
        return false;
    if (trigger + 1 == words.size())
        return true;
    std::size_t before = trigger;
    while (before > 0 && words[before - 1].use->jumpFiller)
        --before;
    if (before == 0 || words[trigger].afterPause)
        return false;
    const SpokenWord& named = words[before - 1];
    return named.use->verb || isMoveVerb(named.text);
}

Clauses readClauses(const std::vector<SpokenWord>& words, Reading reading,
                    const std::optional<MoveCommand>& move) {
    return Walk(words, reading, move).run();
}

} // namespace skipnest::voice
