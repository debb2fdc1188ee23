// SPDX-License-Identifier: Apache-2.0
#include "voice/Vocabulary.h"

#include <QHash>

namespace skipnest::voice {
namespace {

using Verb = VoiceCommand::Verb;

struct VerbWord {
    QStringView word;
    Verb verb;
};

// "exit" closes a window and ends no application: people say it to both, and a window closed by
// mistake is opened again sooner.
constexpr VerbWord verbWords[] = {
    {u"open", Verb::open},
    {u"öffne", Verb::open},
    {u"oeffne", Verb::open},
    {u"launch", Verb::open},
    {u"start", Verb::open},
    {u"starte", Verb::open},
    {u"goto", Verb::goTo},
    {u"go", Verb::goTo},
    {u"navigate", Verb::goTo},
    {u"gehe", Verb::goTo},
    {u"geh", Verb::goTo},
    {u"search", Verb::search},
    {u"suche", Verb::search},
    {u"google", Verb::search},
    {u"find", Verb::search},
    {u"finde", Verb::search},
    {u"look", Verb::search},
    {u"close", Verb::close},
    {u"schließe", Verb::close},
    {u"schliesse", Verb::close},
    {u"schließen", Verb::close},
    {u"schliessen", Verb::close},
    {u"exit", Verb::close},
    {u"quit", Verb::quit},
    {u"beende", Verb::quit},
    {u"beenden", Verb::quit},
    {u"minimize", Verb::minimize},
    {u"minimise", Verb::minimize},
    {u"minimiere", Verb::minimize},
    {u"minimieren", Verb::minimize},
    {u"verkleinere", Verb::minimize},
    {u"verkleinern", Verb::minimize},
    {u"hide", Verb::hide},
    {u"verstecke", Verb::hide},
    {u"verberge", Verb::hide},
    {u"verstecken", Verb::hide},
    {u"verbergen", Verb::hide},
    {u"ausblenden", Verb::hide},
};

constexpr QStringView connectors[] = {u"and",    u"then", u"und",     u"dann",
                                      u"danach", u"plus", u"außerdem"};

constexpr QStringView jumpFillers[] = {
    u"jump", u"take", u"me",    u"please", u"bitte",  u"to",      u"the",     u"a",  u"an",
    u"new",  u"tab",  u"with",  u"for",    u"on",     u"auf",     u"nach",    u"in", u"den",
    u"der",  u"die",  u"das",   u"einen",  u"zu",     u"zum",     u"zur",     u"up", u"of",
    u"my",   u"mein", u"meine", u"meinen", u"spring", u"springe", u"wechsle",
};

constexpr QStringView dictationTriggers[] = {
    u"write", u"type",    u"text",      u"texte",   u"texten",   u"schreibe", u"schreib",
    u"tippe", u"message", u"nachricht", u"dictate", u"diktiere", u"say",      u"sag",
};

struct NumberWord {
    QStringView word;
    int number;
};

constexpr NumberWord numberWords[] = {
    {u"one", 1},   {u"two", 2},    {u"three", 3}, {u"four", 4}, {u"five", 5},
    {u"six", 6},   {u"seven", 7},  {u"eight", 8}, {u"nine", 9}, {u"eins", 1},
    {u"zwei", 2},  {u"drei", 3},   {u"vier", 4},  {u"fünf", 5}, {u"fuenf", 5},
    {u"sechs", 6}, {u"sieben", 7}, {u"acht", 8},  {u"neun", 9},
};

static_assert(std::size(verbWords) == 38 && std::size(connectors) == 7 &&
              std::size(jumpFillers) == 34 && std::size(dictationTriggers) == 14 &&
              std::size(numberWords) == 19 && std::size(moveVerbs) == 9);

using Table = QHash<QStringView, WordUse>;

Table makeTable() {
    Table table;
    for (const VerbWord& entry : verbWords)
        table[entry.word].verb = entry.verb;
    for (const NumberWord& entry : numberWords)
        table[entry.word].number = entry.number;
    for (const QStringView word : connectors)
        table[word].connector = true;
    for (const QStringView word : jumpFillers)
        table[word].jumpFiller = true;
    for (const QStringView word : dictationTriggers)
        table[word].dictationTrigger = true;
    return table;
}

} // namespace

const WordUse& wordUse(const QString& word) {
    static const Table table = makeTable();
    static const WordUse none;
    const auto found = table.constFind(QStringView(word));
    return found == table.cend() ? none : *found;
}

} // namespace skipnest::voice
