// SPDX-License-Identifier: Apache-2.0
#include "voice/VoiceFillers.h"

#include "voice/VoiceCommand.h"
#include "voice/WordList.h"

#include <QSet>

#include <iterator>

namespace skipnest::voice {
namespace {

constexpr QStringView fillers[] = {
    u"jump",   u"to",      u"go",       u"goto",   u"open",    u"switch",   u"switchto", u"take",
    u"me",     u"the",     u"a",        u"an",     u"please",  u"navigate", u"show",     u"find",
    u"get",    u"back",    u"into",     u"over",   u"onto",    u"my",       u"for",      u"and",
    u"of",     u"on",      u"in",       u"up",     u"bring",   u"pull",     u"let",      u"us",
    u"lets",   u"this",    u"that",     u"with",   u"i",       u"id",       u"im",       u"would",
    u"like",   u"want",    u"wanna",    u"need",   u"could",   u"can",      u"you",      u"your",
    u"now",    u"just",    u"actually", u"really", u"maybe",   u"gonna",    u"going",    u"please",
    u"hey",    u"ok",      u"okay",     u"so",     u"then",    u"there",    u"mhh",      u"mhm",
    u"mhhh",   u"hm",      u"hmm",      u"hmmm",   u"ähm",     u"aehm",     u"äh",       u"aeh",
    u"uh",     u"uhm",     u"um",       u"em",     u"eh",      u"ah",       u"ehm",      u"ich",
    u"möchte", u"moechte", u"will",     u"gehe",   u"geh",     u"mich",     u"mir",      u"mal",
    u"zum",    u"zur",     u"zu",       u"den",    u"die",     u"das",      u"der",      u"ein",
    u"eine",   u"einen",   u"mein",     u"meine",  u"meinen",  u"meiner",   u"bitte",    u"noch",
    u"auch",   u"und",     u"auf",      u"in",     u"wechsle", u"wechseln", u"öffne",    u"oeffne",
    u"spring", u"springe", u"gerne",    u"würde",  u"wuerde",  u"jetzt",    u"einfach",  u"hier",
    u"da",     u"wo",
};
static_assert(std::size(fillers) == 122);

} // namespace

bool isVoiceFiller(const QString& lowerCaseWord) {
    static const QSet<QStringView> set(std::begin(fillers), std::end(fillers));
    return set.contains(QStringView(lowerCaseWord));
}

bool isAskingWord(const QString& lowerCaseWord) {
    static constexpr QStringView list[] = {u"kannst",  u"kannste",  u"könntest", u"koenntest",
                                           u"würdest", u"wuerdest", u"du",       u"sollst"};
    return isOneOf(list, lowerCaseWord);
}

QString spokenTarget(const QString& spoken) {
    QString cleaned;
    const QStringList words = VoiceCommand::tokenize(spoken.toLower());
    for (const QString& word : words) {
        if (isVoiceFiller(word))
            continue;
        if (!cleaned.isEmpty())
            cleaned += u' ';
        cleaned += word;
    }
    return cleaned;
}

} // namespace skipnest::voice
