// SPDX-License-Identifier: Apache-2.0
#include "voice/VoiceIntent.h"
#include "voice/IntentParser.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

#include <ostream>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using Step = VoiceCommand::Step;

// An answer with all fields, those given filled.
QString answer(const QJsonObject& filled = {}) {
    QJsonObject object{{u"space"_s, 0}};
    for (const char* name : {"target", "contact", "message", "website", "query", "windowAction",
                             "moveFile", "moveFrom", "moveTo"})
        object.insert(QString::fromLatin1(name), QString());
    for (auto each = filled.begin(); each != filled.end(); ++each)
        object.insert(each.key(), each.value());
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}
VoiceIntent intent(const QJsonObject& filled) {
    const auto decoded = VoiceIntent::decode(answer(filled));
    EXPECT_TRUE(decoded);
    return decoded ? *decoded : VoiceIntent{};
}

TEST(VoiceIntentTest, theSchemaIsJsonAndKeepsTheOrderOfItsFields) {
    const auto& task = VoiceIntent::task();
    const QJsonObject schema = QJsonDocument::fromJson(task.schema).object();
    const QJsonObject properties = schema.value("properties"_L1).toObject();
    const QJsonArray required = schema.value("required"_L1).toArray();
    ASSERT_EQ(required.size(), 10);
    ASSERT_EQ(properties.size(), 10);
    EXPECT_EQ(schema.value("additionalProperties"_L1), QJsonValue(false));
    qsizetype last = 0;
    for (const QJsonValue& name : required) {
        const QJsonObject property = properties.value(name.toString()).toObject();
        EXPECT_EQ(property.value("type"_L1).toString(),
                  name.toString() == u"space" ? u"integer"_s : u"string"_s);
        EXPECT_GT(property.value("description"_L1).toString().size(), 40);
        const qsizetype at = task.schema.indexOf(("\"" + name.toString().toUtf8() + "\":{"));
        EXPECT_GT(at, last) << name.toString().toStdString();
        last = at;
    }
    const QStringList lines = task.instructions.split(u'\n');
    ASSERT_EQ(lines.size(), 17);
    EXPECT_EQ(lines[12], u"- \"close this window\" -> windowAction=close");
    EXPECT_TRUE(lines.last().endsWith(u"exactly as spoken."));
}

struct Answered {
    const char* what;
    QString text;
    bool isTaken = false;
};
void PrintTo(const Answered& row, std::ostream* out) {
    *out << row.what;
}
class DecodeTest : public testing::TestWithParam<Answered> {};

TEST_P(DecodeTest, takesNothingThatIsInDoubt) {
    const auto decoded = VoiceIntent::decode(GetParam().text);
    ASSERT_EQ(decoded.ok(), GetParam().isTaken)
        << (decoded ? "taken" : qPrintable(decoded.failure().detail));
    if (decoded)
        EXPECT_EQ(decoded->target, u"Sl{a}ck");
    else
        EXPECT_FALSE(decoded.failure().detail.isEmpty());
}

const QString good = answer({{u"target"_s, u"Sl{a}ck"_s}});
QString without(const char* part, const char* instead) {
    QString text = good;
    EXPECT_TRUE(text.contains(QString::fromUtf8(part)));
    return text.replace(QString::fromUtf8(part), QString::fromUtf8(instead));
}
const Answered answers[] = {
    {"bare", good, true},
    {"blanksAround", u"\n\n  "_s + good + u"\t\n"_s, true},
    {"fenced", u"```json\n"_s + good + u"\n```"_s, true},
    {"fencedInProse", u"Sure! Here it is:\n```\n"_s + good + u"\n```\nAnything else?"_s, true},
    {"prose", u"The intent is "_s + good + u". \"Done\"."_s, true},
    {"aFieldMore", without("\"target\"", "\"confidence\":0.9,\"target\""), true},
    {"wholeNumberWritten2.0", without("\"space\":0", "\"space\":2.0"), true},
    {"nothing", {}},
    {"proseAlone", u"I am sorry, I cannot help with that."_s},
    {"endlessBlanks", QString(60'000, u' ')},
    {"blanksInside", u"{"_s + QString(60'000, u'\n')},
    {"half", good.left(good.size() / 2)},
    {"withoutItsEnd", good.chopped(1)},
    {"twoObjects", good + u"\n"_s + good},
    {"twoFences", u"```"_s + good + u"```\nor\n```"_s + good + u"```"_s},
    {"aBraceBesideTheFence", u"{x} ```"_s + good + u"```"_s},
    {"aThoughtBefore", u"<think>{target?}</think>"_s + good},
    {"closedBeforeOpened", u"} "_s + good},
    {"anotherSchema", u"{\"intent\":\"open\",\"app\":\"Slack\"}"_s},
    {"inAnArray", u"["_s + good + u"]"_s},
    {"partOfASchema", u"{\"target\":\"Sl{a}ck\"}"_s},
    {"aTextInQuotes", u"\"target\""_s},
    {"numberAsText", without("\"space\":0", "\"space\":\"2\"")},
    {"numberNull", without("\"space\":0", "\"space\":null")},
    {"numberBroken", without("\"space\":0", "\"space\":2.5")},
    {"numberHuge", without("\"space\":0", "\"space\":1e300")},
    {"textNull", without("\"query\":\"\"", "\"query\":null")},
    {"textNumber", without("\"query\":\"\"", "\"query\":7")},
    {"textList", without("\"contact\":\"\"", "\"contact\":[\"Paul\"]")},
    {"nulByte", good + QChar(u'\0') + u"{"_s},
    {"deep", QString(100'000, u'{')},
};
INSTANTIATE_TEST_SUITE_P(Answers, DecodeTest, testing::ValuesIn(answers));

TEST(IntentToStepsTest, stepsComeInTheirOrderAndCarryTheSitesSearch) {
    const ParsedIntent all = intentToSteps(intent({{u"target"_s, u" Chrome\n"_s},
                                                   {u"website"_s, u" YouTube "_s},
                                                   {u"query"_s, u" cats "_s},
                                                   {u"windowAction"_s, u"Minimise"_s},
                                                   {u"moveFile"_s, u"Rechnung PDF"_s},
                                                   {u"moveTo"_s, u" Rechnungen "_s},
                                                   {u"contact"_s, u" Paul "_s},
                                                   {u"message"_s, u" hi \n"_s},
                                                   {u"space"_s, 3}}));
    const auto youtube = VoiceCommand::site(u"youtube"_s);
    ASSERT_TRUE(youtube);
    EXPECT_EQ(all.parsed.target, u"Chrome");
    EXPECT_THAT(all.parsed.steps,
                ElementsAre(Step(VoiceCommand::OpenSite{youtube->url}),
                            Step(VoiceCommand::Search{u"cats"_s, youtube->search}),
                            Step(VoiceCommand::Window{VoiceCommand::WinVerb::minimize}),
                            Step(VoiceCommand::MoveFile{u"Rechnung PDF"_s, {}, u"Rechnungen"_s})));
    EXPECT_EQ(all.contact, u"Paul");
    EXPECT_EQ(all.message, u"hi");
    EXPECT_EQ(all.space, 3);
}

TEST(IntentToStepsTest, whatItDoesNotKnowItLeavesOut) {
    const auto steps = [](const QJsonObject& filled) {
        return intentToSteps(intent(filled)).parsed.steps;
    };
    EXPECT_THAT(steps({}), IsEmpty());
    EXPECT_THAT(steps({{u"website"_s, u"my bank"_s}, {u"windowAction"_s, u"maximize"_s}}),
                IsEmpty());
    EXPECT_THAT(steps({{u"moveFrom"_s, u"Downloads"_s}, {u"moveTo"_s, u"Documents"_s}}), IsEmpty());
    EXPECT_THAT(steps({{u"website"_s, u"example.org"_s}, {u"query"_s, u"cats"_s}}),
                ElementsAre(Step(VoiceCommand::OpenSite{QUrl(u"https://example.org"_s)}),
                            Step(VoiceCommand::Search{u"cats"_s, {}})));
    for (const int space : {-1, 0, 10})
        EXPECT_EQ(intentToSteps(intent({{u"space"_s, space}})).space, 0);
}

TEST(JudgeIntentTest, aMoveThatNobodySaidIsTheKeywordParsersPhraseInstead) {
    const VoiceIntent move = intent({{u"target"_s, u"WhatsApp"_s},
                                     {u"contact"_s, u"Paul"_s},
                                     {u"moveFile"_s, u"paul"_s},
                                     {u"moveTo"_s, u"WhatsApp"_s}});
    const QString chat = u"go to whatsapp and go to paul"_s;
    const JudgedIntent dropped = judgeIntent(chat, move);
    EXPECT_TRUE(dropped.isMoveDropped);
    EXPECT_EQ(dropped.result, (ParsedIntent{.parsed = VoiceCommand::parse(chat)}));

    const JudgedIntent kept = judgeIntent(u"verschiebe paul nach whatsapp"_s, move);
    EXPECT_FALSE(kept.isMoveDropped);
    EXPECT_EQ(kept.result.contact, u"Paul");
    // It looks at the first step alone.
    VoiceIntent later = move;
    later.website = u"github"_s;
    EXPECT_FALSE(judgeIntent(chat, later).isMoveDropped);
}

} // namespace
} // namespace skipnest::voice
