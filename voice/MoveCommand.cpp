// SPDX-License-Identifier: Apache-2.0
#include "voice/MoveCommand.h"

#include "voice/Clauses.h"
#include "voice/VoiceFillers.h"
#include "voice/WordList.h"

#include <algorithm>
#include <iterator>

namespace skipnest::voice {
namespace {

using Verb = VoiceCommand::Verb;

// Words before the name of a file or folder.
constexpr QStringView articles[] = {
    u"the",    u"a",      u"an",    u"my",     u"that",   u"this",  u"den",  u"die",   u"das",
    u"der",    u"dem",    u"des",   u"ein",    u"eine",   u"einen", u"mein", u"meine", u"meinen",
    u"meinem", u"meiner", u"diese", u"diesen", u"dieses", u"mir",   u"mal",  u"bitte", u"please",
};
// What stands for a name that was said before.
constexpr QStringView pronouns[] = {u"it",  u"them", u"him",   u"this",   u"that",
                                    u"sie", u"es",   u"ihn",   u"das",    u"die",
                                    u"den", u"dies", u"diese", u"diesen", u"dieses"};
constexpr QStringView takingVerbs[] = {u"take",  u"grab", u"get",  u"pick",  u"search", u"nimm",
                                       u"nehme", u"hol",  u"hole", u"greif", u"suche",  u"finde"};
constexpr QStringView folderWords[] = {u"folder", u"directory", u"ordner", u"verzeichnis"};
// What a German verb leaves behind at the end of the sentence, and what people add there.
constexpr QStringView endings[] = {u"ein", u"rein", u"hinein", u"herein", u"rüber",
                                   u"weg", u"ab",   u"um",     u"please", u"bitte"};

enum class Marker { none, from, into, to, in };

Marker markerAt(const std::vector<SpokenWord>& words, std::size_t at) {
    const QString& word = words[at].text;
    if (word == u"from" || word == u"aus" || word == u"von" || word == u"vom" ||
        (word == u"of" && at > 0 && words[at - 1].text == u"out"))
        return Marker::from;
    if (word == u"into" || word == u"onto")
        return Marker::into;
    if (word == u"to" || word == u"nach" || word == u"zu" || word == u"zum" || word == u"zur")
        return Marker::to;
    if (word == u"in" || word == u"ins" || word == u"auf")
        return Marker::in;
    return Marker::none;
}

struct Span {
    std::size_t first = 0;
    std::size_t end = 0;

    [[nodiscard]] bool isEmpty() const { return first >= end; }
};

class MoveReader {
public:
    MoveReader(const QString& transcript, const std::vector<SpokenWord>& words)
        : transcript_(transcript), words_(words) {}

    std::optional<MoveCommand> read() {
        const auto verb = findVerb();
        if (!verb)
            return std::nullopt;
        verb_ = *verb;
        end_ = endOfRegion();
        if (auto found = readAfterVerb())
            return found;
        return readBeforeVerb();
    }

private:
    // A move verb that commands: not one in a search, behind something to be opened, or dictated.
    std::optional<std::size_t> findVerb() {
        // What was said in the clause so far: nothing that binds the verb, a verb of motion right
        // before it ("go and move" without the "and"), or something that makes it a mere word.
        enum class Before { words, motion, other };
        Before before = Before::words;
        for (std::size_t at = 0; at < words_.size(); ++at) {
            const SpokenWord& word = words_[at];
            if (word.use->dictationTrigger && !isNamed(words_, at))
                return std::nullopt;
            if (word.use->connector || word.afterPause) {
                if (word.use->connector)
                    previous_ = {clauseStart_, at};
                clauseStart_ = word.use->connector ? at + 1 : at;
                before = Before::words;
            }
            if (before != Before::other && isMoveVerb(word.text))
                return at;
            if (word.use->verb == Verb::goTo)
                before = Before::motion;
            else if (word.use->verb || before == Before::motion)
                before = Before::other;
        }
        return std::nullopt;
    }

    // Up to the next command: one behind a connector or a pause, or the text that is dictated.
    std::size_t endOfRegion() const {
        for (std::size_t at = verb_ + 1; at < words_.size(); ++at) {
            const SpokenWord& word = words_[at];
            if (word.use->dictationTrigger && !isNamed(words_, at))
                return at;
            if (word.use->verb && word.afterPause)
                return at;
            if (word.use->connector && at + 1 < words_.size()) {
                std::size_t next = at + 1;
                while (next + 1 < words_.size() && next < at + 4 &&
                       (words_[next].use->connector || words_[next].use->jumpFiller))
                    ++next;
                if (words_[next].use->verb || words_[next].use->dictationTrigger)
                    return at;
            }
        }
        return words_.size();
    }

    std::optional<MoveCommand> readAfterVerb() const {
        Span name{verb_ + 1, end_};
        const Span rest = cutAtMarker(name);
        const auto places = readPlaces(rest);
        if (!places)
            return std::nullopt;
        name = withoutLead(name);
        if (!name.isEmpty() && !isPronoun(name))
            return made(name, *places, startOfRequest());
        // "take the contract from downloads and move it to documents"
        Span taken = withoutLead(previous_);
        while (!taken.isEmpty() &&
               (isLead(words_[taken.first].text) || isOneOf(takingVerbs, words_[taken.first].text)))
            ++taken.first;
        const Span behind = cutAtMarker(taken);
        taken = withoutLead(taken);
        if (taken.isEmpty() || isPronoun(taken) || words_[taken.first].use->verb)
            return std::nullopt;
        Places both = *places;
        if (both.from.isEmpty() && !behind.isEmpty() &&
            markerAt(words_, behind.first) != Marker::to)
            both.from = folder({behind.first + 1, behind.end});
        return made(taken, both, previous_.first);
    }

    std::optional<MoveCommand> readBeforeVerb() const {
        Span name{clauseStart_, verb_};
        while (!name.isEmpty() && isLead(words_[name.first].text))
            ++name.first;
        Span rest = cutAtMarker(name);
        if (!rest.isEmpty() && words_[rest.end - 1].text == u"zu")
            --rest.end;
        const auto places = readPlaces(rest);
        name = withoutLead(name);
        if (name.isEmpty() || isPronoun(name) || !places)
            return std::nullopt;
        auto found = made(name, *places, clauseStart_);
        found.end = verb_ + 1;
        return found;
    }

    // "could you" and the like belong to the verb.
    std::size_t startOfRequest() const {
        std::size_t first = verb_;
        while (first > clauseStart_ && isLead(words_[first - 1].text))
            --first;
        return first;
    }

    static bool isLead(const QString& word) { return isVoiceFiller(word) || isAskingWord(word); }

    struct Places {
        Span from;
        Span to;
    };

    // Ends `name` before the first marker; answers what follows, marker included.
    Span cutAtMarker(Span& name) const {
        for (std::size_t at = name.first; at < name.end; ++at) {
            if (markerAt(words_, at) != Marker::none) {
                const Span rest{at, name.end};
                // "out of"
                name.end = words_[at].text == u"of" ? at - 1 : at;
                return rest;
            }
        }
        return {};
    }

    std::optional<Places> readPlaces(Span rest) const {
        struct Place {
            Marker marker;
            Span span;
        };
        std::vector<Place> places;
        for (std::size_t at = rest.first; at < rest.end; ++at) {
            const Marker marker = markerAt(words_, at);
            if (marker == Marker::none)
                continue;
            if (!places.empty())
                places.back().span.end = words_[at].text == u"of" ? at - 1 : at;
            places.push_back({marker, {at + 1, rest.end}});
        }
        const auto last = [&](Marker marker) {
            const auto found = std::find_if(places.rbegin(), places.rend(), [&](const Place& one) {
                return one.marker == marker && !folder(one.span).isEmpty();
            });
            return found == places.rend() ? places.end() : std::prev(found.base());
        };
        auto to = last(Marker::into);
        if (to == places.end())
            to = last(Marker::to);
        if (to == places.end())
            to = last(Marker::in);
        if (to == places.end())
            return std::nullopt;
        // "to the letters in documents": what stands behind the destination is no source.
        Places found{{}, folder(to->span)};
        for (auto place = places.begin(); place != places.end(); ++place) {
            const bool isSource =
                place->marker == Marker::from || (place->marker == Marker::in && place < to);
            if (isSource && found.from.isEmpty())
                found.from = folder(place->span);
        }
        return found;
    }

    // No name by itself: "it", and an article that nothing follows. "a" may be one.
    bool isPronoun(Span name) const {
        if (name.first + 1 != name.end)
            return false;
        const QString& word = words_[name.first].text;
        return isOneOf(pronouns, word) || (isOneOf(articles, word) && word != u"a");
    }

    // Leaves one word, whatever it is.
    Span withoutLead(Span span) const {
        while (span.first + 1 < span.end &&
               (words_[span.end - 1].text == u"please" || words_[span.end - 1].text == u"bitte"))
            --span.end;
        while (span.first + 1 < span.end && isOneOf(articles, words_[span.first].text))
            ++span.first;
        return span;
    }

    Span folder(Span span) const {
        span = withoutLead(span);
        while (!span.isEmpty() && isOneOf(endings, words_[span.end - 1].text))
            --span.end;
        if (!span.isEmpty() && isOneOf(folderWords, words_[span.first].text))
            ++span.first;
        if (!span.isEmpty() && isOneOf(folderWords, words_[span.end - 1].text))
            --span.end;
        return isPronoun(span) ? Span() : span;
    }

    MoveCommand made(Span name, const Places& places, std::size_t first) const {
        const auto text = [this](Span span) {
            return textOf(transcript_, words_, span.first, span.end);
        };
        return {{text(name), text(places.from), text(places.to)}, first, end_};
    }

    const QString& transcript_;
    const std::vector<SpokenWord>& words_;
    std::size_t verb_ = 0;
    std::size_t end_ = 0;
    std::size_t clauseStart_ = 0;
    Span previous_; // the clause before, up to its connector
};

} // namespace

bool isMoveVerb(const QString& word) {
    static constexpr QStringView whole[] = {u"move",    u"moving", u"sort",
                                            u"sorting", u"pack",   u"leg"};
    static constexpr QStringView stems[] = {u"verschieb", u"sortier", u"schieb", u"räum", u"raeum"};
    // "einsortieren", "aufräumen"; "träume" is no such verb.
    static constexpr QStringView before[] = {u"",    u"ein",  u"auf",   u"weg",
                                             u"aus", u"rein", u"rüber", u"um"};
    if (isOneOf(whole, word))
        return true;
    return std::ranges::any_of(before, [&](QStringView prefix) {
        return word.startsWith(prefix) && std::ranges::any_of(stems, [&](QStringView stem) {
                   return QStringView(word).mid(prefix.size()).startsWith(stem);
               });
    });
}

std::optional<MoveCommand> MoveCommand::find(const QString& transcript,
                                             const std::vector<SpokenWord>& words) {
    if (!VoiceCommand::hasMoveVerb(transcript))
        return std::nullopt;
    return MoveReader(transcript, words).read();
}

bool VoiceCommand::hasMoveVerb(const QString& text) {
    const QString lower = text.toLower();
    return std::ranges::any_of(moveVerbs, [&](QStringView verb) { return lower.contains(verb); });
}

} // namespace skipnest::voice
