// SPDX-License-Identifier: Apache-2.0
#include "voice/MessagingRouter.h"

#include "voice/AppMentions.h"
#include "voice/PhraseParts.h"
#include "voice/VoiceFillers.h"
#include "voice/WordList.h"

#include <algorithm>
#include <iterator>

namespace skipnest::voice {
namespace {

using App = MessagingRouter::App;
using Route = MessagingRouter::Route;
using Verb = VoiceCommand::Verb;

// "an" is an article and, in German, a preposition: it stands here for both.
constexpr QStringView contactFillers[] = {
    u"als",    u"kontakt", u"kontakte", u"contact", u"the",   u"a",      u"an",     u"to",
    u"an",     u"der",     u"die",      u"das",     u"den",   u"dem",    u"please", u"bitte",
    u"mal",    u"doch",    u"einfach",  u"mein",    u"meine", u"meinem", u"meiner", u"chat",
    u"chatte", u"and",     u"und",      u"for",     u"für",   u"at",     u"im",     u"in",
    u"on",     u"auf",     u"of",       u"with",    u"mit",
};
static_assert(std::size(contactFillers) == 37);

// Before the application that a message goes by: "text Paul on WhatsApp".
constexpr QStringView byWords[] = {u"on",   u"auf", u"in",    u"bei", u"at",  u"via",
                                   u"über", u"per", u"using", u"mit", u"with"};
// Before the person it goes to.
constexpr QStringView toWords[] = {u"to", u"an", u"für", u"for"};
// Parts of an application that are no person: "the slack window".
constexpr QStringView thingWords[] = {
    u"app",           u"application", u"anwendung", u"programm", u"window", u"windows",
    u"fenster",       u"web",         u"website",   u"folder",   u"ordner", u"settings",
    u"einstellungen", u"desktop",     u"it",        u"es",       u"file",   u"datei",
};
// The person is known by then: "schreib ihr hi" writes "hi".
constexpr QStringView recipients[] = {u"ihr", u"ihm", u"ihnen", u"him", u"her", u"them"};
constexpr QStringView spokenTriggers[] = {u"write",   u"text",     u"texte", u"texten",
                                          u"schreib", u"schreibe", u"tippe", u"sag"};

// In words; what is longer was a sentence.
constexpr std::size_t longestName = 5;

bool isContactFiller(const QString& word) {
    return isOneOf(contactFillers, word);
}

bool isNoContactWord(const SpokenWord& word) {
    const WordUse& use = *word.use;
    return isContactFiller(word.text) || use.verb || use.connector || use.dictationTrigger ||
           use.jumpFiller;
}

class Routing {
public:
    explicit Routing(const QString& phrase)
        : phrase_(phrase), parts_(takeApart(phrase, Reading::asMeant)), words_(parts_.words),
          mentions_(appMentions(words_)), trigger_(parts_.clauses.trigger),
          clauseOf_(words_.size(), -1), appAt_(words_.size(), nullptr) {
        for (const AppMention& mention : mentions_)
            std::fill(appAt_.begin() + static_cast<std::ptrdiff_t>(mention.first),
                      appAt_.begin() + static_cast<std::ptrdiff_t>(mention.end), mention.app);
        for (std::size_t i = 0; i < parts_.clauses.clauses.size(); ++i) {
            for (const std::size_t at : parts_.clauses.clauses[i].words)
                clauseOf_[at] = static_cast<int>(i);
        }
    }

    std::optional<Route> find() const {
        if (mentions_.empty())
            return std::nullopt;
        if (const AppMention* mention = namedBeforeText())
            return routeFrom(*mention);
        if (auto route = writingFirst())
            return route;
        const AppMention& first = mentions_.front();
        const bool isCommand = first.isTrigger && first.first == trigger_;
        return isCommand ? personFirst(*first.app, first.end) : std::nullopt;
    }

private:
    const Clause* clauseAt(std::size_t at) const {
        const int index = clauseOf_[at];
        return index < 0 ? nullptr : &parts_.clauses.clauses[static_cast<std::size_t>(index)];
    }

    bool isWindowClause(const Clause* clause) const {
        return clause != nullptr && clause->verb && *clause->verb >= Verb::close;
    }

    // Whether an application at this place is one to go to.
    bool isPlace(const AppMention& mention) const {
        const Clause* clause = clauseAt(mention.first);
        if (clause == nullptr || isWindowClause(clause))
            return false;
        return clause->verb != Verb::search ||
               (mention.first > 0 && isOneOf(byWords, words_[mention.first - 1].text) &&
                clause->words.front() != mention.first && trigger_ < words_.size());
    }

    // The row that counts: first those that the target names, then all, each time in the order of
    // the table. Words that start a dictation count for nothing beside another row's name.
    const AppMention* namedBeforeText() const {
        const AppMention* best = nullptr;
        bool isBestTarget = false;
        const Clause* target = targetClause();
        for (const AppMention& mention : mentions_) {
            if (mention.first >= trigger_ || !isPlace(mention))
                continue;
            const bool isTarget = clauseAt(mention.first) == target;
            const bool isBetter = best == nullptr || (best->isTrigger && !mention.isTrigger) ||
                                  (best->isTrigger == mention.isTrigger &&
                                   ((isTarget && !isBestTarget) ||
                                    (isTarget == isBestTarget && mention.app < best->app)));
            if (isBetter) {
                best = &mention;
                isBestTarget = isTarget;
            }
        }
        return best;
    }

    const Clause* targetClause() const {
        for (const Clause& clause : parts_.clauses.clauses) {
            const bool isFiller = std::ranges::all_of(
                clause.words, [&](std::size_t at) { return isVoiceFiller(words_[at].text); });
            if (!isFiller &&
                (!clause.verb || *clause.verb == Verb::open || *clause.verb == Verb::goTo))
                return &clause;
        }
        return nullptr;
    }

    std::optional<Route> routeFrom(const AppMention& mention) const {
        const bool hasText = trigger_ < words_.size();
        const std::size_t next = skipFillers(mention.end);
        if (!hasText && next < words_.size() && isOneOf(thingWords, words_[next].text))
            return std::nullopt;
        QString contact = contactIn(mention.end, trigger_, mention);
        if (contact.isEmpty() && mention.first > 0 &&
            isOneOf(byWords, words_[mention.first - 1].text))
            contact = contactIn(clauseAt(mention.first)->words.front(), mention.first, mention);
        if (!contact.isEmpty())
            return Route{mention.app, contact, hasText ? messageAfter(trigger_) : std::nullopt};
        // "telegram message Tom hi", "whatsapp schreib an Paul bin gleich da"
        if (!hasText || trigger_ + 1 == words_.size())
            return std::nullopt;
        const QString& trigger = words_[trigger_].text;
        const bool takesPerson = trigger == u"message" || trigger == u"nachricht" ||
                                 trigger == u"text" || trigger == u"texte";
        if (!takesPerson && !isOneOf(toWords, words_[trigger_ + 1].text))
            return std::nullopt;
        return personFirst(*mention.app, trigger_ + 1);
    }

    // What is said behind the application, without the words that only lead to the person.
    QString contactIn(std::size_t first, std::size_t end, const AppMention& app) const {
        QString contact;
        std::size_t last = 0;
        std::size_t count = 0;
        for (std::size_t at = first; at < end; ++at) {
            if (isNoContactWord(words_[at]) || isHesitation(words_, at) || appAt_[at] == app.app)
                continue;
            const Clause* clause = clauseAt(at);
            if (isWindowClause(clause) || isElsewhere(clause))
                continue;
            if (++count > longestName)
                return {};
            if (!contact.isEmpty())
                contact += gap(last, at);
            contact += phrase_.mid(words_[at].begin, words_[at].end - words_[at].begin);
            last = at;
        }
        return contact;
    }

    // A site or an address to be opened besides.
    bool isElsewhere(const Clause* clause) const {
        if (clause == nullptr || clause->words.size() != 1)
            return false;
        const QString& word = words_[clause->words.front()].text;
        return (word.size() > 1 && VoiceCommand::site(word)) || VoiceCommand::spokenURL({word});
    }

    // "Anna-Lena" and "O'Brien" are one name.
    QString gap(std::size_t last, std::size_t at) const {
        const QString between = phrase_.mid(words_[last].end, words_[at].begin - words_[last].end);
        const bool joins = between == u"-" || between == u"'" || between == u"’";
        return joins ? between : QStringLiteral(" ");
    }

    std::size_t skipFillers(std::size_t at) const {
        while (at < words_.size() && isContactFiller(words_[at].text))
            ++at;
        return at;
    }

    std::optional<QString> messageAfter(std::size_t word) const {
        QString text = textAfter(phrase_, words_[word]);
        if (isOneOf(spokenTriggers, words_[word].text) && word + 2 < words_.size() &&
            isOneOf(recipients, words_[word + 1].text))
            text = textAfter(phrase_, words_[word + 1]);
        return text.isEmpty() ? std::nullopt : std::optional(text);
    }

    // One name, then the message.
    std::optional<Route> personFirst(const App& app, std::size_t at) const {
        const std::size_t person = skipFillers(at);
        if (person >= words_.size())
            return std::nullopt;
        std::size_t last = person;
        while (last + 1 < words_.size() && gap(last, last + 1) != u" ")
            ++last;
        const App* by = &app;
        std::size_t end = last;
        if (const AppMention* mention = mentionBy(last + 1)) {
            by = mention->app;
            end = mention->end - 1;
        }
        if (end + 1 < words_.size() && words_[end + 1].use->dictationTrigger)
            ++end;
        return Route{by, textOf(phrase_, words_, person, last + 1), messageAfter(end)};
    }

    // "on whatsapp" at the place.
    const AppMention* mentionBy(std::size_t at) const {
        if (at >= words_.size() || !isOneOf(byWords, words_[at].text))
            return nullptr;
        const auto found = std::ranges::find_if(
            mentions_, [&](const AppMention& one) { return one.first == at + 1; });
        return found == mentions_.end() || found->isTrigger ? nullptr : &*found;
    }

    // "text Paul on WhatsApp I am late", "schreib eine Nachricht an Paul bin gleich da": the
    // application is named behind the word that starts the text.
    std::optional<Route> writingFirst() const {
        if (trigger_ + 1 >= words_.size())
            return std::nullopt;
        std::size_t next = skipFillers(trigger_ + 1);
        if (words_[trigger_ + 1].text == u"eine" || words_[trigger_ + 1].text == u"ne")
            next = trigger_ + 2;
        const auto named = std::ranges::find_if(
            mentions_, [&](const AppMention& one) { return one.first >= trigger_ + 1; });
        if (named != mentions_.end() && named->first == next) {
            std::size_t at = named->end;
            if (at < words_.size() && words_[at].use->dictationTrigger)
                ++at; // "eine whatsapp nachricht an"
            if (at < words_.size() && isOneOf(toWords, words_[at].text))
                return personFirst(*named->app, at + 1);
            return std::nullopt;
        }
        // One name or two, none of them a word like "you".
        for (std::size_t count = 1; count <= 2; ++count) {
            if (next + count > words_.size() || isVoiceFiller(words_[next + count - 1].text) ||
                isNoContactWord(words_[next + count - 1]))
                break;
            if (const AppMention* mention = mentionBy(next + count))
                return Route{mention->app, textOf(phrase_, words_, next, next + count),
                             messageAfter(mention->end - 1)};
        }
        return std::nullopt;
    }

    const QString phrase_;
    const PhraseParts parts_;
    const std::vector<SpokenWord>& words_;
    const std::vector<AppMention> mentions_;
    const std::size_t trigger_;
    std::vector<int> clauseOf_;
    std::vector<const App*> appAt_; // named by this word
};

} // namespace

bool MessagingRouter::isMessagingApp(const QString& name) {
    const QString lower = name.toLower();
    return std::ranges::any_of(apps(), [&](const App& app) {
        return std::ranges::any_of(app.names,
                                   [&](const QString& one) { return lower.contains(one); });
    });
}

std::optional<Route> MessagingRouter::route(const QString& phrase) {
    return Routing(phrase).find();
}

std::optional<Route> MessagingRouter::route(const QString& target, const QString& contact,
                                            const QString& message) {
    const App* named = nullptr;
    const QString lower = target.toLower();
    for (const bool byTrigger : {false, true}) {
        for (const App& app : apps()) {
            const bool isNamed = std::ranges::any_of(app.names, [&](const QString& name) {
                return wordUse(name).dictationTrigger == byTrigger && lower.contains(name);
            });
            if (isNamed && named == nullptr)
                named = &app;
        }
    }
    QStringList words;
    const QStringList spoken = contact.simplified().split(u' ', Qt::SkipEmptyParts);
    for (const QString& word : spoken) {
        if (!isContactFiller(word.toLower()))
            words.append(word);
    }
    if (named == nullptr || words.isEmpty())
        return std::nullopt;
    const QString text = message.trimmed();
    return Route{named, words.join(u' '), text.isEmpty() ? std::nullopt : std::optional(text)};
}

} // namespace skipnest::voice
