// SPDX-License-Identifier: Apache-2.0
#include "voice/Certainty.h"

#include "voice/VoiceFillers.h"

#include <QSet>
#include <QStringList>

#include <algorithm>
#include <array>
#include <variant>

namespace skipnest::voice {
namespace {

// What a window verb is said of: the one in front, whatever it is called.
constexpr std::array windowWords{"window",    "windows",  "fenster",   "app",   "application",
                                 "anwendung", "programm", "program",   "this",  "that",
                                 "it",        "current",  "dieses",    "diese", "dieser",
                                 "das",       "aktuelle", "aktuelles", "es"};

bool isWindowWord(const QString& word) {
    return std::ranges::any_of(
        windowWords, [&word](const char* each) { return word == QString::fromUtf8(each); });
}

// Words that only hold a phrase together.
bool isGlue(const QString& word) {
    return VoiceCommand::isConnector(word) || VoiceCommand::isJumpFiller(word) ||
           VoiceCommand::verb(word) || isVoiceFiller(word);
}

// The words of a text, without the full stop of a sentence.
QStringList wordsIn(const QString& text) {
    QStringList words = VoiceCommand::tokenize(text.toLower());
    for (QString& word : words) {
        while (word.endsWith(u'.'))
            word.chop(1);
    }
    words.removeAll(QString());
    return words;
}

// What the steps of a phrase say about its words.
struct Explained {
    QSet<QString> words; // of the target and of what is searched
    QSet<QUrl> sites;
    QSet<QString> searches; // templates
    bool actsOnWindow = false;
    bool dictates = false;
    bool isOpen = false; // something that the tables cannot explain

    void add(const QString& text) {
        for (const QString& word : wordsIn(text))
            words.insert(word);
    }
    void operator()(const VoiceCommand::OpenSite& step) { sites.insert(step.url); }
    void operator()(const VoiceCommand::Search& step) {
        add(step.query);
        if (step.site)
            searches.insert(*step.site);
    }
    void operator()(const VoiceCommand::Find&) { isOpen = true; }
    void operator()(const VoiceCommand::Window&) { actsOnWindow = true; }
    void operator()(const VoiceCommand::Dictate&) { dictates = true; }
    void operator()(const VoiceCommand::MoveFile&) { isOpen = true; }

    [[nodiscard]] bool accountsFor(const QString& word) const {
        if (isGlue(word) || words.contains(word) || (actsOnWindow && isWindowWord(word)))
            return true;
        if (const auto site = VoiceCommand::site(word))
            return sites.contains(site->url) || (site->search && searches.contains(*site->search));
        const auto url = VoiceCommand::spokenURL({word});
        return url && sites.contains(*url);
    }
};

} // namespace

bool isCertain(const QString& transcript, const VoiceCommand::Parsed& parsed,
               const TargetLead& lead) {
    if (parsed.target.isEmpty() && parsed.steps.empty())
        return false;
    if (!parsed.target.isEmpty() && !lead.isClear())
        return false;
    Explained explained;
    explained.add(parsed.target);
    for (const auto& step : parsed.steps)
        std::visit(explained, step);
    if (explained.isOpen)
        return false;
    QStringList words = wordsIn(transcript);
    if (explained.dictates) {
        // A text for the field in front is everything behind its first word. Behind a target or a
        // search it may be a message, and its person is somewhere in the words before.
        if (!parsed.target.isEmpty() || parsed.steps.size() > 1)
            return false;
        words.erase(std::ranges::find_if(words, VoiceCommand::isDictationTrigger), words.end());
    }
    return std::ranges::all_of(
        words, [&explained](const QString& word) { return explained.accountsFor(word); });
}

} // namespace skipnest::voice
