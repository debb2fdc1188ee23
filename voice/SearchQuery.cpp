// SPDX-License-Identifier: Apache-2.0
#include "voice/SearchQuery.h"
#include "voice/WordList.h"

namespace skipnest::voice {
namespace {

// Before the site at the end of a search.
constexpr QStringView places[] = {u"on", u"auf", u"in", u"bei", u"at", u"using", u"über", u"via"};
// Said before the words that are searched, and after them.
constexpr QStringView leads[] = {u"for",  u"nach", u"up",     u"auf",   u"on",     u"in",
                                 u"me",   u"the",  u"a",      u"an",    u"der",    u"die",
                                 u"das",  u"den",  u"einen",  u"bitte", u"please", u"mal",
                                 u"doch", u"noch", u"einfach"};
// "search the web for cats" asks for no site.
constexpr QStringView everywhere[] = {u"web", u"internet", u"netz"};
constexpr QStringView ends[] = {u"please", u"bitte", u"mal", u"now", u"jetzt"};

std::optional<VoiceCommand::Site> searchableSite(const SpokenWord& word) {
    auto site = VoiceCommand::site(word.text);
    return site && site->search ? site : std::nullopt;
}

} // namespace

SearchQuery SearchQuery::read(const std::vector<SpokenWord>& words, const Clause& clause,
                              Reading reading) {
    SearchQuery query;
    std::size_t first = clause.verbAt + 1;
    std::size_t end = clause.end;
    const std::size_t firstWord = clause.words.front();
    const std::size_t lastWord = clause.words.back();
    if (clause.words.size() > 1) {
        const QString& before = words[firstWord - 1].text;
        // "search for amazon prime" is about amazon, not a search there.
        if (before != u"for" && before != u"nach")
            query.site = searchableSite(words[firstWord]);
        if (query.site) {
            first = firstWord + 1;
        } else if (isOneOf(places, words[lastWord - 1].text)) {
            query.site = searchableSite(words[lastWord]);
            if (query.site)
                end = lastWord - 1;
        }
    }
    QStringList kept;
    if (reading == Reading::byTables) {
        for (const std::size_t at : clause.words) {
            if (at >= first && at < end)
                kept.append(words[at].text);
        }
    } else {
        const auto skipLeads = [&] {
            while (first < end && (isOneOf(leads, words[first].text) || isHesitation(words, first)))
                ++first;
        };
        skipLeads();
        if (first + 2 < end && isOneOf(everywhere, words[first].text) &&
            (words[first + 1].text == u"for" || words[first + 1].text == u"nach")) {
            ++first;
            skipLeads();
        }
        while (end > first && isOneOf(ends, words[end - 1].text))
            --end;
        for (std::size_t at = first; at < end; ++at) {
            if (!isHesitation(words, at))
                kept.append(words[at].text);
        }
    }
    query.text = kept.join(u' ');
    return query;
}

} // namespace skipnest::voice
