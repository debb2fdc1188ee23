// SPDX-License-Identifier: Apache-2.0
#include "voice/PhraseParts.h"

#include "voice/SearchQuery.h"
#include "voice/VoiceFillers.h"
#include "voice/WordList.h"

#include <algorithm>

namespace skipnest::voice {
namespace {

using Verb = VoiceCommand::Verb;
using WinVerb = VoiceCommand::WinVerb;

// What every window is called, and how people point at the one in front.
bool isWindowWord(const QString& word) {
    static constexpr QStringView list[] = {
        u"window",    u"windows",    u"fenster", u"app",     u"application", u"program",
        u"anwendung", u"programm",   u"it",      u"them",    u"es",          u"sie",
        u"ihn",       u"all",        u"alle",    u"current", u"aktuelle",    u"aktuelles",
        u"front",     u"everything", u"alles",   u"dieses",  u"diese",       u"dieser",
        u"diesen",    u"dies",
    };
    return isOneOf(list, word);
}

bool isFileName(const QString& word) {
    static constexpr QStringView endings[] = {
        u"pdf", u"doc", u"docx", u"xls", u"xlsx", u"ppt",  u"pptx", u"odt", u"ods",  u"odp",
        u"txt", u"rtf", u"csv",  u"png", u"jpg",  u"jpeg", u"gif",  u"svg", u"heic", u"mp3",
        u"mp4", u"mkv", u"wav",  u"htm", u"html", u"json", u"xml",  u"log", u"key",  u"numbers",
    };
    const QStringView ending = QStringView(word).mid(word.lastIndexOf(u'.') + 1);
    const bool isNumber = std::ranges::all_of(ending, [](QChar c) { return c.isDigit(); });
    return isNumber || std::ranges::find(endings, ending) != std::end(endings);
}

class Assembly {
public:
    Assembly(PhraseParts& parts, const QString& phrase, Reading reading)
        : parts_(parts), phrase_(phrase), reading_(reading) {}

    void run() {
        bool isMovePending = parts_.move.has_value();
        for (const Clause& clause : parts_.clauses.clauses) {
            if (isMovePending && clause.end > parts_.move->first) {
                add(parts_.move->file);
                isMovePending = false;
            }
            take(clause);
        }
        if (isMovePending)
            add(parts_.move->file);
        if (parts_.clauses.trigger < parts_.words.size()) {
            const QString text = textAfter(phrase_, parts_.words[parts_.clauses.trigger]);
            if (!text.isEmpty())
                add(VoiceCommand::Dictate{text});
        }
        settleTarget();
    }

private:
    template <typename Step> void add(Step step) {
        parts_.parsed.steps.emplace_back(std::move(step));
    }

    QStringList wordsOf(const Clause& clause) const {
        QStringList words;
        for (const std::size_t at : clause.words)
            words.append(parts_.words[at].text);
        return words;
    }

    std::optional<QUrl> address(QStringList words) const {
        if (reading_ == Reading::asMeant)
            words.removeIf([](const QString& word) { return isFileName(word); });
        return VoiceCommand::spokenURL(words);
    }

    void take(const Clause& clause) {
        const QStringList words = wordsOf(clause);
        if (!clause.verb)
            return takePlace(words);
        switch (*clause.verb) {
        case Verb::open:
        case Verb::goTo:
            return takeOpening(words);
        case Verb::search:
            return takeSearch(clause);
        case Verb::close:
            return takeWindow(WinVerb::close, words);
        case Verb::quit:
            return takeWindow(WinVerb::quit, words);
        case Verb::minimize:
            return takeWindow(WinVerb::minimize, words);
        case Verb::hide:
            return takeWindow(WinVerb::hide, words);
        }
    }

    // Words without a verb.
    void takePlace(const QStringList& words) {
        if (const auto url = address(words)) {
            add(VoiceCommand::OpenSite{*url});
        } else if (const auto key = wholeSite(words)) {
            takeSiteWord(*key, words);
        } else if (parts_.parsed.target.isEmpty() && !std::ranges::all_of(words, isVoiceFiller)) {
            parts_.parsed.target = withoutRequest(words).join(u' ');
        }
    }

    // "kannst du figma öffnen" without its "kannst du".
    QStringList withoutRequest(const QStringList& words) const {
        qsizetype first = 0;
        while (reading_ == Reading::asMeant && first < words.size() &&
               (isVoiceFiller(words[first]) || isAskingWord(words[first])))
            ++first;
        return words.mid(first);
    }

    // "google maps" is the site of that name, "google chrome" no site at all.
    bool isOfGoogle(const QStringList& words) const {
        return reading_ == Reading::asMeant && words.size() == 2 && words.first() == u"google" &&
               isGoogleProduct(words.last());
    }

    std::optional<QString> wholeSite(const QStringList& words) const {
        if (words.size() != 1 && !isOfGoogle(words))
            return std::nullopt;
        return VoiceCommand::site(words.last()) ? std::optional(words.last()) : std::nullopt;
    }

    void takeSiteWord(const QString& key, const QStringList& words) {
        site_ = VoiceCommand::site(key);
        if (!parts_.parsed.target.isEmpty())
            return add(VoiceCommand::OpenSite{site_->url});
        parts_.parsed.target = words.join(u' ');
        parts_.targetSite = key;
    }

    void takeOpening(const QStringList& words) {
        if (words.isEmpty())
            return;
        if (const auto url = address(words))
            return add(VoiceCommand::OpenSite{*url});
        for (const QString& word : isOfGoogle(words) ? words.mid(1) : words) {
            // In "projekt x" the letter is a part of the name.
            if (reading_ == Reading::asMeant && word.size() == 1 && words.size() > 1)
                continue;
            if (const auto site = VoiceCommand::site(word)) {
                site_ = site;
                return add(VoiceCommand::OpenSite{site->url});
            }
        }
        add(VoiceCommand::Find{words.join(u' ')});
    }

    void takeSearch(const Clause& clause) {
        const bool isGoogle = parts_.words[clause.verbAt].text == u"google";
        if (clause.words.empty()) {
            if (isGoogle)
                takeSiteWord(QStringLiteral("google"), {QStringLiteral("google")});
            return;
        }
        SearchQuery query = SearchQuery::read(parts_.words, clause, reading_);
        if (query.text.isEmpty())
            return;
        if (!query.site && isGoogle && reading_ == Reading::asMeant)
            query.site = VoiceCommand::site(QStringLiteral("google"));
        const auto& site = query.site ? query.site : site_;
        add(VoiceCommand::Search{query.text, site ? site->search : std::nullopt});
    }

    void takeWindow(WinVerb verb, const QStringList& words) {
        if (reading_ == Reading::asMeant) {
            const bool isFirst = parts_.parsed.steps.empty();
            if (isFirst && isWindowOnly(parts_.parsed.target)) // "fenster schließen"
                parts_.parsed.target.clear();
            if (!isWindowOnly(words.join(u' '))) {
                QStringList named = words;
                named.removeIf(isWindowWord);
                // "open figma and quit chrome": there first, and only then the window.
                if (isFirst && parts_.parsed.target.isEmpty())
                    parts_.parsed.target = named.join(u' ');
                else
                    add(VoiceCommand::Find{named.join(u' ')});
            }
        }
        add(VoiceCommand::Window{verb});
    }

    static bool isWindowOnly(const QString& target) {
        const QStringList words = target.split(u' ', Qt::SkipEmptyParts);
        return std::ranges::all_of(
            words, [](const QString& word) { return isWindowWord(word) || isVoiceFiller(word); });
    }

    // "i would like to go to my documents": what is to be found is where to go.
    void settleTarget() {
        VoiceCommand::Parsed& parsed = parts_.parsed;
        if (!parsed.target.isEmpty() || parsed.steps.empty())
            return;
        if (auto* find = std::get_if<VoiceCommand::Find>(&parsed.steps.front())) {
            parsed.target = std::move(find->text);
            parsed.steps.erase(parsed.steps.begin());
        }
    }

    PhraseParts& parts_;
    const QString& phrase_;
    const Reading reading_;
    std::optional<VoiceCommand::Site> site_; // the one the phrase is about
};

} // namespace

PhraseParts takeApart(const QString& phrase, Reading reading) {
    PhraseParts parts;
    parts.words = spokenWords(phrase);
    parts.move = MoveCommand::find(phrase, parts.words);
    parts.clauses = readClauses(parts.words, reading, parts.move);
    Assembly(parts, phrase, reading).run();
    return parts;
}

} // namespace skipnest::voice
