// SPDX-License-Identifier: Apache-2.0
#include "voice/Certainty.h"

#include <gmock/gmock.h>

#include <ostream>

namespace skipnest::voice {
namespace {

using namespace Qt::StringLiterals;

TEST(TargetLeadTest, isClearFromItsScoreOnAndWithNobodyClose) {
    struct Row {
        std::optional<double> best;
        std::optional<double> runnerUp;
        bool isClear;
    };
    const Row rows[] = {
        {{}, {}, false},    {6.5, {}, true},   {6.49, {}, false},  {10.0, 8.8, false},
        {10.0, 8.79, true}, {6.5, 5.71, true}, {6.5, 5.73, false}, {13.58, 13.58, false},
    };
    for (const Row& row : rows)
        EXPECT_EQ((TargetLead{row.best, row.runnerUp}.isClear()), row.isClear)
            << row.best.value_or(-1) << ' ' << row.runnerUp.value_or(-1);
}

struct Phrase {
    QString text;
    bool withoutTarget; // certain where nothing in the index fits
    bool withTarget;    // certain where the target is far ahead
};
void PrintTo(const Phrase& row, std::ostream* out) {
    *out << row.text.toStdString();
}
class CertaintyTest : public testing::TestWithParam<Phrase> {};

TEST_P(CertaintyTest, isThatEveryWordIsAccountedFor) {
    const auto& [text, withoutTarget, withTarget] = GetParam();
    const auto parsed = VoiceCommand::parse(text);
    EXPECT_EQ(isCertain(text, parsed, {}), withoutTarget);
    EXPECT_EQ(isCertain(text, parsed, {12.0, 7.0}), withTarget);
    EXPECT_FALSE(!parsed.target.isEmpty() && isCertain(text, parsed, {12.0, 11.0}));
}
const Phrase phrases[] = {
    // All from the tables.
    {u"close this window"_s, true, true},
    {u"schließe bitte das Fenster."_s, true, true},
    {u"exit"_s, true, true},
    {u"search for cats"_s, true, true},
    {u"go to youtube.com"_s, true, true},
    {u"schreibe Hallo Paul, bis später"_s, true, true},
    {u"please write go to chrome and close it"_s, true, true},
    // A target, with or without steps of the tables.
    {u"safari"_s, false, true},
    {u"go to chrome"_s, false, true},
    {u"i would like to go to my documents folder"_s, false, true},
    {u"go to chrome and search cats"_s, false, true},
    {u"go to chrome open youtube and search for cats"_s, false, true},
    // For a reader of sentences.
    {u""_s, false, false},
    {u"geh zu Teams, suche Susanne, schreib ihr hi"_s, false, false},
    {u"whatsapp paul texten hey ich bin gleich da"_s, false, false},
    {u"move the screenshot into Documents"_s, false, false},
};
INSTANTIATE_TEST_SUITE_P(Phrases, CertaintyTest, testing::ValuesIn(phrases));

} // namespace
} // namespace skipnest::voice
