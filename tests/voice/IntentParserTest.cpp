// SPDX-License-Identifier: Apache-2.0
#include "voice/IntentParser.h"

#include "platform/EndpointLanguageModel.h"
#include "platform/JsonDefaults.h"
#include "platform/LanguageModelSettings.h"
#include "platform/sim/MemoryFiles.h"
#include "platform/sim/SimHttp.h"
#include "platform/sim/SimLanguageModel.h"
#include "platform/sim/VirtualScheduler.h"
#include "voice/CleanupRules.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

#include <ostream>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using platform::Failure;
using testing::ElementsAre;
using testing::IsEmpty;

class IntentParserTest : public testing::Test {
protected:
    // Nothing where there was no answer within a minute.
    std::optional<ParsedIntent> understood(const QString& transcript) {
        std::optional<ParsedIntent> heard;
        const auto request =
            parser.parseWithModel(transcript, [&](const ParsedIntent& intent) { heard = intent; });
        EXPECT_FALSE(heard) << "from inside the call";
        scheduler.advanceTo(scheduler.now() + 60s);
        return heard;
    }
    QString cleaned(const QString& message, std::optional<bool> voiceCleanup = true) {
        QString heard;
        const auto request =
            parser.cleanup(message, voiceCleanup, [&](const QString& text) { heard = text; });
        scheduler.advanceTo(scheduler.now() + 60s);
        return heard;
    }

    sim::VirtualScheduler scheduler;
    sim::Journal journal{scheduler};
    sim::SimLanguageModel model{scheduler, journal};
    platform::sim::MemoryFiles files;
    platform::JsonDefaults defaults{files, u"/home/defaults.json"_s};
    IntentParser parser{model, defaults, scheduler, journal};
};

const QString chat = u"go to whatsapp and go to paul"_s;
const QString closing = u"{\"target\":\"\",\"contact\":\"\",\"message\":\"\",\"website\":\"\","
                        "\"query\":\"\",\"windowAction\":\"close\",\"space\":0,\"moveFile\":\"\","
                        "\"moveFrom\":\"\",\"moveTo\":\"\"}"_s;
QString moving() {
    return QString(closing)
        .replace(u"\"close\""_s, u"\"\""_s)
        .replace(u"\"moveFile\":\"\""_s, u"\"moveFile\":\"a\""_s);
}

TEST_F(IntentParserTest, theModelsIntentIsTheResultAndOneLineSaysSo) {
    model.setAnswerToAll(closing, 1400ms);
    const auto intent = understood(u"mach %2 das zu"_s);
    ASSERT_TRUE(intent);
    EXPECT_EQ(intent->source, ParsedIntent::Source::model);
    EXPECT_THAT(intent->parsed.steps, ElementsAre(VoiceCommand::Step(
                                          VoiceCommand::Window{VoiceCommand::WinVerb::close})));
    EXPECT_THAT(journal.logLines(), ElementsAre("llm: 'mach %2 das zu' → target='' steps=1"));
    EXPECT_EQ(model.lastTask().schema, VoiceIntent::task().schema);
}

TEST_F(IntentParserTest, everyFailureIsTheKeywordParsersResult) {
    struct Row {
        platform::Result<QString> answer;
        platform::Duration after;
        const char* logged;
    };
    const Row rows[] = {
        {Failure{Failure::Kind::refused, u"status 500"_s}, {}, "status 500"},
        {closing, 1600ms, "no reply in time"},
        {u"I would close it."_s, {}, "the answer is not one JSON object"},
        {u"{\"target\":\"x\"}"_s, {}, "the answer has no \"contact\""},
    };
    const ParsedIntent byKeywords{.parsed = VoiceCommand::parse(chat)};
    for (const Row& row : rows) {
        journal.clear();
        model.setAnswerToAll(row.answer, row.after);
        EXPECT_EQ(understood(chat), byKeywords) << row.logged;
        EXPECT_THAT(journal.logLines(), ElementsAre(std::string("llm: parse failed (") +
                                                    row.logged + ") → keyword fallback"));
    }
    journal.clear();
    model.setAnswerToAll(moving());
    EXPECT_EQ(understood(chat), byKeywords);
    EXPECT_THAT(
        journal.logLines(),
        ElementsAre("llm: dropped hallucinated move (no move verb in '" + chat.toStdString() + "')",
                    "llm: '" + chat.toStdString() + "' → target='" +
                        byKeywords.parsed.target.toStdString() +
                        "' steps=" + std::to_string(byKeywords.parsed.steps.size())));
}

TEST_F(IntentParserTest, withoutAModelOrAPhraseNobodyIsAskedAndNothingIsLogged) {
    EXPECT_EQ(understood(chat), (ParsedIntent{.parsed = VoiceCommand::parse(chat)}));
    model.setAnswerToAll(closing);
    EXPECT_EQ(understood(u" \n"_s), (ParsedIntent{}));
    EXPECT_TRUE(understood(QString(u"word "_s).repeated(100'000)));
    EXPECT_THAT(journal.entries(), IsEmpty());
}

TEST_F(IntentParserTest, aDroppedRequestTellsNothing) {
    for (const bool isAvailable : {false, true}) {
        if (isAvailable)
            model.setAnswerToAll(closing, 1s);
        bool heard = false;
        auto request = parser.parseWithModel(chat, [&](const ParsedIntent&) { heard = true; });
        scheduler.advanceTo(scheduler.now() + (isAvailable ? 500ms : 0ms));
        heard = false;
        request.reset();
        auto other = parser.cleanup(chat, true, [&](const QString&) { heard = true; });
        other.reset();
        EXPECT_EQ(model.running(), 0);
        scheduler.advanceTo(scheduler.now() + 60s);
        EXPECT_FALSE(heard);
    }
    EXPECT_THAT(journal.logLines(), IsEmpty());
}

TEST_F(IntentParserTest, theDeadlineIsTheSettingWithinItsBounds) {
    struct Row {
        QJsonValue setting;
        platform::Duration limit;
    };
    const Row rows[] = {{QJsonValue::Undefined, 1500ms},
                        {0.2, 500ms},
                        {3.25, 3250ms},
                        {1e12, 10s},
                        {-1.0, 500ms},
                        {u"9"_s, 1500ms}};
    for (const Row& row : rows) {
        (void)defaults.setValue(QString::fromLatin1(platform::LanguageModelSettings::deadlineKey),
                                row.setting);
        for (const bool isLate : {false, true}) {
            model.setAnswerToAll(closing, row.limit + (isLate ? 1ms : 0ms));
            const auto intent = understood(u"mach das zu"_s);
            ASSERT_TRUE(intent);
            EXPECT_EQ(intent->parsed.steps.empty(), isLate)
                << QJsonDocument(QJsonObject{{u"s"_s, row.setting}}).toJson().toStdString();
        }
    }
}

TEST_F(IntentParserTest, itIsAskedWhatIsUncertainUnlessThePersonWantsAllAsked) {
    const QString plain = u"close this window"_s;
    const auto parsed = VoiceCommand::parse(plain);
    EXPECT_FALSE(parser.shouldAsk(u"mach das zu"_s, {}, {})) << "there is no model";
    model.setAvailable(true);
    EXPECT_TRUE(parser.shouldAsk(u"mach das zu"_s, {}, {}));
    EXPECT_FALSE(parser.shouldAsk(plain, parsed, {}));
    (void)defaults.setValue(QString::fromLatin1(platform::LanguageModelSettings::alwaysKey), true);
    EXPECT_TRUE(parser.shouldAsk(plain, parsed, {}));
    model.setAvailable(false);
    EXPECT_FALSE(parser.shouldAsk(plain, parsed, {}));
}

TEST_F(IntentParserTest, messagesAreCleanedOnlyWhereThePersonSaidSo) {
    const QString message = u"ähm hey paul ich bin ähm gleich da ja"_s;
    const QString better = u"Hey Paul, ich bin gleich da."_s;
    model.setAnswerToAll(u"\n "_s + better + u"\n"_s);
    EXPECT_EQ(cleaned(message, std::nullopt), message);
    EXPECT_EQ(cleaned(message, false), message);
    EXPECT_EQ(cleaned(u"  "_s), u"  ");
    EXPECT_THAT(journal.entries(), IsEmpty());
    EXPECT_EQ(cleaned(message), better);
    EXPECT_TRUE(model.lastTask().schema.isEmpty());
    EXPECT_EQ(model.lastTask().instructions.split(u'\n').size(), 13);
    EXPECT_THAT(journal.logLines(), ElementsAre("llm: cleanup '" + message.toStdString() + "' → '" +
                                                better.toStdString() + "'"));
    journal.clear();
    model.setAnswerToAll(Failure{Failure::Kind::timedOut, u"no reply in time"_s});
    EXPECT_EQ(cleaned(message), message);
    model.setAnswerToAll(u" \n"_s);
    EXPECT_EQ(cleaned(message), message);
    EXPECT_THAT(journal.logLines(),
                ElementsAre("llm: cleanup failed (no reply in time) → verbatim",
                            "llm: cleanup failed (the answer is not the message) → verbatim"));
}

struct Cleaning {
    const char* what;
    QString message;
    QString cleaned;
    bool isFaithful;
};
void PrintTo(const Cleaning& row, std::ostream* out) {
    *out << row.what;
}
class CleanupRulesTest : public testing::TestWithParam<Cleaning> {};

TEST_P(CleanupRulesTest, bringNothingNew) {
    EXPECT_EQ(isFaithful(GetParam().message, GetParam().cleaned), GetParam().isFaithful);
}
const Cleaning cleanings[] = {
    {"longest", u"abc"_s, QString(46, u'x'), true},
    {"tooLong", u"abc"_s, QString(47, u'x'), false},
    {"empty", u"abc"_s, {}, false},
    {"numbersKept", u"um 17 uhr 30 in raum 4"_s, u"Um 17 Uhr 30 in Raum 4."_s, true},
    {"numberOnceLess", u"um 5 um 5 uhr"_s, u"Um 5 Uhr."_s, true},
    {"numberOnceMore", u"um 5 uhr"_s, u"Um 5 Uhr, 5."_s, false},
    {"numberNew", u"um fünf uhr"_s, u"Um 5 Uhr."_s, false},
    {"numberLonger", u"um 5 uhr"_s, u"Um 50 Uhr."_s, false},
    {"numbersRunTogether", u"0171 2 3"_s, u"017123"_s, false},
    {"sameNumberOtherScript", u"bei ٤٢ links"_s, u"Bei 42 links."_s, true},
    {"newNumberOtherScript", u"links"_s, u"٤٢ links"_s, false},
    {"mailKept", u"schick es an paul@example.org bitte"_s,
     u"Schick es bitte an Paul@example.org."_s, true},
    {"mailNew", u"schick es an paul"_s, u"Schick es an paul@example.org."_s, false},
    {"mailOther", u"an paul@example.org"_s, u"an paul@example.com"_s, false},
    {"siteNew", u"schau auf der seite"_s, u"Schau auf (example.org)."_s, false},
    {"addressNew", u"hier"_s, u"Hier: HTTPS://x/y"_s, false},
    {"sentenceEnds", u"ja genau bis gleich"_s, u"Ja. Genau... Bis gleich!"_s, true},
};
INSTANTIATE_TEST_SUITE_P(Messages, CleanupRulesTest, testing::ValuesIn(cleanings));

// What leaves this process, with everything behind the parser real but the wire.
TEST(PromptPrivacyTest, onlyTheTranscriptAndFixedTextsAreEverSent) {
    sim::VirtualScheduler scheduler;
    sim::Journal journal{scheduler};
    sim::SimHttp http{scheduler, journal};
    platform::sim::MemoryFiles files;
    platform::JsonDefaults defaults{files, u"/home/defaults.json"_s};
    const auto set = [&](const char* key, const QJsonValue& value) {
        (void)defaults.setValue(QString::fromLatin1(key), value);
    };
    using Settings = platform::LanguageModelSettings;
    platform::EndpointLanguageModel model{http, defaults, scheduler};
    IntentParser parser{model, defaults, scheduler, journal};
    const auto sentTexts = [&] {
        QStringList texts;
        const QJsonObject body = QJsonDocument::fromJson(http.lastRequest().body).object();
        for (const QJsonValue& message : body.value("messages"_L1).toArray())
            texts.append(message.toObject().value("content"_L1).toString());
        return texts;
    };
    parser.warm();
    auto request = parser.parseWithModel(chat, [](const auto&) {});
    EXPECT_THAT(journal.calls(), IsEmpty()) << "no endpoint is set";

    set(Settings::endpointKey, u"http://127.0.0.1:8080"_s);
    const QString fixed = VoiceIntent::task().instructions;
    parser.warm();
    ASSERT_EQ(sentTexts().size(), 2);
    const QString system = sentTexts().first();
    EXPECT_TRUE(system.startsWith(fixed + u"\n\n"_s));
    EXPECT_TRUE(system.endsWith(QString::fromUtf8(VoiceIntent::task().schema)));
    EXPECT_EQ(sentTexts().last(), u"");
    for (const QString& phrase : {u"whatsapp paul texten \"hi\" \\ 🐝"_s, chat}) {
        request = parser.parseWithModel(phrase, [](const auto&) {});
        EXPECT_EQ(sentTexts(), (QStringList{system, phrase})) << "what was warmed is what is asked";
    }
    request = parser.cleanup(u"bin gleich da"_s, true, [](const auto&) {});
    ASSERT_EQ(sentTexts().size(), 2);
    EXPECT_EQ(sentTexts().last(), u"bin gleich da");
    EXPECT_TRUE(sentTexts().first().startsWith(u"You clean up a dictated message"));
}

} // namespace
} // namespace skipnest::voice
